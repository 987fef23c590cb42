#include <OstrelLibWx/widgets/StaticBitmap.h>

#include "support/WidgetTest.h"

namespace Ostrel::Wx {
namespace {

wxBitmap filled(int width, int height, unsigned char red, unsigned char green, unsigned char blue) {
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width, height), red, green, blue);
    return wxBitmap(image);
}

class StaticBitmapWindow : public WidgetTest {};

TEST_F(StaticBitmapWindow, ShowsItsBitmapWholeAtItsCorner) {
    wxBitmap masked = filled(12, 8, 250, 120, 10);
    masked.SetMask(new wxMask(masked, wxColour(250, 120, 10)));
    auto* const window = new StaticBitmap(&panel(), wxID_ANY, masked);
    EXPECT_EQ(window->GetSize(), wxSize(12, 8));
    window->SetBackgroundColour(wxColour(68, 68, 68));
    window->SetSize(10, 10, 20, 20);
    showAll();
    EXPECT_TRUE(pumpUntil([&] {
        return pixelAt(capture(*window), 0, 0) == PixelColour{250, 120, 10};
    })) << "the mask hides nothing";
    const wxImage shown = capture(*window);
    EXPECT_EQ(pixelAt(shown, 11, 7), (PixelColour{250, 120, 10}));
    EXPECT_EQ(pixelAt(shown, 12, 7), (PixelColour{68, 68, 68}));

    window->setBitmap(filled(4, 4, 1, 2, 3));
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*window), 3, 3) == PixelColour{1, 2, 3}; }));
    EXPECT_EQ(pixelAt(capture(*window), 4, 4), (PixelColour{68, 68, 68}));
    EXPECT_EQ(window->GetSize(), wxSize(20, 20)) << "the size is the first bitmap's affair";
    const wxBitmap kept = window->getBitmap();
    window->setBitmap(kept);
    EXPECT_TRUE(window->getBitmap().IsSameAs(kept));
}

TEST_F(StaticBitmapWindow, WithoutABitmapIsBlank) {
    auto* const window = new StaticBitmap(&panel(), wxID_ANY, wxNullBitmap);
    window->SetBackgroundColour(wxColour(68, 68, 68));
    window->SetSize(10, 10, 20, 20);
    showAll();
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*window), 0, 0) == PixelColour{68, 68, 68}; }));
}

} // namespace
} // namespace Ostrel::Wx
