#include <OstrelLibWx/widgets/CurveDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/CurvesFile.h>
#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/DropdownButton.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "support/WidgetTest.h"
#include "widgets/DialogUser.h"
#include "widgets/FileDialogDriver.h"
#include "widgets/ModalDriver.h"

#include <gmock/gmock.h>
#include <wx/filename.h>
#include <wx/weakref.h>

#include <filesystem>
#include <fstream>

namespace Ostrel::Wx {
namespace {

namespace Driver = FileDialogDriver;
using enum CurveChannel;
using testing::ElementsAre;
using testing::IsEmpty;

template <class Widget>
std::vector<Widget*> findChildren(const wxWindow& window) {
    std::vector<Widget*> found;
    for (wxWindow* const child : window.GetChildren()) {
        if (auto* const widget = dynamic_cast<Widget*>(child)) {
            found.push_back(widget);
        }
    }
    return found;
}

/// Notes what it is asked and told, and then does something.
class Host : public ICurveDialogCallbacks {
public:
    class Panel : public ICurvePanelCallbacks {
    public:
        explicit Panel(Host& host)
            : _host(host) {}
        Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int bins) override {
            _host.call(wxString::Format("histogram %g %d", double{range.second}, int(channel)));
            Array<std::uint64_t> counts(std::size_t(bins), 0);
            counts.front() = 1;
            return {counts, range.first, range.second};
        }
        Optional<int> getHistogramRefreshInterval() override { return {}; }
        Optional<Rgb> getPixelColor(Pixel) override { return Rgb{0.5F, 0.5F, 0.5F}; }
        void onCurveChanged(CurveChannel channel, const Curve& curve) override {
            _host.call(wxString::Format("changed %d %s", int(channel), curve.isIdentity() ? "straight" : "bent"));
        }
        std::int64_t getChangeDelay() override { return 0; }

    private:
        Host& _host;
    };

