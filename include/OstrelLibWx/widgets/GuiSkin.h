#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLibWx/Export.h>

#include <wx/colour.h>

class wxWindow;

namespace Ostrel::Wx {

/// The colours of the library's look: eight times three bytes (red, green, blue) without alpha, 24 bytes in all; every
/// colour is used opaque. A default-constructed skin is the library's own dark one. Controls that keep a skin keep a
/// copy, so that changing a record afterwards changes nothing on the screen.
struct GuiSkin {
    /// 0: text of every window; text of a normal and of a pressed button.
    RgbBytes text{200, 200, 200};
    /// 1: grey of the palette; text of a disabled text field.
    RgbBytes grey{110, 110, 110};
    /// 2: background of every window and of a normal button.
    RgbBytes background{68, 68, 68};
    /// 3: dark grey of the palette.
    RgbBytes darkGrey{37, 37, 37};
    /// 4: text of a toggled button.
    RgbBytes toggledText{0, 0, 0};
    /// 5: background of a toggled button.
    RgbBytes toggledBackground{39, 147, 255};
    /// 6: background of a pressed button.
    RgbBytes pressedBackground{0, 73, 112};
    /// 7: links, whether the mouse is over them or not.
    RgbBytes link{81, 167, 241};

    friend bool operator==(const GuiSkin&, const GuiSkin&) = default;
};
static_assert(sizeof(GuiSkin) == 24);

/// The toolkit's colour of these bytes, opaque.
[[nodiscard]] inline wxColour toWxColour(RgbBytes colour) {
    return {colour.red, colour.green, colour.blue};
}

/// Gives `window` and then all its descendants, depth first in the order of their child lists, the skin's background
/// and text colour. A window that is an `ILinkColours` also gets the link colour as its normal and its hover colour,
/// so that a link does not change under the mouse until its owner says so. Nothing else of the skin is applied:
/// controls that keep a skin of their own (buttons, for one) are given it when they are made.
/// `window` must not be null.
OSTREL_WX_API void applySkinRecursive(wxWindow* window, const GuiSkin& skin);

} // namespace Ostrel::Wx
