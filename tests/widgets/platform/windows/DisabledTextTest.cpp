// Windows alone: there the control draws its disabled text itself, and where is the library's choice.
#include <OstrelLibWx/widgets/TextControl.h>

#include "support/WidgetTest.h"

namespace {

using namespace Ostrel;

class DisabledText : public WidgetTest {};

TEST_F(DisabledText, BeginsThreeDesignPixelsFromTheLeft) {
    auto* const text = new Wx::TextControl(&panel(), wxID_ANY, "HHHH", wxBORDER_NONE, {}, wxSize(100, 24));
    text->Disable();
    showAll();
    const PixelColour ground = pixelAt(capture(*text), 0, 0);
    const auto findLeft = [&] {
        const wxImage shown = capture(*text);
        for (int x = 0; x < shown.GetWidth(); ++x) {
            for (int y = 0; y < shown.GetHeight(); ++y) {
                if (pixelAt(shown, x, y) != ground) {
                    return x;
                }
            }
        }
        return -1;
    };
    EXPECT_TRUE(pumpUntil([&] { return findLeft() >= 0; }));
    const int bearing = findLeft() - Wx::scaleByDpi(3); // what the letter leaves free
    EXPECT_GE(bearing, 0);
    EXPECT_LE(bearing, Wx::scaleByDpi(2));
}

} // namespace
