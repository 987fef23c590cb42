#include <OstrelLibWx/widgets/StaticBitmap.h>

#include "support/WidgetTest.h"

namespace Ostrel::Wx {
namespace {

class StaticBitmapWindow : public WidgetTest {};

TEST_F(StaticBitmapWindow, ShowsItsBitmapWholeAtItsCorner) {
    wxImage image(12, 8);
    image.SetRGB(wxRect(0, 0, 12, 8), 250, 120, 10);
    wxBitmap masked(image);
    masked.SetMask(new wxMask(masked, wxColour(250, 120, 10)));
    auto* const window = new StaticBitmap(&panel(), wxID_ANY, masked);
    EXPECT_EQ(window->GetSize(), wxSize(12, 8));
    window->SetBackgroundColour(wxColour(68, 68, 68));
    window->SetSize(10, 10, 20, 20);
    showAll();
    const auto shows = [&](int x, int y, PixelColour colour) {
        return pumpUntil([&] { return pixelAt(capture(*window), x, y) == colour; });
    };
    EXPECT_TRUE(shows(11, 7, {250, 120, 10})) << "the mask hides nothing";
    EXPECT_TRUE(shows(12, 8, {68, 68, 68}));
    window->setBitmap(wxNullBitmap);
    EXPECT_TRUE(shows(0, 0, {68, 68, 68}));
    window->setBitmap(wxBitmap(image));
    EXPECT_TRUE(shows(0, 0, {250, 120, 10}));
    EXPECT_EQ(window->GetSize(), wxSize(20, 20)) << "the size is the first bitmap's affair";
}

} // namespace
} // namespace Ostrel::Wx
