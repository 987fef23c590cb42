#include <OstrelLibWx/widgets/CurveDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/CurvesFile.h>
#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/DropdownButton.h>

#include "widgets/DialogTest.h"
#include "widgets/DialogUser.h"
#include "widgets/FileDialogDriver.h"
#include "widgets/ModalDriver.h"

#include <wx/filename.h>
#include <wx/stattext.h>

#include <filesystem>
#include <fstream>

namespace Ostrel::Wx {
namespace {

namespace Driver = FileDialogDriver;
using enum CurveChannel;

constexpr const char* ALL_STRAIGHT = "changed 0 straight; changed 1 straight; changed 2 straight; changed 3 straight; ";

class Host : public ICurveDialogCallbacks, public ICurvePanelCallbacks {
public:
    explicit Host(HostLog& hostLog)
        : log(hostLog) {}
    SharedPtr<ICurvePanelCallbacks> getPanelCallbacks() override { return panel.lock(); }
    CurveDialogFileRow getFileRow() override {
        return {folder / "", {{"Own", [this] { log.call("own"); }}}};
    }
    bool isPickWanted() override { return hasExtras; }
    bool isEqualizeWanted() override { return hasExtras; }
    void onDropdownShown(wxWindow* window) override { log.call(window->IsShown() ? "shown" : "?"); }
    void onDropdownHidden(wxWindow* window) override { log.call(window->IsShown() ? "?" : "hidden"); }

    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int bins) override {
        log.call(wxString::Format("histogram %g %d", double{range.second}, int(channel)));
        Array<std::uint64_t> counts(std::size_t(isEmpty ? 0 : bins), 0);
        if (!counts.empty()) {
            counts.front() = 1;
        }
        return {counts, range.first, range.second};
    }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return Rgb{0.5F, 0.5F, 0.5F}; }
    void onCurveChanged(CurveChannel channel, const Curve& curve) override {
        log.call(wxString::Format("changed %d %s", int(channel), curve.isIdentity() ? "straight" : "bent"));
    }
    std::int64_t getChangeDelay() override { return 0; }

    HostLog& log;
    std::weak_ptr<Host> panel;
    Path folder;
    bool hasExtras = true;
    bool isEmpty = false; ///< the histogram
};

class CurveDialogTest : public DialogTest<CurveDialog> {
protected:
    CurveDialogTest() { host->panel = host; }
    CurveDialog* create() override { return new CurveDialog(&frame(), GuiSkin(), "Curves", curves, host); }

    ComboBox& box(std::size_t index) {
        auto child = dialog->GetChildren().begin();
        while (dynamic_cast<ComboBox*>(*child) == nullptr || index-- > 0) {
            ++child;
        }
        return static_cast<ComboBox&>(**child);
    }
    void press(ComboBox& target, int key) {
        const Optional<int> before = target.getSelectedIndex();
        pressIn(target, key);
        EXPECT_TRUE(pumpUntil([&] { return target.getSelectedIndex() != before; })) << "no key arrived";
    }
    void chooseReset(int key) {
        auto& reset = *find<DropdownButton>();
        clickOn("Reset");
        EXPECT_TRUE(pumpUntil([&] {
            auto* const top = static_cast<wxTopLevelWindow*>(wxGetTopLevelParent(wxWindow::FindFocus()));
            return reset.isOpen() && top != nullptr && top != dialog && top->IsActive();
        })) << "the row did not come up";
        settle();
        pressKey(key);
        pressKey(WXK_RETURN);
        EXPECT_TRUE(pumpUntil([&] { return !dialog || !reset.isOpen(); }));
    }
    Curve curve(CurveChannel channel) { return dialog->getPanel()->getCurrentCurves()[channel]; }
    /// Clicks the button and gives its file dialog this name.
    /// @param error the message that follows; empty for none
    void choose(const wxString& label, const String& title, const String& name, const String& error,
                const Function<void()>& beforeReplacing = {}) {
        WindowHandle files;
        Array<DialogUser::Step> steps{{"the dialog", [&] { return !(files = Driver::findDialog(title)).isNull(); },
                                       [&] { Driver::enterNameField(files, input()); }},
                                      {"the name field", [&] { return Driver::isInNameField(files); },
                                       [&] { // in the place of what is proposed
                                           input().Char(WXK_HOME);
                                           input().Char(WXK_END, wxMOD_SHIFT);
                                           input().Text(name.toUtf8().c_str());
                                       }},
                                      {"the name",
                                       [&] { return Driver::getName(files) == name && Driver::canAccept(files); },
                                       [&] { input().Char(WXK_RETURN); }}};
        if (beforeReplacing) {
            const auto replace = [&] { beforeReplacing(), input().Char(WXK_RETURN); };
            steps.push_back({"the question", [&] { return Driver::hasMessage(files); }, replace});
        }
        if (!error.isEmpty()) {
            const auto isTold = [] { return ModalDriver::findActive<MessageDialog>() != nullptr; };
            steps.push_back({"the message", isTold, [&] {
                                 wxWindow* const message = ModalDriver::findActive<MessageDialog>();
                                 EXPECT_EQ(message->GetLabel(), "Nimbra Renderer Error");
                                 EXPECT_NE(wxWindow::FindWindowByLabel(error.toWide(), message), nullptr);
                                 input().Char(WXK_RETURN);
                             }});
        }
        {
            const DialogUser user(steps);
            clickOn(label);
        }
        EXPECT_TRUE(pumpUntil([this] { return isUp(*dialog); })) << "after " << name.toUtf8();
    }

