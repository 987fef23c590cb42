#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Histogram.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/HistogramType.h>

#include "models/CurvePlot.h"

#include <bitset>
#include <cstdint>

namespace Ostrel::Wx {

/// What a curve panel knows without a window: the curves, which of them is edited and how, and what it is edited over.
/// Pixels are client coordinates. Operations on a channel that is none raise the stop exception ("Curve").
class CurveEditing {
public:
    /// @param hitRadius how near, in pixels, a press has to be to a point or to the curve
    CurveEditing(ColorCurve curves, int margin, int hitRadius);

    // The curves

    [[nodiscard]] const ColorCurve& getCurves() const noexcept { return _curves; }
    [[nodiscard]] const Curve& getCurve() const { return _curves[_selectedChannel]; }
    void setCurve(Curve curve, CurveChannel channel);
    void setCurves(ColorCurve curves);
    [[nodiscard]] CurveChannel getSelectedChannel() const noexcept { return _selectedChannel; }
    void selectChannel(CurveChannel channel);

    // Editing the selected channel's curve. What returns a bool says whether that is a change to be reported.

    /// The point nearest to the pixel among those less than the hit radius away; of equally near ones the first.
    [[nodiscard]] Optional<std::size_t> findPoint(Pixel pixel) const;

    /// Begins a drag: selects the point there, or adds one if the curve is there.
    bool press(Pixel pixel);

    /// Presses where a colour of the picture lies on the curve: at its value in the selected channel, at least 0. A
    /// colour that is not finite is nowhere.
    bool pick(const Rgb& colour);

    /// Moves the selected point, during a drag alone, and then always a change. The pixel is clamped to the plot.
    bool drag(Pixel pixel);

    /// The same, as far up or down as that: downwards is positive. Without a selected point, nothing.
    bool dragVertically(int distance);

    /// Ends the drag, in whichever way.
    void release() noexcept;

    /// Removes the point there, if it is not one of the ends.
    bool removePoint(Pixel pixel);

    [[nodiscard]] bool isDragging() const noexcept { return _dragging; }
    [[nodiscard]] Optional<std::size_t> getDragPoint() const noexcept { return _dragPoint; }

    /// The mouse is there and drags nothing: marks the curve above or below it.
    void hover(Pixel pixel);
    void stopHovering() noexcept { _hoverPoint.reset(); }

    /// The place on the curve that is marked.
    [[nodiscard]] Optional<CurvePoint> getHoverPoint() const noexcept;

    // Telling of changes. `now` is a clock in milliseconds that only goes forward.

    /// Adds to the channels whose change is yet to be told. All of them are due so many milliseconds from now, at once
    /// with 0 or less: each change of a burst puts the telling off.
    void mergeChanges(ArrayView<const CurveChannel> channels, std::int64_t delay, std::int64_t now);

    /// How many milliseconds are left before changes are to be told; 0: they are due; nothing: there are none.
    [[nodiscard]] Optional<int> getWait(std::int64_t now) const noexcept;

    /// The first channel whose change is yet to be told, which counts as told from now on. One at a time: being told
    /// may lead to further changes.
    Optional<CurveChannel> takePendingChannel() noexcept;

    // What is shown

    [[nodiscard]] const CurvePlot& getPlot() const noexcept { return _plot; }

    /// True if the size of the plot changed.
    bool setClientSize(Pixel size) noexcept;

    /// A step of the wheel, inwards if the rotation is above 0.
    void zoom(int wheelRotation) noexcept;

    [[nodiscard]] const Histogram& getHistogram() const noexcept { return _histogram; }

    /// True if it is another one.
    bool setHistogram(Histogram histogram);
    [[nodiscard]] HistogramType getHistogramType() const noexcept { return _histogramType; }

    /// Stop exception ("widgets/CurvePanel", line 146) for a value that is no type.
    void setHistogramType(HistogramType type);

private:
    [[nodiscard]] Curve& curve() { return _curves[_selectedChannel]; }
    [[nodiscard]] bool isInDragRange(float x) const noexcept { return x >= _dragMinX && x <= _dragMaxX; }
    void insertPoint(const CurvePoint& point, Pixel pixel);
    void moveEnd(std::size_t index, CurvePoint point);
    void forgetMissingPoint();

    ColorCurve _curves;
    CurveChannel _selectedChannel = CurveChannel::MASTER;
    std::bitset<CURVE_CHANNEL_COUNT> _pendingChannels;
    std::int64_t _tellAt = 0; ///< when they are due
    Optional<std::size_t> _dragPoint;
    float _dragMinX = 0.0F;
    float _dragMaxX = 0.0F;
    bool _dragging = false;
    Histogram _histogram;
    HistogramType _histogramType = HistogramType::LINEAR;
    CurvePlot _plot; ///< the plot's size and the zoom
    Optional<CurvePoint> _hoverPoint;
    int _hitRadius;
};

} // namespace Ostrel::Wx
