#include <OstrelLibWx/widgets/RawaBorder.h>

#include "painting/BorderPainting.h"
#include "support/WidgetTest.h"

namespace Ostrel {
namespace {

constexpr RawaBorderState OVER = RawaBorderState::MOUSE_OVER;
constexpr RawaBorderState ENABLED = RawaBorderState::ENABLED;
constexpr RawaBorderState FLAT = RawaBorderState::FLAT;

constexpr PixelColour OUTER{54, 54, 54};
constexpr PixelColour DARK{37, 37, 37};
constexpr PixelColour BLUE{0, 114, 188};
constexpr PixelColour SHADE{70, 70, 70};
constexpr PixelColour SHADE_INSIDE{85, 85, 85};
constexpr PixelColour WHITE{255, 255, 255};

wxImage pictureOf(Bucket rectangle, Flags<RawaBorderState> state) {
    return paintOffScreen(wxSize(20, 12), [&](wxDC& dc) { paintBorder(dc, rectangle, state); });
}

TEST(BorderPicture, InnerFrameIsBlueOnlyUnderTheMouseOfAnEnabledControl) {
    struct Case {
        Flags<RawaBorderState> state;
        PixelColour inner;
    };
    for (const auto& [state, inner] :
         {Case{{}, DARK}, Case{OVER, DARK}, Case{ENABLED, DARK}, Case{OVER | ENABLED, BLUE}}) {
        SCOPED_TRACE(state.value());
        const wxImage framed = pictureOf({{0, 0}, {20, 12}}, state);
        EXPECT_EQ(pixelAt(framed, 0, 0), OUTER);
        EXPECT_EQ(pixelAt(framed, 19, 10), OUTER);
        EXPECT_EQ(pixelAt(framed, 1, 1), inner);
        EXPECT_EQ(pixelAt(framed, 18, 1), inner);
        EXPECT_EQ(pixelAt(framed, 18, 10), inner) << "the shade takes the bottom row alone";
        EXPECT_EQ(pixelAt(framed, 2, 2), WHITE) << "nothing is filled";
        EXPECT_EQ(pixelAt(framed, 17, 9), WHITE);
        EXPECT_EQ(pixelAt(framed, 0, 11), SHADE);
        EXPECT_EQ(pixelAt(framed, 1, 11), SHADE_INSIDE);
        EXPECT_EQ(pixelAt(framed, 18, 11), SHADE_INSIDE);
        EXPECT_EQ(pixelAt(framed, 19, 11), SHADE);

        const wxImage flat = pictureOf({{0, 0}, {20, 12}}, state | FLAT);
        EXPECT_EQ(pixelAt(flat, 0, 0), inner);
        EXPECT_EQ(pixelAt(flat, 19, 11), inner) << "no shade";
        EXPECT_EQ(pixelAt(flat, 1, 1), WHITE) << "one rectangle only";
    }
}

TEST(BorderPicture, ShadeAwayFromTheOriginKeepsItsMixedEndPoint) {
    // The line goes from (4, 9) to (8, 5), not along the bottom row.
    const wxImage picture = pictureOf({{4, 4}, {12, 10}}, ENABLED);
    EXPECT_EQ(pixelAt(picture, 11, 9), OUTER);
    EXPECT_EQ(pixelAt(picture, 8, 9), OUTER);
    EXPECT_FALSE(pixelAt(picture, 6, 7) == WHITE);
}

TEST(BorderPicture, TinyRectanglesStayInsideThemselves) {
    for (const int side : {0, 1, 2, 3}) {
        const wxImage picture = pictureOf({{0, 0}, {side, side}}, ENABLED);
        EXPECT_EQ(pixelAt(picture, side + 1, side + 1), WHITE) << side;
        EXPECT_EQ(pixelAt(picture, side + 1, 0), WHITE) << side;
    }
}

class Border : public WidgetTest {
protected:
    RawaBorder& make(Flags<RawaBorderState> state) {
        auto* const border = new RawaBorder(state, &panel(), wxID_ANY, "border");
        border->SetBackgroundColour(wxColour(68, 68, 68));
        border->SetSize(20, 20, 60, 40);
        showAll();
        return *border;
    }

    /// What the screen shows at (1, 1) once it is this colour.
    bool showsInner(RawaBorder& border, PixelColour colour) {
        return pumpUntil([&] { return pixelAt(capture(border), 1, 1) == colour; });
    }
};

TEST_F(Border, FollowsThePointerOnTheScreen) {
    RawaBorder& border = make(ENABLED);
    EXPECT_EQ(border.GetName(), "border");
    EXPECT_TRUE(showsInner(border, DARK));
    EXPECT_EQ(pixelAt(capture(border), 30, 20), (PixelColour{68, 68, 68})) << "it paints its background itself";
    EXPECT_EQ(pixelAt(capture(border), 30, 39), SHADE_INSIDE);

    movePointer(border, middle(border));
    EXPECT_TRUE(showsInner(border, BLUE));
    border.Enable(false);
    EXPECT_TRUE(showsInner(border, DARK)) << "disabled under the mouse";

    movePointer(panel(), wxPoint(300, 300));
    settle();
    border.Enable(true);
    EXPECT_TRUE(showsInner(border, DARK)) << "enabled again while the mouse is elsewhere";
    EXPECT_FALSE(border.getBorderState().has(OVER));
}

TEST_F(Border, EnableAnswersWhetherTheWindowChanged) {
    RawaBorder& border = make(ENABLED | FLAT);
    EXPECT_FALSE(border.Enable(true));
    EXPECT_TRUE(border.Enable(false));
    EXPECT_EQ(border.getBorderState(), Flags<RawaBorderState>(FLAT));
    EXPECT_FALSE(border.IsEnabled());
    EXPECT_TRUE(border.Enable(true));
    EXPECT_EQ(border.getBorderState(), ENABLED | FLAT);
}

} // namespace
} // namespace Ostrel
