#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

namespace Ostrel::Wx {

/// A swatch that shows one colour. A click, the left button's going down and coming up over it, opens the
/// `ColorPicker` for it. Dragged onto another `ColorPickerButton`, of the same program or another, it gives that one
/// its colour: see `RgbDataObject`. A drag that comes back and ends where it began is a click.
///
/// Colours are kept as they are given, beyond [0, 1] too; the swatch shows each channel limited to it, and NaN as 0.
/// The alpha is carried along and not shown; a colour from the picker has alpha 1. A disabled button shows stripes,
/// opens no picker and takes no colour that is dropped on it.
///
/// A picker opens where the last one that any `ColorPickerButton` of the process has opened was closed; the first one,
/// where the system puts it.
class OSTREL_WX_API ColorPickerButton : public PaintedPanel {
public:
    using OnColor = Function<void(const Rgb&)>;

    /// @param label what the colour is for: the picker's title is "Color Selector: " and this
    /// @param size in design pixels
    ColorPickerButton(wxWindow* parent, const String& label, wxSize size, bool enabled);

    /// Releases the mouse if it is held, and closes the picker if it is open.
    ~ColorPickerButton() override;

    /// The colour; while the picker is open, the one from before.
    [[nodiscard]] Rgb getColor() const;

    /// Makes this the colour, and shows it. With `notify`, calls the commit callback and then the preview callback.
    void setColor(const Rgb& color, bool notify);

    /// Replaces what is told of a colour that is being tried in the picker: each one that the picker shows, and the
    /// former one when the user cancels. Also called, after the commit callback, with a colour that is dropped or that
    /// `setColor` notifies of. An empty callable: nobody. It may destroy the button, as may the next one.
    void setPreviewCallback(OnColor onPreview);

    /// Replaces what is told of a new colour: accepted in the picker, dropped, or set with `setColor`.
    void setCommitCallback(OnColor onCommit);

    /// Disabling shows the stripes, and ends a press.
    bool Enable(bool enable = true) override;

    /// The keyboard passes the swatch by.
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    void paint(wxDC& dc) const override;

private:
    struct Impl;
    friend class ColorPickerButtonDropTarget;

    void onMouseDown(wxMouseEvent& event);
    void onMouseLeft(wxMouseEvent& event);
    void onMouseMove(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);

    void endPress();
    [[nodiscard]] bool isInside(wxPoint mouse) const;
    void drag();
    void openPicker();
    void preview(const Rgb& color);
    void commit(const Rgb& color);
    void showColor(const Rgb& color);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
