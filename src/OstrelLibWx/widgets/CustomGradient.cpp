#include <OstrelLibWx/widgets/CustomGradient.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/GradientColumns.h"

#include <wx/bitmap.h>
#include <wx/dcbuffer.h>
#include <wx/image.h>

#include <cstring>

namespace Ostrel::Wx {

namespace {

constexpr int MARGIN = 6; // design pixels

static_assert(sizeof(RgbBytes) == 3, "a row of an image is a row of these");

} // namespace

struct CustomGradient::Impl {
    Function<Rgb(float)> toColor;
    wxBitmap strip{}; ///< as painted last; not valid if it has to be made anew
};

CustomGradient::CustomGradient(wxWindow* parent, wxSize size, Function<Rgb(float)> toColor)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxBORDER_NONE)
    , _impl(new Impl{.toColor = std::move(toColor)}) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetBackgroundColour(toWxColour(GuiSkin().background));
    SetMinSize(scaleByDpi(size));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        paint(dc);
    });
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh(); // the columns are others
        event.Skip();
    });
}

CustomGradient::~CustomGradient() = default;

void CustomGradient::refreshColors() {
    _impl->strip = wxBitmap();
    Refresh();
}

void CustomGradient::paint(wxDC& dc) const {
    const wxRect client = GetClientRect();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(GetBackgroundColour());
    dc.DrawRectangle(client);
    const wxSize size(client.width - 2 * scaleByDpi(MARGIN), client.height);
    if (_impl->toColor && size.x > 0 && size.y > 0) {
        updateStrip(size);
        dc.DrawBitmap(_impl->strip, client.x + scaleByDpi(MARGIN), client.y);
    }
}

void CustomGradient::updateStrip(wxSize size) const {
    if (_impl->strip.IsOk() && _impl->strip.GetSize() == size) {
        return;
    }
    Array<RgbBytes> columns(static_cast<std::size_t>(size.x));
    computeGradientColumns(scaleByDpi(MARGIN), columns, _impl->toColor);
    wxImage image(size, false);
    const std::size_t rowSize = columns.size() * sizeof(RgbBytes);
    for (int y = 0; y < size.y; ++y) {
        std::memcpy(image.GetData() + static_cast<std::size_t>(y) * rowSize, columns.data(), rowSize);
    }
    _impl->strip = wxBitmap(image);
}

} // namespace Ostrel::Wx
