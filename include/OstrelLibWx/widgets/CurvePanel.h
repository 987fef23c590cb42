#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Histogram.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/HistogramType.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

#include <cstdint>
#include <utility>

class wxTimerEvent;

namespace Ostrel::Wx {

/// What a `CurvePanel` asks and tells its host. All of it is called on the GUI thread. Each operation may call back
/// into the panel, and may destroy it but for what is said at `getHistogram`.
class OSTREL_WX_API ICurvePanelCallbacks : public Polymorphic {
public:
    ~ICurvePanelCallbacks() override;

    /// The histogram of the picture that is corrected. Also asked for in the panel's constructor and, when a sizer has
    /// given the panel another size, within the toolkit's size event: there the panel must not be destroyed.
    /// @param range the values from the left to the right edge of the plot: from 0 to 1 / zoom where the panel asks
    /// @param binCount always the width of the plot, one bin for each column of pixels; 0 where there is no room.
    /// A histogram with another number of bins is shown one bin a column from the left; what is too much is left out
    virtual Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) = 0;

    /// The period in milliseconds, at least 1, at which the histogram is to be asked for again; nothing: not by itself.
    /// Asked for once, in the panel's constructor.
    virtual Optional<int> getHistogramRefreshInterval() = 0;

    /// The colour of the picture at a place that the host has given to `ICurvePanelController::beginPick`, or nothing.
    virtual Optional<Rgb> getPixelColor(Pixel pixel) = 0;

    /// A curve has changed, or a drag has gone on, be it without effect.
    /// @param curve the panel's own: valid until the panel is changed or destroyed
    virtual void onCurveChanged(CurveChannel channel, const Curve& curve) = 0;

    /// How long, in milliseconds, changes are to be held back so that a burst of them is reported once for each channel
    /// when it pauses. 0 or less: each change is reported at once. Asked for at each change.
    virtual std::int64_t getChangeDelay() = 0;
};

/// Moves a point of a panel's curve from outside, for example by clicks and drags in the picture that is corrected.
/// Pixels are the host's own: the panel hands them to `ICurvePanelCallbacks::getPixelColor` and looks at how far they
/// move.
class OSTREL_WX_API ICurvePanelController {
public:
    virtual ~ICurvePanelController();

    /// Selects the point of the selected curve at the value that the picture has at `pixel` in the selected channel
    /// ((red + green + blue) / 3 for Master), and adds one there if none is near: what a press of the mouse on the
    /// curve does. A value below 0 counts as 0. Without a colour, or with one that is not finite, nothing happens.
    virtual void beginPick(Pixel pixel) = 0;

    /// Lets go of the point.
    virtual void endPick() = 0;

    /// Moves the selected point up or down by as many pixels as `pixel` lies above or below the one before. Moves to
    /// the side change nothing.
    virtual void movePick(Pixel pixel) = 0;
};

/// The editor of four tone curves, one for each channel, over the histogram of the picture that they correct. One of
/// the curves is selected: it lies on top, shows its points and is worked with the mouse.
///
/// - The left button takes the nearest point that is less than 12 design pixels away and drags it; a press on the curve
///   (up to 12 design pixels from it) adds a point there and drags that one. The first and the last point stay 0.01
///   from their neighbours. Any other point that is dragged nearer than 0.01 to a neighbour, or past it, is deleted,
///   and comes back when it is dragged back before the button comes up.
/// - The right button deletes a point; the first and the last one stay.
/// - The wheel zooms by 3 : 2, up to five steps in each direction: the plot shows the values from 0 to 1 / zoom in both
///   directions, with its origin in the lower left corner.
/// - The mouse without a button marks the curve above or below it.
///
/// Curves are expected to have at least two points, in ascending order of x. All sizes here are in screen pixels; the
/// panel's own, such as the margin of 5 design pixels around the plot, are scaled with the DPI.
class OSTREL_WX_API CurvePanel : public PaintedPanel, public Object {
public:
    /// The Master channel is selected, the histogram is linear and the zoom is 1. Asks the callbacks for the histogram
    /// and its refresh interval.
    /// @param callbacks kept as long as the panel lives; stop exception ("widgets/CurvePanel") if null
    CurvePanel(wxWindow* parent, const GuiSkin& skin, wxSize size, ColorCurve curves,
               SharedPtr<ICurvePanelCallbacks> callbacks);

    /// Releases the mouse if it is held. Changes that have been held back are not reported any more.
    ~CurvePanel() override;

    /// It has no keys.
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Sets the size and asks for the histogram. A size that is set in another way, by a sizer for one, is followed
    /// too.
    void resize(wxSize size);

    /// Replaces the curve of a channel. With `notify`, reports the change as one by the mouse is reported. A point that
    /// is being dragged stays selected by its number, if the new curve has as many points.
    /// Stop exception ("Curve") for a value that is no channel.
    void setCurve(Curve curve, CurveChannel channel, bool notify);

    /// Replaces all four curves and reports them, from Master to Blue.
    void setCurves(ColorCurve curves);
    [[nodiscard]] ColorCurve getCurrentCurves() const;

    /// Selects the curve that is edited. Does not ask for that channel's histogram: the host calls `updateHistogram`.
    /// Stop exception ("Curve") for a value that is no channel.
    void setSelectedCurve(CurveChannel channel);
    [[nodiscard]] CurveChannel getSelectedCurveChannel() const;

    /// Chooses how the histogram is shown, and asks for it. Stop exception ("widgets/CurvePanel", line 146) for a value
    /// that is none of these; nothing changes then.
    void setHistogramType(HistogramType type);

    /// Asks the callbacks for the histogram of the selected channel and shows it.
    void updateHistogram();

    /// Moves points from outside the panel. It must not outlive the panel.
    [[nodiscard]] AutoPtr<ICurvePanelController> getController();

    /// Width and height of the plot: the client area without its margins. 0 or less where there is no room for it.
    [[nodiscard]] Pixel getPlotSize() const;

    /// From 0.13168724 to 7.59375; 1 shows the values from 0 to 1.
    [[nodiscard]] float getZoom() const;

    /// Disabling ends a drag.
    bool Enable(bool enable = true) override;

    void paint(wxDC& dc) const override;

private:
    struct Impl;

    void onMouseDown(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onRightUp(wxMouseEvent& event);
    void onMouseMove(wxMouseEvent& event);
    void onTimer(wxTimerEvent& event);
    void onMouseWheel(wxMouseEvent& event);
    void onSize(wxSizeEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);

    bool followSize();
    void endDrag();
    void refreshMark();
    void refreshAll();

    // These tell the host, which may destroy the panel.
    void applyEdit(bool changed);
    void reportChanges(ArrayView<const CurveChannel> channels);
    void reportWhenDue();
    void reportPendingChanges();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
