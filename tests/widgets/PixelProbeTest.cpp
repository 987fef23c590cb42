#include <OstrelLibWx/widgets/PixelProbe.h>

#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "support/WidgetTest.h"

#include <limits>

namespace Ostrel::Wx {
namespace {

class PixelProbeTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        probe = new PixelProbe(
            &panel(), [this](const Pixel&) { return onAsked(), answer; }, "Not a finite number");
        probe->updatePosition({0, 0});
    }

    /// The label that begins so; null if there is none.
    StaticText* findText(const wxString& beginning) {
        for (wxWindow* const child : probe->GetChildren()) {
            auto* const text = dynamic_cast<StaticText*>(child);
            if (text != nullptr && text->GetLabel().StartsWith(beginning)) {
                return text;
            }
        }
        return nullptr;
    }

    wxWeakRef<PixelProbe> probe;
    PixelProbe::ProbedPixel answer{
        .original = {0.5F, 2.0F, 0.0F}, .tonemapped = {1.0F, 0.5F, 0.0F}, .position = {7, 9}};
    std::function<void()> onAsked = [] {};
};

TEST_F(PixelProbeTest, FollowsTheCursorWithThePixelsValues) {
    probe->Show();
    probe->updatePosition({100, 50});
    EXPECT_EQ(probe->GetPosition(), wxPoint(120, 70));
    EXPECT_TRUE(findText("Position:\n7\n9"));
    EXPECT_TRUE(findText("Original\nLinear RGB:\nR: 0.50000\nG: 2.00000"));
    EXPECT_TRUE(findText("Tonemapped\nsRGB:\nR: 1.00000"));
    EXPECT_TRUE(findText("Tonemapped\nsRGB 8-bit:\nR: 255\nG: 128\nB: 0\nA: 255"));
    showAll();
    EXPECT_EQ(pixelAt(capture(*probe), scaleByDpi(7) + 2, scaleByDpi(10) + 2), (PixelColour{255, 128, 0}));
    EXPECT_EQ(getScreenRegion(getWindowNativeHandle(probe)).min, (Pixel{120, 70})) << "not only the toolkit says so";
    PixelProbe blind(&panel(), {}, "");
    blind.updatePosition({5, 6});
    EXPECT_EQ(blind.GetPosition(), wxPoint(25, 26));
    blind.updatePosition({-21, -21});
    EXPECT_EQ(blind.GetPosition(), wxPoint(-1, -1)) << "no position, to the toolkit";
    PixelProbe* shortLived = new PixelProbe(
        &panel(), [&shortLived](const Pixel&) { return delete shortLived, PixelProbe::ProbedPixel(); }, "");
    shortLived->updatePosition({0, 0});
    onAsked = [this] { probe->Destroy(); };
    probe->updatePosition({0, 0});
    EXPECT_TRUE(pumpUntil([this] { return !probe; }));
}

TEST_F(PixelProbeTest, WarnsInDarkRedWhileAValueIsNotFinite) {
    StaticText* const warning = findText("Not a finite number");
    ASSERT_TRUE(warning != nullptr && !warning->IsShown());
    const wxSize before = probe->GetSize();
    answer.original.green = std::numeric_limits<float>::infinity();
    applySkinRecursive(&panel(), GuiSkin());
    probe->updatePosition({0, 0});
    EXPECT_EQ(warning->GetForegroundColour(), wxColour(144, 20, 20)) << "whatever skin a parent got";
    EXPECT_TRUE(warning->IsShown());
    EXPECT_GE(probe->GetClientSize().y, warning->GetPosition().y + warning->GetSize().y) << "the window fits";
    answer.original.green = 2.0F;
    probe->updatePosition({0, 0});
    EXPECT_FALSE(warning->IsShown());
    EXPECT_EQ(probe->GetSize(), before);
}

TEST_F(PixelProbeTest, IsLaidOutAnewOnlyWhereATextNeedsAnotherRoom) {
    StaticText* const bytes = findText("Tonemapped\nsRGB 8-bit:");
    bytes->Move(300, 1); // as no layout would
    answer.original.red = 0.25F;
    probe->updatePosition({1, 0});
    EXPECT_EQ(bytes->GetPosition(), wxPoint(300, 1));
    answer.original.red = 1e20F;
    probe->updatePosition({2, 0});
    EXPECT_NE(bytes->GetPosition(), wxPoint(300, 1));
    EXPECT_GE(probe->GetClientSize().x, bytes->GetPosition().x + bytes->GetSize().x);
}

} // namespace
} // namespace Ostrel::Wx
