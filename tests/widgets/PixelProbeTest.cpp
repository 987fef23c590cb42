#include <OstrelLibWx/widgets/PixelProbe.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "support/WidgetTest.h"

#include <wx/weakref.h>

#include <limits>

namespace Ostrel::Wx {
namespace {

class PixelProbeTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        probe = new PixelProbe(
            &panel(),
            [this](const Pixel& cursor) {
                asked = cursor;
                onAsked();
                return answer;
            },
            "Not a finite number");
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
    PixelColour swatch() {
        for (wxWindow* const child : probe->GetChildren()) {
            if (auto* const bitmap = dynamic_cast<StaticBitmap*>(child)) {
                EXPECT_EQ(bitmap->getBitmap().GetSize(), scaleByDpi(wxSize(45, 27)));
                return pixelAt(bitmap->getBitmap().ConvertToImage(), 44, 26);
            }
        }
        return {};
    }

    wxWeakRef<PixelProbe> probe;
    PixelProbe::ProbedPixel answer{
        .original = {0.5F, 2.0F, 0.0F}, .tonemapped = {1.0F, 0.5F, 0.0F}, .position = {7, 9}};
    Pixel asked;
    std::function<void()> onAsked = [] {};
};

TEST_F(PixelProbeTest, FollowsTheCursorWithThePixelsValues) {
    probe->Show();
    probe->updatePosition({100, 50});
    EXPECT_EQ(probe->GetPosition(), wxPoint(120, 70));
    EXPECT_EQ(asked, (Pixel{100, 50}));
    EXPECT_TRUE(findText("Position:\n7\n9"));
    EXPECT_TRUE(findText("Original\nLinear RGB:\nR: 0.50000\nG: 2.00000"));
    EXPECT_TRUE(findText("Tonemapped\nsRGB:\nR: 1.00000"));
    EXPECT_TRUE(findText("Tonemapped\nsRGB 8-bit:\nR: 255\nG: 128\nB: 0\nA: 255"));
    EXPECT_EQ(swatch(), (PixelColour{255, 128, 0}));
    settle();
    EXPECT_EQ(getScreenRegion(getWindowNativeHandle(probe)).min, (Pixel{120, 70})) << "not only the toolkit says so";

    PixelProbe blind(&panel(), {}, "");
    blind.updatePosition({5, 6});
    EXPECT_EQ(blind.GetPosition(), wxPoint(25, 26));
}

TEST_F(PixelProbeTest, WarnsInDarkRedWhileAValueIsNotFinite) {
    probe->updatePosition({0, 0});
    StaticText* const warning = findText("Not a finite number");
    ASSERT_NE(warning, nullptr);
    EXPECT_FALSE(warning->IsShown());
    const wxSize before = probe->GetSize();
    answer.original.green = std::numeric_limits<float>::infinity();
    applySkinRecursive(&panel(), GuiSkin());
    probe->updatePosition({0, 0});
    EXPECT_EQ(warning->GetForegroundColour(), wxColour(144, 20, 20)) << "whatever skin a parent got";
    EXPECT_TRUE(warning->IsShown());
    EXPECT_GT(probe->GetSize().y, before.y) << "the window fits again";
    EXPECT_GE(probe->GetClientSize().y, warning->GetPosition().y + warning->GetSize().y);
    answer.original.green = 2.0F;
    probe->updatePosition({0, 0});
    EXPECT_FALSE(warning->IsShown());
    EXPECT_EQ(probe->GetSize(), before);
}

TEST_F(PixelProbeTest, IsLaidOutAnewOnlyWhereATextNeedsAnotherRoom) {
    probe->updatePosition({0, 0});
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

TEST_F(PixelProbeTest, MayBeDestroyedByTheProbingFunction) {
    onAsked = [this] { probe->Destroy(); };
    probe->updatePosition({0, 0});
    EXPECT_TRUE(pumpUntil([this] { return !probe; }));
}

} // namespace
} // namespace Ostrel::Wx
