#include <OstrelLibWx/widgets/RawaBorder.h>

#include "painting/BorderPainting.h"
#include "support/WidgetTest.h"

namespace Ostrel {
namespace {

constexpr RawaBorderState OVER = RawaBorderState::MOUSE_OVER;
constexpr RawaBorderState ENABLED = RawaBorderState::ENABLED;

constexpr PixelColour OUTER{54, 54, 54};
constexpr PixelColour DARK{37, 37, 37};
constexpr PixelColour BLUE{0, 114, 188};
constexpr PixelColour WHITE{255, 255, 255};

TEST(BorderPicture, InnerFrameIsBlueOnlyUnderTheMouseOfAnEnabledControl) {
    const auto pictureOf = [](Bucket rectangle, Flags<RawaBorderState> state) {
        return paintOffScreen(wxSize(20, 12), [&](wxDC& dc) { paintBorder(dc, rectangle, state); });
    };
    for (const auto& [state, inner] :
         {std::pair<Flags<RawaBorderState>, PixelColour>{OVER, DARK}, {ENABLED, DARK}, {OVER | ENABLED, BLUE}}) {
        SCOPED_TRACE(state.value());
        const std::pair<wxPoint, PixelColour> framed[] = {
            {{0, 0}, OUTER},          {{19, 10}, OUTER},        {{1, 1}, inner},         {{18, 10}, inner},
            {{2, 2}, WHITE},          {{17, 9}, WHITE},         {{0, 11}, {70, 70, 70}}, {{1, 11}, {85, 85, 85}},
            {{18, 11}, {85, 85, 85}}, {{19, 11}, {70, 70, 70}},
        };
        for (const auto& [at, colour] : framed) {
            EXPECT_EQ(pixelAt(pictureOf({{0, 0}, {20, 12}}, state), at.x, at.y), colour) << at.x << ", " << at.y;
        }
        const wxImage flat = pictureOf({{0, 0}, {20, 12}}, state | RawaBorderState::FLAT);
        EXPECT_EQ(pixelAt(flat, 0, 0), inner);
        EXPECT_EQ(pixelAt(flat, 19, 11), inner) << "no shade";
        EXPECT_EQ(pixelAt(flat, 1, 1), WHITE) << "one rectangle only";
    }
    // Away from the origin the shade goes from (4, 9) to (8, 5), not along the bottom row.
    const wxImage away = pictureOf({{4, 4}, {12, 10}}, ENABLED);
    EXPECT_EQ(pixelAt(away, 11, 9), OUTER);
    EXPECT_FALSE(pixelAt(away, 6, 7) == WHITE);
}

class Border : public WidgetTest {};

TEST_F(Border, FollowsThePointerOnTheScreen) {
    auto* const border = new RawaBorder(ENABLED, &panel(), wxID_ANY, "border");
    border->SetBackgroundColour(wxColour(68, 68, 68));
    border->SetSize(20, 20, 60, 40);
    showAll();
    const auto shows = [&](int x, int y, PixelColour colour) {
        return pumpUntil([&] { return pixelAt(capture(*border), x, y) == colour; });
    };
    EXPECT_TRUE(shows(1, 1, DARK));
    EXPECT_TRUE(shows(30, 20, {68, 68, 68})) << "it paints its background itself";
    movePointer(*border, middle(*border));
    EXPECT_TRUE(shows(1, 1, BLUE));
    EXPECT_TRUE(border->Enable(false));
    EXPECT_TRUE(shows(1, 1, DARK)) << "disabled under the mouse";
    movePointer(panel(), wxPoint(300, 300));
    settle();
    EXPECT_TRUE(border->Enable(true));
    EXPECT_TRUE(shows(1, 1, DARK)) << "enabled again while the mouse is elsewhere";
    EXPECT_EQ(border->getBorderState(), ENABLED);
}

} // namespace
} // namespace Ostrel
