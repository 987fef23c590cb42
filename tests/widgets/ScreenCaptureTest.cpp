#include "support/WidgetTest.h"

#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/popupwin.h>

#include <OstrelLibWx/BitmapUtils.h>

namespace {

using namespace Ostrel;

constexpr int EDGE = 24; // of a quarter
constexpr Rgb NOT_WRITTEN{0.0F, 0.0F, 0.0F, 0.0F};

Rgb toRgb(const wxColour& c) {
    constexpr float BYTE_TO_FLOAT = 0.003921569F;
    return {static_cast<float>(c.Red()) * BYTE_TO_FLOAT, static_cast<float>(c.Green()) * BYTE_TO_FLOAT,
            static_cast<float>(c.Blue()) * BYTE_TO_FLOAT, 1.0F};
}

/// A window of four quarters, each in a colour of its own, exactly where it is told to be, over everything else.
class Quarters : public wxPopupWindow {
public:
    Quarters(wxWindow* parent, wxPoint place)
        : wxPopupWindow(parent) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(this);
            dc.SetPen(*wxTRANSPARENT_PEN);
            for (int i = 0; i < 4; ++i) {
                dc.SetBrush(wxBrush(colours[i]));
                dc.DrawRectangle(i % 2 * EDGE, i / 2 * EDGE, EDGE, EDGE);
            }
            painted = true;
        });
        SetSize(place.x, place.y, 2 * EDGE, 2 * EDGE);
        Show();
    }

    wxColour colours[4] = {wxColour(201, 17, 33), wxColour(5, 190, 77), wxColour(9, 21, 240), wxColour(254, 128, 1)};
    bool painted = false;
};

class ScreenCapture : public WidgetTest {
protected:
    /// Captures the window and a margin around it, and compares each pixel with what the window and the screen's edges
    /// say. A margin that is on the screen is not looked at.
    static void expectQuarters(Quarters& window, const wxRect& screen) {
        constexpr int MARGIN = 3;
        EXPECT_TRUE(pumpUntil([&window] { return window.painted; }));
        settle();
        const wxPoint place = window.GetScreenPosition();
        const Bucket region{{place.x - MARGIN, place.y - MARGIN},
                            {place.x + 2 * EDGE + MARGIN, place.y + 2 * EDGE + MARGIN}};
        const BitmapImpl<Rgb> image = Wx::getScreenRegionColors(region);
        ASSERT_EQ(image.getWidth(), 2 * EDGE + 2 * MARGIN);
        ASSERT_EQ(image.getHeight(), 2 * EDGE + 2 * MARGIN);
        for (int y = 0; y < image.getHeight(); ++y) {
            for (int x = 0; x < image.getWidth(); ++x) {
                const wxPoint inside(x - MARGIN, y - MARGIN);
                if (!screen.Contains(region.min.x + x, region.min.y + y)) {
                    ASSERT_EQ(image(x, y), NOT_WRITTEN) << x << ' ' << y;
                } else if (wxRect(window.GetSize()).Contains(inside)) {
                    const wxColour& colour = window.colours[inside.x / EDGE + 2 * (inside.y / EDGE)];
                    ASSERT_EQ(image(x, y), toRgb(colour)) << x << ' ' << y;
                }
            }
        }
    }
};

TEST_F(ScreenCapture, ReadsWindowsThatStraddleTheScreensEdges) {
    const wxRect screen = wxDisplay(0u).GetGeometry();
    const wxPoint places[] = {
        {300, 200},      // inside
        {-EDGE - 5, 60}, // over the left edge; not over the corner, where `settle` shows its window
        {60, -EDGE + 7},
        {screen.width - EDGE + 5, screen.height - EDGE - 9}, // over two edges, unless another display is there
    };
    for (const wxPoint place : places) {
        if (wxDisplay::GetCount() > 1 && place.x > 300) {
            continue;
        }
        auto* const window = new Quarters(&frame(), place);
        expectQuarters(*window, screen);
        window->Destroy();
        pump();
    }
}

TEST_F(ScreenCapture, ShowsWhatIsThereNow) {
    auto* const window = new Quarters(&frame(), {300, 200});
    expectQuarters(*window, wxDisplay(0u).GetGeometry());
    std::swap(window->colours[0], window->colours[3]);
    window->painted = false;
    window->Refresh();
    expectQuarters(*window, wxDisplay(0u).GetGeometry());
    window->Destroy();
    pump();
}

TEST_F(ScreenCapture, WritesNothingOffTheScreen) {
    for (const Bucket region : {Bucket{{-900, -700}, {-893, -695}}, Bucket{{100'000, 5}, {100'007, 10}}}) {
        const BitmapImpl<Rgb> image = Wx::getScreenRegionColors(region);
        EXPECT_EQ(image, BitmapImpl<Rgb>(7, 5, NOT_WRITTEN));
    }
    EXPECT_TRUE(Wx::getScreenRegionColors({{5, 5}, {5, 9}}).isEmpty());
    EXPECT_TRUE(Wx::getScreenRegionColors({{5, 5}, {1, 1}}).isEmpty());
}

TEST_F(ScreenCapture, JoinsTwoDisplays) {
    if (wxDisplay::GetCount() < 2) {
        GTEST_SKIP() << "one display";
    }
    const wxRect left = wxDisplay(0u).GetGeometry();
    ASSERT_EQ(wxDisplay(1u).GetGeometry().x, left.width);
    auto* const window = new Quarters(&frame(), {left.width - EDGE - 4, 300});
    expectQuarters(*window, left.Union(wxDisplay(1u).GetGeometry()));
    window->Destroy();
    pump();
}

} // namespace
