#include <OstrelLibWx/widgets/StaticLine.h>

#include <OstrelLib/Exceptions.h>

#include "painting/LinePainting.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <array>

namespace Ostrel::Wx {

namespace {

constexpr std::array<RgbBytes, 2> DEFAULT_COLOURS{{{37, 37, 37}, {100, 100, 100}}};

/// A NaN becomes 0.
float clampLengthScale(float lengthScale) {
    return lengthScale > 0.0f ? std::min(lengthScale, 1.0f) : 0.0f;
}

} // namespace

StaticLine::StaticLine(wxWindow* parent, wxOrientation orientation)
    : StaticLine(parent, orientation, DEFAULT_COLOURS, 1.0f) {}

StaticLine::StaticLine(wxWindow* parent, wxOrientation orientation, ArrayView<const RgbBytes> colours,
                       float lengthScale)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE)
    , _orientation(orientation) {
    Bind(wxEVT_PAINT, &StaticLine::onPaint, this);
    _colours.reserve(colours.size());
    for (const RgbBytes& colour : colours) {
        _colours.emplace_back(colour.red, colour.green, colour.blue);
    }
    const int thickness = static_cast<int>(_colours.size());
    if (_orientation == wxHORIZONTAL) {
        SetMinSize(wxSize(GetMinWidth(), thickness));
        SetSize(wxSize(GetSize().x, thickness));
    } else if (_orientation == wxVERTICAL) {
        SetMinSize(wxSize(thickness, GetMinHeight()));
        SetSize(wxSize(thickness, GetSize().y));
    } else {
        Detail::throwStopException("widgets/StaticLine", __LINE__);
    }
    setLengthScale(lengthScale);
}

void StaticLine::setLengthScale(float lengthScale) {
    _lengthScale = clampLengthScale(lengthScale);
    Refresh();
    Update();
}

void StaticLine::onPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    paintStaticLine(dc, GetClientSize(), _orientation, _colours, _lengthScale);
}

} // namespace Ostrel::Wx
