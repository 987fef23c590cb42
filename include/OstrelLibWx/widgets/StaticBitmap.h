#pragma once

#include <OstrelLibWx/Export.h>

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace Ostrel::Wx {

/// A panel that shows one bitmap at its top-left corner, pixel for pixel (it is not scaled with the screen's DPI: give
/// it a bitmap of the size wanted) and without regard to the bitmap's mask.
class OSTREL_WX_API StaticBitmap : public wxPanel {
public:
    /// The window starts with the bitmap's size. An invalid bitmap shows nothing, at the toolkit's default size.
    StaticBitmap(wxWindow* parent, int id, const wxBitmap& bitmap);

    /// Shows another bitmap; the window's size stays. With the bitmap that it already shows it only refreshes.
    void setBitmap(const wxBitmap& bitmap);
    [[nodiscard]] const wxBitmap& getBitmap() const { return _bitmap; }

private:
    void onPaint(wxPaintEvent& event);

    wxBitmap _bitmap;
};

} // namespace Ostrel::Wx
