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
    const Case cases[] = {
        {1.0f, 201, {100, 200, 40}, {37, 37, 37}},
        {0.5f, 100, {200, 255, 80}, {74, 74, 74}},
        {0.004f, 0, {}, {}},
        {0.0f, 0, {}, {}},
    };
    const std::array<wxColour, 2> colours{wxColour(100, 200, 40), wxColour(37, 37, 37)};
    for (const bool horizontal : {true, false}) {
        const wxSize size = horizontal ? wxSize(201, 4) : wxSize(4, 201);
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << "scale " << c.lengthScale << ", horizontal " << horizontal);
            const wxImage picture = paintOffScreen(size, [&](wxDC& dc) {
                paintStaticLine(dc, size, horizontal ? wxHORIZONTAL : wxVERTICAL, colours, c.lengthScale);
            });
            const auto at = [&](int along, int across) {
                return horizontal ? pixelAt(picture, along, across) : pixelAt(picture, across, along);
            };
            if (c.length > 0) {
                EXPECT_EQ(at(0, 0), c.first);
                EXPECT_EQ(at(c.length - 1, 0), c.first);
                EXPECT_EQ(at(0, 1), c.second);
                EXPECT_EQ(at(c.length - 1, 1), c.second);
            }
            if (c.length < 201) {
                EXPECT_EQ(at(c.length, 0), WHITE);
                EXPECT_EQ(at(c.length, 1), WHITE);
            }
            EXPECT_EQ(at(0, 2), WHITE) << "no thicker than its colours";
        }
    }
}

class StaticLineWindow : public WidgetTest {};

TEST_F(StaticLineWindow, IsAsThickAsItHasColours) {
    const Array<RgbBytes> colours{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    auto* const horizontal = new StaticLine(&panel(), wxHORIZONTAL, colours, 1.0f);
    EXPECT_EQ(horizontal->GetSize().y, 3);
    EXPECT_EQ(horizontal->GetMinSize(), wxSize(-1, 3));
    auto* const vertical = new StaticLine(&panel(), wxVERTICAL, colours, 1.0f);
    EXPECT_EQ(vertical->GetSize().x, 3);
    EXPECT_EQ(vertical->GetMinSize(), wxSize(3, -1));

    try {
        const StaticLine wrong(&panel(), wxBOTH, colours, 1.0f);
        ADD_FAILURE() << "a line in both directions";
    } catch (const Detail::StopException& stop) {
        EXPECT_EQ(stop.getPath(), "widgets/StaticLine");
    }
    EXPECT_EQ(panel().GetChildren().size(), 2u) << "nothing is left of the wrong one";
}

TEST_F(StaticLineWindow, ShowsAChangedLengthAtOnce) {
    auto* const line = new StaticLine(&panel(), wxHORIZONTAL);
    line->SetSize(10, 10, 200, 2);
    showAll();
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*line), 199, 0) == PixelColour{37, 37, 37}; }));
    EXPECT_EQ(pixelAt(capture(*line), 199, 1), (PixelColour{100, 100, 100}));

    line->setLengthScale(0.5f);
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*line), 99, 1) == PixelColour{200, 200, 200}; }));
    EXPECT_FALSE(pixelAt(capture(*line), 100, 1) == (PixelColour{200, 200, 200}));

    for (const auto& [given, kept] : {std::pair{1.5f, 1.0f}, {-1.0f, 0.0f}, {NAN, 0.0f}, {0.25f, 0.25f}}) {
        line->setLengthScale(given);
        EXPECT_EQ(line->getLengthScale(), kept) << given;
    }
}

} // namespace
} // namespace Ostrel::Wx
