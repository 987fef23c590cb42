#pragma once

#include <OstrelLib/Types.h>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/window.h>

/// What all pages have in common in their look. All sizes are design pixels unless they are said to be on the screen.
namespace Ostrel::Gallery {

/// Every distance on a page is a multiple of it, or half of it inside a group.
constexpr int GRID = 8;

/// What a text on a page is for.
enum class TextRole {
    TITLE,   ///< of the page
    SECTION, ///< of a part of it
    BODY,    ///< what is read
    CAPTION, ///< what names or explains the thing beside it
};

/// The font of that role, made from the window's own face.
wxFont makeFont(const wxWindow& window, TextRole role);

/// The colour of that role on the skin's background.
wxColour getTextColour(TextRole role);

/// A bitmap of this many screen pixels, painted by `paint` on `ground`.
wxBitmap paintBitmap(wxSize size, const wxColour& ground, const Function<void(wxDC&)>& paint);

/// The bitmap with each pixel `factor` times as wide and as high.
wxBitmap magnify(const wxBitmap& bitmap, int factor);

/// A small picture as a tool's button has it: a landscape of three bands. `size` in screen pixels.
wxBitmap makeSampleBitmap(wxSize size);

/// The same in grey, dimmed towards the skin's background.
wxBitmap makeDisabledSampleBitmap(wxSize size);

} // namespace Ostrel::Gallery