    const std::shared_ptr<Host> host = std::make_shared<Host>(log);
    ColorCurve curves;
};

TEST_F(CurveDialogTest, EditsTheSelectedChannel) {
    curves[MASTER].setInterpolation(CurveInterpolation::LINEAR);
    make();
    EXPECT_EQ(box(1).getSelectedIndex(), 1) << "of the Master curve";
    press(box(0), WXK_DOWN);
    EXPECT_EQ(dialog->getPanel()->getSelectedCurveChannel(), RED);
    EXPECT_EQ(box(1).getSelectedIndex(), 0);
    EXPECT_EQ(log.take(), "histogram 1 1; ");
    press(box(1), WXK_DOWN);
    EXPECT_EQ(curve(RED).getInterpolation(), CurveInterpolation::LINEAR);
    EXPECT_EQ(curve(GREEN).getInterpolation(), CurveInterpolation::CUBIC_SPLINE);
    EXPECT_EQ(log.take(), "changed 1 straight; ");
    chooseReset(WXK_HOME);
    EXPECT_EQ(curve(RED), Curve());
    EXPECT_EQ(box(1).getSelectedIndex(), 0);
    EXPECT_EQ(log.take(), "changed 1 straight; ");
    chooseReset(WXK_END);
    EXPECT_EQ(dialog->getPanel()->getCurrentCurves(), ColorCurve());
    EXPECT_EQ(log.take(), ALL_STRAIGHT);
}

TEST_F(CurveDialogTest, EqualizesPicksAndTellsOfItsLists) {
    make();
    press(box(0), WXK_END);
    log.take();
    clickOn("Equalize");
    EXPECT_EQ(log.take(), "histogram 2 0; changed 0 bent; histogram 1 3; ") << "Master, though Blue is selected";
    EXPECT_EQ(curve(MASTER).getPoints().size(), 16u);
    EXPECT_EQ(box(2).getSelectedId(), static_cast<int>(HistogramType::CUMULATIVE));
    press(box(2), WXK_HOME);
    EXPECT_EQ(log.take(), "histogram 1 3; ");
    // A list goes to the row that begins with the letter: so the rows are what they say.
    const std::tuple<std::size_t, int, int> rows[] = {{0, 'G', 2}, {1, 'L', 1}, {2, 'C', 2}};
    for (const auto& [index, letter, row] : rows) {
        press(box(index), letter);
        EXPECT_EQ(box(index).getSelectedIndex(), row);
    }
    log.take();
    host->isEmpty = true;
    clickOn("Equalize");
    EXPECT_TRUE(log.take().starts_with("histogram 2 0; changed 0 "));
    dialog->enableHistogramControls(false);
    EXPECT_FALSE(box(2).IsEnabled() || find<Button>("Equalize")->IsEnabled());
    dialog->enableHistogramControls(true);
    clickOn("Pick");
    EXPECT_TRUE(dialog->isPicking());
    dialog->getController()->beginPick({3, 3});
    EXPECT_EQ(log.take(), "changed 2 straight; ");
    EXPECT_EQ(curve(GREEN).getPoints().size(), 3u);
    clickOn("Pick");
    EXPECT_FALSE(dialog->isPicking());
    const std::pair<int, std::size_t> focused[] = {{0, 1}, {0, 2}, {wxMOD_SHIFT, 1}};
    box(0).SetFocus();
    for (const auto& [modifiers, index] : focused) {
        ComboBox& next = box(index);
        input().Char(WXK_TAB, modifiers);
        EXPECT_TRUE(pumpUntil([&next] { return next.HasFocus(); })) << index;
    }
    for (const std::size_t index : {0u, 1u, 2u}) {
        click(box(index), middle(box(index)));
        EXPECT_TRUE(pumpUntil([&] { return log.text == "shown; "; })) << index;
        box(index).close();
        EXPECT_TRUE(pumpUntil([&] { return log.take() == "shown; hidden; "; })) << index;
    }
}

