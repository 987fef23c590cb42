#include <OstrelLibWx/widgets/StaticLine.h>

#include <OstrelLib/Exceptions.h>

#include "painting/LinePainting.h"
#include "support/WidgetTest.h"

#include <cmath>

namespace Ostrel::Wx {
namespace {

constexpr PixelColour WHITE{255, 255, 255};

TEST(StaticLinePicture, IsBrightenedAndCutWhenItIsNotFull) {
    struct Case {
        float lengthScale;
        int length; ///< of 201 pixels
        PixelColour first, second;
    };
    const std::array<wxColour, 2> colours{wxColour(100, 200, 40), wxColour(37, 37, 37)};
    for (const Case& c : {Case{1.0f, 201, {100, 200, 40}, {37, 37, 37}}, Case{0.5f, 100, {200, 255, 80}, {74, 74, 74}},
                          Case{0.004f, 0, WHITE, WHITE}}) {
        for (const wxOrientation orientation : {wxHORIZONTAL, wxVERTICAL}) {
            SCOPED_TRACE(testing::Message() << "scale " << c.lengthScale << ", orientation " << orientation);
            const bool horizontal = orientation == wxHORIZONTAL;
            const wxImage picture = paintOffScreen(wxSize(210, 210), [&](wxDC& dc) {
                paintStaticLine(dc, horizontal ? wxSize(201, 4) : wxSize(4, 201), orientation, colours, c.lengthScale);
            });
            const auto at = [&](int along, int across) {
                return horizontal ? pixelAt(picture, along, across) : pixelAt(picture, across, along);
            };
            EXPECT_EQ(at(0, 0), c.first);
            EXPECT_EQ(at(std::max(c.length - 1, 0), 1), c.second);
            EXPECT_EQ(at(c.length, 0), WHITE);
            EXPECT_EQ(at(0, 2), WHITE) << "no thicker than its colours";
        }
    }
}

class StaticLineWindow : public WidgetTest {};

TEST_F(StaticLineWindow, IsAsThickAsItHasColoursAndShowsItsLengthAtOnce) {
    const Array<RgbBytes> colours{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    EXPECT_EQ((new StaticLine(&panel(), wxVERTICAL, colours, 1.0f))->GetMinSize(), wxSize(3, -1));
    EXPECT_THROW(StaticLine(&panel(), wxBOTH, colours, 1.0f), Detail::StopException);
    EXPECT_EQ(panel().GetChildren().size(), 1u) << "nothing is left of the wrong one";

    auto* const line = new StaticLine(&panel(), wxHORIZONTAL);
    EXPECT_EQ(line->GetMinSize(), wxSize(-1, 2));
    line->SetSize(10, 10, 200, line->GetSize().y);
    showAll();
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*line), 199, 0) == PixelColour{37, 37, 37}; }));
    line->setLengthScale(0.5f);
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*line), 99, 1) == PixelColour{200, 200, 200}; }));
    for (const auto& [given, kept] : {std::pair{1.5f, 1.0f}, {-1.0f, 0.0f}, {NAN, 0.0f}, {0.25f, 0.25f}}) {
        line->setLengthScale(given);
        EXPECT_EQ(line->getLengthScale(), kept) << given;
    }
}

} // namespace
} // namespace Ostrel::Wx
