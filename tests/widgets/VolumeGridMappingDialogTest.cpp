#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/CurvePanel.h>
#include <OstrelLibWx/widgets/CustomGradient.h>
#include <OstrelLibWx/widgets/GradientControl.h>
#include <OstrelLibWx/widgets/Spinner.h>

#include "widgets/DialogTest.h"

#include <wx/stopwatch.h>

#include <cmath>

namespace Ostrel::Wx {
namespace {

class Host : public VolumeGridMappingDialogCallbacks {
public:
    explicit Host(HostLog& hostLog)
        : log(hostLog) {}
    void onMappingChanged(const VolumeGridMapping& told) override {
        mapping = told;
        log.call("changed");
    }
    float computeAutoScale() override { return log.call("scale"), automatic; }
    void onDialogClosed(wxPoint told) override {
        position = told;
        log.call("closed");
    }
    Rgb mapValueToColor(float t, float scale) override { return ++colorCount, Rgb{t, scale, 0}; }

    HostLog& log;
    VolumeGridMapping mapping; ///< told last
    float automatic = 1;
    wxPoint position;
    int colorCount = 0;
};

VolumeGridMapping makeMapping(float scale, float end) {
    const ColorGradient gradient({{{0, 1, 1}, 0}, {{120, 1, 1}, 0.5F}, {{240, 1, 1}, 1}});
    return {gradient, Curve({{0, 0}, {1, end}}, CurveInterpolation::LINEAR), scale};
}

class MappingDialogTest : public DialogTest<VolumeGridMappingDialog> {
protected:
    VolumeGridMappingDialog* create() override {
        return new VolumeGridMappingDialog(&frame(), "Mapping", current, initial, host, wxPoint(150, 130));
    }
    void typeScale(const char* text) {
        find<Spinner>()->SetFocus();
        settle();
        input().Text(text);
        pressKey(WXK_RETURN);
    }
    /// Typed, after a Tab from the box above, and not confirmed.
    void beginScale(const char* text) {
        pressIn(*find<ComboBox>(), WXK_TAB);
        EXPECT_TRUE(pumpUntil([this] { return find<Spinner>()->IsDescendant(wxWindow::FindFocus()); }));
        input().Text(text);
        settle();
    }
    /// A press on the straight curve and some steps downwards; the button stays down.
    void dragCurve() {
        const wxPoint start = middle(*find<CurvePanel>());
        pressOn(*find<CurvePanel>(), start);
        for (const int i : {1, 2, 3}) {
            movePointer(*find<CurvePanel>(), start + wxPoint(0, scaleByDpi(20)) * i);
        }
    }
    Curve curve() { return find<CurvePanel>()->getCurrentCurves()[CurveChannel::MASTER]; }

    const std::shared_ptr<Host> host = std::make_shared<Host>(log);
    const VolumeGridMapping current = makeMapping(2.25F, 1), initial = makeMapping(0.5F, 0.5F);
};

TEST_F(MappingDialogTest, ControlsChangeTheirPartAndTellIt) {
    make();
    EXPECT_EQ(find<ComboBox>()->getSelectedIndex(), 1);
    EXPECT_EQ(find<Spinner>()->getValue(), 2.25F);
    VolumeGridMapping expected = current;
    const auto isTold = [&](const char* what) {
        EXPECT_TRUE(pumpUntil([&] { return host->mapping == expected; })) << what;
        EXPECT_EQ(dialog->getCurrentMapping(), expected) << what;
        EXPECT_TRUE(log.take().ends_with("changed; ")) << what;
    };
    pressIn(*find<ComboBox>(), WXK_UP);
    expected.curve.setInterpolation(CurveInterpolation::CUBIC_SPLINE);
    isTold("interpolation");
    EXPECT_EQ(curve(), expected.curve);
    for (const float scale : {0.0F, std::nanf(""), -1.0F}) {
        VolumeGridMapping mapping = expected;
        mapping.inputScale = scale;
        dialog->setCurrentMapping(mapping);
        EXPECT_EQ(dialog->getCurrentMapping().inputScale, 0.000001F);
    }
    EXPECT_EQ(log.take(), "");
    const std::pair<const char*, float> typed[] = {{"7.5", 7.5F}, {"0", 0.000001F}};
    for (const auto& [text, scale] : typed) {
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
        const char* const calls = std::isnan(value) ? "scale; " : "scale; changed; ";
        EXPECT_TRUE(pumpUntil([&] { return log.text == calls; })) << value << ": " << log.text;
        log.take();
        EXPECT_EQ(host->mapping, expected) << value;
        EXPECT_NEAR(find<Spinner>()->getValue(), scale, 0.0005);
    }
    const wxSize size = find<GradientControl>()->GetClientSize();
    click(*find<GradientControl>(), wxPoint(size.x / 2, size.y - scaleByDpi(6)), wxMOUSE_BTN_RIGHT);
    expected.gradient.erase(1);
    isTold("gradient");
    clickOn("Reset");
    expected = initial;
    isTold("reset");
    EXPECT_EQ(find<GradientControl>()->getGradient(), initial.gradient);
    EXPECT_EQ(find<ComboBox>()->getSelectedIndex(), 1);
    EXPECT_EQ(find<Spinner>()->getValue(), 0.5F);
    EXPECT_EQ(curve(), initial.curve);
}

TEST_F(MappingDialogTest, TellsOfADraggedCurveOncePerPause) {
    make();
    log.count = 0;
    const wxStopWatch watch;
    dragCurve();
    EXPECT_TRUE(pumpUntil([this] { return log.count > 0; }));
    EXPECT_LE(log.count, static_cast<std::size_t>(watch.Time() / 190)) << "sooner than the pause";
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return host->mapping.curve == curve(); }));
    EXPECT_EQ(curve().getPoints().size(), 3u);
}

