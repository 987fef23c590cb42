#include <OstrelLibWx/widgets/Skinnable.h>

#include "support/WidgetTest.h"

#include <wx/textctrl.h>

#include <cstring>

namespace Ostrel::Wx {
namespace {

TEST(Skin, DefaultIsTheDarkPaletteInItsOrder) {
    const std::uint8_t expected[24] = {200, 200, 200, 110, 110, 110, 68, 68, 68,  37, 37,  37,
                                       0,   0,   0,   39,  147, 255, 0,  73, 112, 81, 167, 241};
    const GuiSkin skin;
    EXPECT_EQ(std::memcmp(&skin, expected, sizeof expected), 0);
}

struct Link : wxPanel, ILinkColours {
    using wxPanel::wxPanel;
    void setNormalColour(const wxColour& colour) override { normal = colour; }
    void setHoverColour(const wxColour& colour) override { hover = colour; }

    wxColour normal, hover;
};

class SkinApplication : public WidgetTest {};

TEST_F(SkinApplication, ReachesEveryWindowOfTheTreeAndTheLinks) {
    auto* const inner = new wxPanel(&panel());
    auto* const link = new Link(inner);
    auto* const text = new SkinnableMixin<wxTextCtrl>(inner, wxID_ANY, "text");
    GuiSkin skin;
    skin.text = {1, 2, 3};
    skin.background = {4, 5, 6};
    skin.link = {7, 8, 9};

    text->applySkin(skin); // the same two colours, and the skin is kept
    EXPECT_EQ(text->GetBackgroundColour(), wxColour(4, 5, 6));
    EXPECT_EQ(text->getSkin(), skin);
    text->applySkin(GuiSkin());
    applySkinRecursive(&panel(), skin);
    EXPECT_EQ(text->getSkin(), GuiSkin()) << "passing over a control gives it colours, not the skin";
    for (const wxWindow* const window : std::initializer_list<wxWindow*>{&panel(), inner, link, text}) {
        EXPECT_EQ(window->GetBackgroundColour(), wxColour(4, 5, 6)) << window->GetName();
        EXPECT_EQ(window->GetForegroundColour(), wxColour(1, 2, 3)) << window->GetName();
    }
    EXPECT_TRUE(link->normal == wxColour(7, 8, 9) && link->hover == wxColour(7, 8, 9));
}

} // namespace
} // namespace Ostrel::Wx
