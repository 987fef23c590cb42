#pragma once

#include <OstrelLib/Curve.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/CurveEditing.h"

#include <wx/bitmap.h>
#include <wx/geometry.h>

class wxDC;

namespace Ostrel::Wx {

/// Sizes of a curve panel's marks, in screen pixels.
struct CurveMarkSizes {
    int line = 1; ///< a curve, a line of the grid; the selected curve is twice, the lines of 0 and 1 thrice as wide
    int pointRadius = 4; ///< of the circle around a point
};

/// Where a curve runs in a plot: a vertex for each column of pixels, not truncated to pixels.
class CurveLine {
public:
    /// Follows the curve anew. Takes no memory when the plot has the width of the time before.
    void trace(const Curve& curve, const CurvePlot& plot);

    [[nodiscard]] ArrayView<const wxPoint2DDouble> getVertices() const noexcept { return _vertices; }

private:
    Array<float> _positions;
    Array<float> _values;
    Array<wxPoint2DDouble> _vertices;
};

/// Draws what lies below the selected curve, over the whole panel: margins, plot, histogram, grid, the diagonal and the
/// other curves but for those that are the identity.
void paintCurveGround(wxDC& dc, const CurveEditing& editing, const GuiSkin& skin, const CurveMarkSizes& sizes);

/// Draws the selected curve, its points and the mark on it.
/// @return false if the device context is one that nothing smooth can be drawn on; then nothing is drawn
[[nodiscard]] bool paintSelectedCurve(wxDC& dc, const CurveEditing& editing, const CurveLine& line,
                                      const CurveMarkSizes& sizes);

/// Paints a curve panel, and keeps of its picture what stays the same from one painting to the next. During a drag that
/// is all but the selected curve.
class CurvePanelPainting {
public:
    explicit CurvePanelPainting(const CurveMarkSizes& sizes)
        : _sizes(sizes) {}

    /// The selected curve has changed.
    void forgetSelectedCurve() noexcept { _lineKept = false; }

    /// Anything has changed.
    void forgetAll() noexcept { _groundKept = _lineKept = false; }

    void paint(wxDC& dc, const CurveEditing& editing, const GuiSkin& skin);

private:
    void makeGround(const CurveEditing& editing, const GuiSkin& skin, double scale);
    void paintThroughBitmap(wxDC& dc, const CurveEditing& editing) const;

    CurveMarkSizes _sizes;
    wxBitmap _ground;
    CurveLine _line; ///< of the selected curve
    bool _groundKept = false;
    bool _lineKept = false;
};

} // namespace Ostrel::Wx
