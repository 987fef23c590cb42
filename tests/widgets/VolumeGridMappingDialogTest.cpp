#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/CurvePanel.h>
#include <OstrelLibWx/widgets/CustomGradient.h>
#include <OstrelLibWx/widgets/GradientControl.h>
#include <OstrelLibWx/widgets/Spinner.h>

#include "support/WidgetTest.h"

#include <wx/stopwatch.h>
#include <wx/weakref.h>

#include <cmath>

namespace Ostrel::Wx {
namespace {

class Host : public VolumeGridMappingDialogCallbacks {
public:
    void onMappingChanged(const VolumeGridMapping& told) override {
        mapping = told;
        call("changed");
    }
    float computeAutoScale() override { return call("scale"), automatic; }
    void onDialogClosed(wxPoint told) override {
        position = told;
        call("closed");
    }
    Rgb mapValueToColor(float t, float scale) override { return ++colorCount, Rgb{t, scale, 0}; }
    void call(const char* what) {
        log.push_back(what);
        onCall();
    }
    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    VolumeGridMapping mapping; ///< told last
    float automatic = 1;
    wxPoint position;
    int colorCount = 0;
    std::function<void()> onCall = [] {};
    std::vector<std::string> log;
};

class MappingDialogTest : public WidgetTest {
protected:
    static VolumeGridMapping makeMapping(float scale, float end) {
        const ColorGradient gradient({{{0, 1, 1}, 0}, {{120, 1, 1}, 0.5F}, {{240, 1, 1}, 1}});
        return {gradient, Curve({{0, 0}, {1, end}}, CurveInterpolation::LINEAR), scale};
    }
    void make() {
        dialog = new VolumeGridMappingDialog(&frame(), "Mapping", current, initial, host, wxPoint(150, 130));
        dialog->Raise();
        EXPECT_TRUE(pumpUntil([this] { return dialog->IsActive(); })) << "the dialog did not come up";
        settle();
        host->log.clear();
    }
    void TearDown() override {
        delete dialog.get();
        WidgetTest::TearDown();
    }
    template <class Control>
    Control& find(const wxString& label = {}) {
        for (wxWindow* const child : dialog->GetChildren()) {
            auto* const control = dynamic_cast<Control*>(child);
            if (control != nullptr && (label.empty() || control->GetLabel() == label)) {
                return *control;
            }
        }
        throw std::runtime_error("no such control");
    }
    void clickOn(const wxString& label) { click(find<Button>(label), middle(find<Button>(label))); }
    void typeScale(const char* text) {
        find<Spinner>().SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return wxWindow::FindFocus() != &find<Spinner>(); }));
        settle();
        input().Text(text);
        pressKey(WXK_RETURN);
    }
    /// A press on the straight curve and some steps downwards; the button stays down.
    void dragCurve() {
        const wxPoint start = middle(panel()), step(0, scaleByDpi(20));
        movePointer(panel(), start);
        pressButton();
        for (const int i : {1, 2, 3}) {
            movePointer(panel(), start + step * i);
        }
    }
    CurvePanel& panel() { return find<CurvePanel>(); }
    std::size_t pointCount() { return panel().getCurrentCurves()[CurveChannel::MASTER].getPoints().size(); }

    const std::shared_ptr<Host> host = std::make_shared<Host>();
    const VolumeGridMapping current = makeMapping(2.25F, 1), initial = makeMapping(0.5F, 0.5F);
    wxWeakRef<VolumeGridMappingDialog> dialog;
};

TEST_F(MappingDialogTest, ControlsChangeTheirPartAndTellIt) {
    make();
    EXPECT_EQ(find<ComboBox>().getSelectedIndex(), 1);
    EXPECT_EQ(find<Spinner>().getValue(), 2.25F);
    VolumeGridMapping expected = current;
    const auto isTold = [&](const char* what) {
        EXPECT_TRUE(pumpUntil([&] { return host->mapping == expected; })) << what;
        EXPECT_EQ(dialog->getCurrentMapping(), expected) << what;
        EXPECT_EQ(host->takeLog().back(), "changed") << what;
    };

    find<ComboBox>().SetFocus();
    pumpUntil([this] { return find<ComboBox>().HasFocus(); });
    pressKey(WXK_UP);
    expected.curve.setInterpolation(CurveInterpolation::CUBIC_SPLINE);
    isTold("interpolation");
    EXPECT_EQ(panel().getCurrentCurves()[CurveChannel::MASTER], expected.curve);

    const std::pair<const char*, float> scales[] = {{"7.5", 7.5F}, {"0", 0.000001F}, {"-3", 0.000001F}};
    for (const auto& [text, scale] : scales) {
        typeScale(text);
        expected.inputScale = scale;
        isTold(text);
    }
    const std::pair<float, float> computed[] = {
        {0.1234567F, 0.1234567F}, {std::nanf(""), 0.1234567F}, {-1, 0.000001F}, {0.25F, 0.25F}};
    for (const auto& [value, scale] : computed) {
        host->automatic = value;
        clickOn("Auto-scale");
        expected.inputScale = scale;
        EXPECT_EQ(host->takeLog().size(), std::isnan(value) ? 1u : 2u);
        EXPECT_EQ(host->mapping, expected) << value;
        EXPECT_NEAR(find<Spinner>().getValue(), scale, 0.0005);
    }

    const wxSize size = find<GradientControl>().GetClientSize();
    click(find<GradientControl>(), wxPoint(size.x / 2, size.y - scaleByDpi(6)), wxMOUSE_BTN_RIGHT);
    expected.gradient.erase(1);
    isTold("gradient");

    clickOn("Reset");
    expected = initial;
    isTold("reset");
    EXPECT_EQ(find<GradientControl>().getGradient(), initial.gradient);
    EXPECT_EQ(find<ComboBox>().getSelectedIndex(), 1);
    EXPECT_EQ(find<Spinner>().getValue(), 0.5F);
    EXPECT_EQ(panel().getCurrentCurves()[CurveChannel::MASTER], initial.curve);
}

