#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/dcclient.h>

namespace Ostrel::Wx {

StaticBitmap::StaticBitmap(wxWindow* parent, int id, const wxBitmap& bitmap)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE)
    , _bitmap(bitmap) {
    if (_bitmap.IsOk()) {
        SetInitialSize(_bitmap.GetSize());
    }
    Bind(wxEVT_PAINT, &StaticBitmap::onPaint, this);
}

void StaticBitmap::setBitmap(const wxBitmap& bitmap) {
    if (!_bitmap.IsSameAs(bitmap)) {
        _bitmap = bitmap;
    }
    Refresh();
}

void StaticBitmap::onPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    if (_bitmap.IsOk()) {
        dc.DrawBitmap(_bitmap, 0, 0, false);
    }
}

} // namespace Ostrel::Wx
