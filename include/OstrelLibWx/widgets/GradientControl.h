#pragma once

#include <OstrelLib/ColorGradient.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

namespace Ostrel::Wx {

/// The editor of a `ColorGradient`: a strip of its colours, and on its lower edge a round handle for each of its
/// points, in the point's colour.
///
/// - The left button takes a handle and drags it to any position from 0 to 1. The points are sorted again when it comes
///   up.
/// - A double-click on a handle opens the `ColorPicker` for that point; elsewhere it adds a point, in the colour that
///   the gradient has there, and opens the picker for it. "Cancel" in the picker takes the colour back, and leaves a
///   point that was added.
/// - The right button removes a point.
///
/// Points outside the range that is shown stand at its ends. The range concerns what is shown: a point that is dragged
/// or added always gets a position in [0, 1], which with a range from 0 to 100 is its first hundredth, at 1 for all but
/// the leftmost pixels.
class OSTREL_WX_API GradientControl : public PaintedPanel {
public:
    using OnChange = Function<void(const ColorGradient&)>;

    /// Shows a gradient without points.
    /// @param size in design pixels
    /// @param min the position at the left end of the strip
    /// @param max the position at its right end
    GradientControl(wxWindow* parent, wxSize size, float min, float max);

    /// Releases the mouse if it is held, and closes the picker if it is open.
    ~GradientControl() override;

    /// Replaces the gradient; calls nothing. Ends a drag; what a picker that is open goes on to choose is for nobody.
    void setGradient(const ColorGradient& gradient);
    [[nodiscard]] const ColorGradient& getGradient() const;

    /// Replaces the range that is shown.
    void setMinMaxPosition(float min, float max);

    /// Replaces what is told of changes by the user: a handle that is let go (moved or not), a point that is removed,
    /// and each colour that the picker shows while it is open. It may destroy the control. An empty callable: nobody.
    void setOnChangeCallback(OnChange onChange);

    /// Disabling ends a drag.
    bool Enable(bool enable = true) override;

    /// The keyboard passes the control by.
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    void paint(wxDC& dc) const override;

private:
    struct Impl;

    void onMouseDown(wxMouseEvent& event);
    void onMouseMove(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onRightUp(wxMouseEvent& event);
    void onDoubleClick(wxMouseEvent& event);

    void endDrag();
    void openPicker(std::size_t index);
    void recolor(const Hsv& color);
    void refreshAll();
    void reportChange();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
