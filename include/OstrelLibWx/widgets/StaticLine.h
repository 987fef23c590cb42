#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/colour.h>
#include <wx/panel.h>

namespace Ostrel::Wx {

/// A separator line: one row of pixels (one column, if it is vertical) for each of its colours. It can be drawn
/// shortened, which also brightens it.
class OSTREL_WX_API StaticLine : public wxPanel {
public:
    /// Two pixels thick, (37, 37, 37) and then (100, 100, 100), at full length.
    StaticLine(wxWindow* parent, wxOrientation orientation);

    /// As many pixels thick as there are colours, from the top or from the left. The thickness is in screen pixels and
    /// not scaled; the length is left to the layout. `lengthScale` as in `setLengthScale`.
    /// Throws a stop exception unless `orientation` is `wxHORIZONTAL` or `wxVERTICAL`.
    StaticLine(wxWindow* parent, wxOrientation orientation, ArrayView<const RgbBytes> colours, float lengthScale);

    /// The share of the window's length that is drawn, clamped to [0, 1]; a NaN counts as 0. At exactly 1 the line has
    /// its own colours; any shortened line has each channel doubled, up to 255. The screen shows it on return.
    void setLengthScale(float lengthScale);
    [[nodiscard]] float getLengthScale() const { return _lengthScale; }

private:
    void onPaint(wxPaintEvent& event);

    wxOrientation _orientation;
    Array<wxColour> _colours;
    float _lengthScale = 1.0f;
};

} // namespace Ostrel::Wx