    SharedPtr<ICurvePanelCallbacks> getPanelCallbacks() override { return panel; }
    CurveDialogFileRow getFileRow() override {
        return {folder / "", {{"Own", [this] { call("own"); }}}};
    }
    bool isPickWanted() override { return isPickThere; }
    bool isEqualizeWanted() override { return isEqualizeThere; }
    void onDropdownShown(wxWindow* window) override { call(window->IsShown() ? "shown" : "shown?"); }
    void onDropdownHidden(wxWindow* window) override { call(window->IsShown() ? "hidden?" : "hidden"); }
    void call(const wxString& what) {
        log.push_back(what.ToStdString());
        onCall();
    }
    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    SharedPtr<ICurvePanelCallbacks> panel = std::make_shared<Panel>(*this);
    Path folder;
    bool isPickThere = true;
    bool isEqualizeThere = true;
    std::function<void()> onCall = [] {};
    std::vector<std::string> log;
};

class CurveDialogTest : public WidgetTest {
protected:
    void make() {
        dialog = new CurveDialog(&frame(), GuiSkin(), "Curves", curves, host);
        dialog->Raise();
        EXPECT_TRUE(pumpUntil([this] { return dialog->IsActive(); })) << "the dialog did not come up";
        settle();
        host->log.clear();
    }
    void TearDown() override {
        delete dialog.get();
        WidgetTest::TearDown();
    }
    ComboBox& box(std::size_t index) { return *findChildren<ComboBox>(*dialog).at(index); }
    Button* button(const wxString& label) {
        for (Button* const found : findChildren<Button>(*dialog)) {
            if (found->GetLabel() == label) {
                return found;
            }
        }
        return nullptr;
    }
    void press(ComboBox& target, int key) {
        const Optional<int> before = target.getSelectedIndex();
        target.SetFocus();
        EXPECT_TRUE(pumpUntil([&] { return target.HasFocus(); }));
        pressKey(key);
        EXPECT_TRUE(pumpUntil([&] { return target.getSelectedIndex() != before; })) << "no key arrived";
    }
    void clickOn(const wxString& label) { click(*button(label), middle(*button(label))); }
    void chooseReset(int key) {
        auto& reset = static_cast<DropdownButton&>(*button("Reset"));
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
    /// Of the histogram's ground in the middle of the plot's left half, above all curves.
    PixelColour colourInPlot() {
        const CurvePanel& panel = *dialog->getPanel();
        const wxSize size = panel.GetClientSize();
        const auto paint = [&](wxDC& dc) { panel.paint(dc); };
        return pixelAt(paintOffScreen(size, paint), size.x * 3 / 16, size.y / 16);
    }

    const std::shared_ptr<Host> host = std::make_shared<Host>();
    ColorCurve curves;
    wxWeakRef<CurveDialog> dialog;
};

using CurveDialogControls = CurveDialogTest;
using CurveDialogWindow = CurveDialogTest;
using CurveDialogHost = CurveDialogTest;

TEST_F(CurveDialogControls, EditTheSelectedChannel) {
    curves[MASTER].setInterpolation(CurveInterpolation::LINEAR);
    make();
    EXPECT_EQ(box(1).getSelectedIndex(), 1) << "of the Master curve";
    press(box(0), WXK_DOWN);
    EXPECT_EQ(dialog->getPanel()->getSelectedCurveChannel(), RED);
    EXPECT_EQ(box(1).getSelectedIndex(), 0);
    EXPECT_THAT(host->takeLog(), ElementsAre("histogram 1 1"));
    press(box(1), WXK_DOWN);
    EXPECT_EQ(curve(RED).getInterpolation(), CurveInterpolation::LINEAR);
    EXPECT_EQ(curve(GREEN).getInterpolation(), CurveInterpolation::CUBIC_SPLINE);
    EXPECT_THAT(host->takeLog(), ElementsAre("changed 1 straight"));
    chooseReset(WXK_HOME);
    EXPECT_EQ(curve(RED), Curve());
    EXPECT_EQ(box(1).getSelectedIndex(), 0);
    EXPECT_THAT(host->takeLog(), ElementsAre("changed 1 straight"));
    chooseReset(WXK_END);
    EXPECT_EQ(dialog->getPanel()->getCurrentCurves(), ColorCurve());
    EXPECT_THAT(host->takeLog(),
                ElementsAre("changed 0 straight", "changed 1 straight", "changed 2 straight", "changed 3 straight"));
}

TEST_F(CurveDialogControls, EqualizeTheMasterCurveAndShowTheHistogramCumulative) {
    make();
    press(box(0), WXK_END);
    const PixelColour ground = colourInPlot();
    host->log.clear();
    clickOn("Equalize");
    EXPECT_THAT(host->takeLog(), ElementsAre("histogram 2 0", "changed 0 bent", "histogram 1 3"));
    EXPECT_EQ(curve(MASTER).getPoints().size(), 16u);
    EXPECT_EQ(curve(BLUE), Curve());
    EXPECT_EQ(box(2).getSelectedId(), static_cast<int>(HistogramType::CUMULATIVE));
    EXPECT_EQ(colourInPlot(), (PixelColour{100, 100, 220})) << "everything lies at the left";
    press(box(2), WXK_HOME);
    EXPECT_THAT(host->takeLog(), ElementsAre("histogram 1 3"));
    EXPECT_EQ(colourInPlot(), ground);
    dialog->enableHistogramControls(false);
    EXPECT_FALSE(box(2).IsEnabled() || button("Equalize")->IsEnabled());
    EXPECT_TRUE(box(1).IsEnabled());
}

TEST_F(CurveDialogControls, PickAndTellOfTheirLists) {
    make();
    EXPECT_FALSE(dialog->isPicking());
    clickOn("Pick");
    EXPECT_TRUE(dialog->isPicking());
    const auto controller = dialog->getController();
    controller->beginPick({3, 3});
    controller->movePick({3, -17});
    EXPECT_EQ(curve(MASTER).getPoints().size(), 3u);
    clickOn("Pick");
    EXPECT_FALSE(dialog->isPicking());
    host->log.clear();
    for (const std::size_t index : {0u, 1u, 2u}) {
        click(box(index), middle(box(index)));
        EXPECT_TRUE(pumpUntil([&] { return host->log == std::vector<std::string>{"shown"}; })) << index;
        box(index).close();
        EXPECT_TRUE(pumpUntil([&] { return host->log.size() == 2; }));
        EXPECT_THAT(host->takeLog(), ElementsAre("shown", "hidden"));
    }
}

TEST_F(CurveDialogWindow, HasWhatTheHostWantsAndGrowsWithItsPanel) {
    host->isPickThere = host->isEqualizeThere = false;
    make();
    EXPECT_EQ(button("Pick"), nullptr);
    EXPECT_EQ(button("Equalize"), nullptr);
    EXPECT_FALSE(dialog->isPicking());
    dialog->enableHistogramControls(false);
    const int plot = scaleByDpi(256);
    EXPECT_EQ(dialog->getPanel()->getPlotSize(), (Pixel{plot, plot}));
    EXPECT_FALSE(dialog->HasFlag(wxMAXIMIZE_BOX));
    dialog->SetSize(dialog->GetSize() + wxSize(70, 30));
    EXPECT_TRUE(pumpUntil([&] { return dialog->getPanel()->getPlotSize() == Pixel{plot + 70, plot + 30}; }));
    dialog->SetSize(wxSize(1, 1));
    pump();
    EXPECT_GE(dialog->getPanel()->getPlotSize().x, 0);
    dialog->Close();
    EXPECT_FALSE(dialog->IsShown());
    EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
}

TEST_F(CurveDialogHost, MayDestroyTheDialogInAnyCallback) {
    const std::function<void()> actions[] = {
        [this] { clickOn("Equalize"); },         [this] { clickOn("Own"); },
        [this] { dialog->setCurves({}); },       [this] { dialog->updateHistogram(); },
        [this] { box(0).selectIndex(1, true); }, [this] { box(1).selectIndex(1, true); },
        [this] { box(2).selectIndex(1, true); }, [this] { box(2).open(); },
        [this] { chooseReset(WXK_HOME); },
    };
    for (const auto& act : actions) {
        for (const std::size_t callsBefore : {0u, 1u}) { // at the second call, if there is one
            host->onCall = [] {};
            make();
            host->onCall = [this, callsBefore] {
                if (host->log.size() > callsBefore) {
                    delete dialog.get();
                }
            };
            act();
            pump();
            EXPECT_EQ(bool(dialog), host->log.size() <= callsBefore) << &act - actions;
            delete dialog.get();
        }
    }
    EXPECT_THROW(CurveDialog(&frame(), GuiSkin(), "", {}, nullptr), Detail::StopException);
    host->panel = nullptr;
    EXPECT_THROW(CurveDialog(&frame(), GuiSkin(), "", {}, host), Detail::StopException);
}

class CurveDialogFiles : public CurveDialogTest {
protected:
    void SetUp() override {
        CurveDialogTest::SetUp();
        const std::wstring unique = wxString::Format("ostrel curves %lu", wxGetProcessId()).ToStdWstring();
        host->folder = Path(std::filesystem::path(
            (wxFileName::DirName(wxFileName::GetTempDir()).GetLongPath() + unique).ToStdWstring()));
        std::filesystem::create_directories(host->folder.native());
        make();
    }
    void TearDown() override {
        CurveDialogTest::TearDown();
        std::filesystem::remove_all(host->folder.native());
    }
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
            steps.push_back({"the question", [&] { return Driver::hasMessage(files); },
                             [&] {
                                 beforeReplacing();
                                 input().Char(WXK_RETURN);
                             }});
        }
        const auto isTold = [] { return ModalDriver::findActive<MessageDialog>() != nullptr; };
        if (!error.isEmpty()) {
            steps.push_back({"the message", isTold, [&] {
                                 const auto& message = *ModalDriver::findActive<MessageDialog>();
                                 EXPECT_EQ(message.GetTitle(), "Nimbra Renderer Error");
                                 EXPECT_EQ(findChildren<StaticText>(message).front()->GetLabel(), error.toWide());
                                 input().Char(WXK_RETURN);
                             }});
        }
        {
            const DialogUser user(steps);
            clickOn(label);
        }
        dialog->Raise();
        EXPECT_TRUE(pumpUntil([this] { return dialog->IsActive(); })) << "after " << name.toUtf8();
    }
};