TEST_F(MappingDialogTest, KeepsOrTakesBackWhenItCloses) {
    const std::pair<std::function<void()>, bool> cases[] = {{[this] { clickOn("OK"); }, true},
                                                            {[this] { clickOn("Cancel"); }, false},
                                                            {[this] { dialog->Close(); }, false}};
    for (const auto& [end, isKept] : cases) {
        make();
        const wxPoint position = dialog->GetPosition();
        int result = 0;
        log.onCall = [&] { result = dialog->getResult(); };
        beginScale("7.5");
        dragCurve();
        releaseButton();
        VolumeGridMapping edited = current;
        edited.curve = curve();
        edited.inputScale = 7.5F;
        end(); // before the pause, unless the machine is slow: then the curve has been told already
        EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
        EXPECT_TRUE(log.take().ends_with("changed; closed; ")) << "what was typed or held back is told too late";
        EXPECT_EQ(host->mapping, isKept ? edited : current);
        EXPECT_EQ(result, isKept ? wxOK : wxCANCEL);
        EXPECT_EQ(host->position, position);
        log.onCall = [] {};
    }
    make();
    beginScale("7");
    log.take();
    delete dialog.get();
    EXPECT_EQ(log.take(), "");
}

TEST_F(MappingDialogTest, PreviewShowsTheHostsColorsAfterEachChange) {
    make();
    const CustomGradient& preview = *find<CustomGradient>();
    const wxSize size = preview.GetClientSize();
    const int margin = scaleByDpi(6), width = size.x - 2 * margin;
    const auto look = [&](int x) { return pixelAt(pictureOf(preview), x, size.y - 1); };
    host->colorCount = 0;
    EXPECT_EQ(look(margin), (PixelColour{0, 255, 0}));
    const double last = 255.0 * (width - 1 - margin) / (width - 1);
    EXPECT_NEAR(look(margin + width - 1).red, last, 0.51);
    EXPECT_EQ(look(margin + width), (PixelColour{68, 68, 68}));
    EXPECT_EQ(host->colorCount, 0) << "nothing has changed";
    host->automatic = 0.2F;
    clickOn("Auto-scale");
    EXPECT_EQ(look(margin), (PixelColour{0, 51, 0}));
    EXPECT_EQ(host->colorCount, width);
}

TEST_F(MappingDialogTest, MayBeDestroyedInAnyCallback) {
    const auto drag = [this] {
        dragCurve();
        pumpUntil([this] { return log.count > 0; });
        releaseButton();
    };
    checkDestruction({[this] { clickOn("Auto-scale"); }, [this] { clickOn("Reset"); }, [this] { clickOn("OK"); },
                      [this] { clickOn("Cancel"); }, [this] { dialog->Close(); }, [this] { typeScale("3"); },
                      [this] { find<ComboBox>()->selectIndex(0, true); }, drag});
}

} // namespace
} // namespace Ostrel::Wx