TEST_F(MappingDialogTest, TellsOfADraggedCurveOncePerPause) {
    make();
    const wxStopWatch watch;
    dragCurve();
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_LE(host->log.size(), static_cast<std::size_t>(watch.Time() / 190)) << "sooner than the pause";
    releaseButton();
    pump();
    EXPECT_EQ(host->mapping.curve, panel().getCurrentCurves()[CurveChannel::MASTER]);
    EXPECT_EQ(pointCount(), 3u);
}

TEST_F(MappingDialogTest, KeepsOrTakesBackWhenItCloses) {
    const struct {
        std::function<void()> end;
        bool isKept;
    } cases[] = {{[this] { clickOn("OK"); }, true},
                 {[this] { clickOn("Cancel"); }, false},
                 {[this] { dialog->Close(); }, false}};
    for (const auto& [end, isKept] : cases) {
        make();
        const wxPoint position = dialog->GetPosition();
        int result = 0;
        host->onCall = [&] { result = dialog->getResult(); };
        dragCurve();
        releaseButton();
        const Curve edited = panel().getCurrentCurves()[CurveChannel::MASTER];
        end(); // before the pause, unless the machine is slow: then the change has been told already
        const auto log = host->takeLog();
        ASSERT_GE(log.size(), 2u);
        EXPECT_EQ(log[log.size() - 2] + ", " + log.back(), "changed, closed");
        EXPECT_EQ(host->mapping.curve, isKept ? edited : current.curve);
        EXPECT_EQ(host->mapping.gradient, current.gradient);
        EXPECT_EQ(result, isKept ? wxOK : wxCANCEL);
        EXPECT_EQ(host->position, position);
        EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
        host->onCall = [] {};
    }
}

TEST_F(MappingDialogTest, PreviewShowsTheHostsColorsAfterEachChange) {
    make();
    CustomGradient& preview = find<CustomGradient>();
    const int margin = scaleByDpi(6), width = preview.GetClientSize().x - 2 * margin;
    const auto look = [&] { return paintOffScreen(preview.GetClientSize(), [&](wxDC& dc) { preview.paint(dc); }); };
    const wxImage before = look();
    EXPECT_EQ(pixelAt(before, margin - 1, 0), (PixelColour{68, 68, 68}));
    EXPECT_EQ(pixelAt(before, margin, 0), (PixelColour{0, 255, 0}));
    const int last = static_cast<int>(
        std::nearbyint(255.0F * (static_cast<float>(width - 1 - margin) / static_cast<float>(width - 1))));
    EXPECT_EQ(pixelAt(before, margin + width - 1, before.GetHeight() - 1), (PixelColour{last, 255, 0}));
    EXPECT_EQ(pixelAt(before, margin + width, 0), (PixelColour{68, 68, 68}));
    host->colorCount = 0;
    look();
    EXPECT_EQ(host->colorCount, 0) << "nothing has changed";
    host->automatic = 0.2F;
    clickOn("Auto-scale");
    EXPECT_EQ(pixelAt(look(), margin, 0), (PixelColour{0, 51, 0}));
    EXPECT_EQ(host->colorCount, width);
    dialog->SetClientSize(scaleByDpi(wxSize(1, 1)));
    pump();
    EXPECT_TRUE(dialog);
}

TEST_F(MappingDialogTest, HostMayDestroyItInAnyCallback) {
    const std::function<void()> actions[] = {
        [this] { clickOn("Auto-scale"); },
        [this] { clickOn("Reset"); },
        [this] { clickOn("OK"); },
        [this] { clickOn("Cancel"); },
        [this] { dialog->Close(); },
        [this] { typeScale("3"); },
        [this] { find<ComboBox>().selectIndex(0, true); },
        [this] {
            dragCurve();
            pumpUntil([this] { return !host->log.empty(); });
            releaseButton();
        },
    };
    for (const auto& act : actions) {
        for (const std::size_t callsBefore : {0u, 1u}) {
            host->onCall = [] {};
            make();
            host->onCall = [this, callsBefore] {
                if (host->log.size() > callsBefore) {
                    delete dialog.get();
                }
            };
            act();
            pump();
            EXPECT_TRUE(!dialog || host->log.size() <= callsBefore) << &act - actions;
            delete dialog.get();
        }
    }
    EXPECT_THROW(VolumeGridMappingDialog(nullptr, "", {}, {}, nullptr, wxDefaultPosition), Detail::StopException);
}

} // namespace
} // namespace Ostrel::Wx