TEST_F(CurveDialogFiles, KeepPointsAndNotHowTheyAreJoined) {
    ColorCurve bent;
    bent[RED] = Curve({{0, 0.2F}, {0.4F, 0.6F}, {1, 1}}, CurveInterpolation::LINEAR);
    dialog->setCurves(bent);
    choose("Save", "Save as", "bent.acv", {});
    const auto saved = loadCurves(host->folder / "bent.acv");
    ASSERT_TRUE(saved);
    dialog->setCurves({});
    press(box(0), WXK_DOWN);
    press(box(1), WXK_DOWN); // Red is linear
    host->log.clear();
    choose("Load", "Select file", "bent.acv", {});
    EXPECT_EQ(curve(RED), Curve((*saved)[RED].getPoints(), CurveInterpolation::LINEAR));
    EXPECT_EQ(curve(BLUE), Curve());
    EXPECT_THAT(host->takeLog(),
                ElementsAre("changed 0 straight", "changed 1 bent", "changed 2 straight", "changed 3 straight"));
}

TEST_F(CurveDialogFiles, TellOfEveryFailureAlikeAndChangeNothing) {
    ColorCurve bent;
    bent[GREEN] = Curve({{0, 1}, {1, 0}});
    dialog->setCurves(bent);
    host->log.clear();
    std::ofstream((host->folder / "version.acv").native(), std::ios::binary).write("\0\1\0\0", 4);
    std::ofstream((host->folder / "cut.acv").native(), std::ios::binary).write("\0\4\0\4\0\2\0\0\0", 9);
    choose("Load", "Select file", "version.acv", "Cannot load curves from a file.");
    choose("Load", "Select file", "cut.acv", "Cannot load curves from a file.");
    choose("Save", "Save as", "cut.acv", "Cannot save curves into a file.", [this] {
        const auto file = (host->folder / "cut.acv").native(); // becomes a folder, which nobody can write to
        std::filesystem::remove(file);
        std::filesystem::create_directory(file);
    });
    EXPECT_EQ(dialog->getPanel()->getCurrentCurves(), bent);
    EXPECT_THAT(host->log, IsEmpty());
}

} // namespace
} // namespace Ostrel::Wx