TEST_F(CurveDialogTest, HasWhatTheHostWantsAndGrowsWithItsPanel) {
    host->hasExtras = false;
    make();
    EXPECT_FALSE(find<Button>("Pick") || find<Button>("Equalize") || dialog->isPicking());
    dialog->enableHistogramControls(false);
    const int plot = scaleByDpi(256);
    EXPECT_EQ(dialog->getPanel()->getPlotSize(), (Pixel{plot, plot}));
    dialog->SetSize(dialog->GetSize() + wxSize(70, 30));
    EXPECT_TRUE(pumpUntil([&] { return dialog->getPanel()->getPlotSize() == Pixel{plot + 70, plot + 30}; }));
    dialog->Close();
    EXPECT_FALSE(dialog->IsShown());
    EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
}

TEST_F(CurveDialogTest, MayBeDestroyedInAnyCallback) {
    const auto openAndClose = [this] {
        box(2).open();
        if (dialog) {
            dialog->Close();
        }
    };
    checkDestruction({[this] { clickOn("Equalize"); }, [this] { clickOn("Own"); }, [this] { dialog->setCurves({}); },
                      [this] { dialog->updateHistogram(); }, [this] { box(0).selectIndex(1, true); },
                      [this] { box(1).selectIndex(1, true); }, [this] { box(2).selectIndex(1, true); }, openAndClose,
                      [this] { chooseReset(WXK_HOME); }});
    host->panel.reset();
    EXPECT_THROW(CurveDialog(&frame(), GuiSkin(), "", {}, host), Detail::StopException);
}

TEST_F(CurveDialogTest, LoadsAndSavesPointsAndTellsOfEveryFailureAlike) {
    namespace fs = std::filesystem;
    const wxString temporary = wxFileName::DirName(wxFileName::GetTempDir()).GetLongPath();
    host->folder = Path(String((temporary + wxString::Format("ostrel curves %lu", wxGetProcessId())).ToStdWstring()));
    fs::create_directories(host->folder.native());
    std::ofstream((host->folder / "version.acv").native(), std::ios::binary).write("\0\1\0\0", 4);
    std::ofstream((host->folder / "cut.acv").native(), std::ios::binary).write("\0\4\0\4\0\2\0\0\0", 9);
    curves[RED] = Curve({{0, 0.2F}, {0.4F, 0.6F}, {1, 1}}, CurveInterpolation::LINEAR);
    make();
    choose("Save", "Save as", "bent.acv", {});
    choose("Load", "Select file", "version.acv", "Cannot load curves from a file.");
    choose("Load", "Select file", "cut.acv", "Cannot load curves from a file.");
    choose("Save", "Save as", "cut.acv", "Cannot save curves into a file.", [this] {
        const auto file = (host->folder / "cut.acv").native(); // becomes a folder, which nobody can write to
        fs::remove(file);
        fs::create_directory(file);
    });
    EXPECT_EQ(dialog->getPanel()->getCurrentCurves(), curves);
    EXPECT_EQ(log.take(), "");
    const auto saved = loadCurves(host->folder / "bent.acv");
    ASSERT_TRUE(saved);
    { // a fifth record, which is left out without a word
        std::fstream file((host->folder / "bent.acv").native(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(2).write("\0\5", 2);
        file.seekp(0, std::ios::end).write("\0\1\0\0\0\0", 6);
    }
    dialog->setCurves({});
    press(box(0), WXK_DOWN);
    press(box(1), WXK_DOWN); // Red is linear
    log.take();
    choose("Load", "Select file", "bent.acv", {});
    EXPECT_EQ(curve(RED), Curve((*saved)[RED].getPoints(), CurveInterpolation::LINEAR));
    EXPECT_EQ(curve(BLUE), Curve());
    EXPECT_EQ(log.take(), "changed 0 straight; changed 1 bent; changed 2 straight; changed 3 straight; ");
    fs::remove_all(host->folder.native());
}

} // namespace
} // namespace Ostrel::Wx
