#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/popupwin.h>
#include <wx/timer.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {

/// Milliseconds for which the mouse rests over the owner before a new tooltip appears.
constexpr long long TOOLTIP_DELAY_MS = 600;

/// The library's tooltip: a popup that shows a text near the mouse once the mouse has rested over its owner. It never
/// takes the focus. It is a child window of its owner and is destroyed with it; it may also be destroyed before.
///
/// It is created with the popup style 6. That value has none of the toolkit's border bits (`wxBORDER_MASK` is
/// 0x1f200000) and is therefore the default border, which for a popup is none on Windows and on Linux; bits 2 and 4
/// mean something to frames and to controls, and nothing to a popup. So the popup's window is exactly as large as what
/// it paints, and its outline is its own.
class OSTREL_WX_API Tooltip : public wxPopupWindow {
public:
    /// Hidden at first. The mouse's entering and moving over `owner` arm it (each motion anew, so that it appears only
    /// after a rest); the mouse's leaving and the left button's coming up hide it. All four events go on to the owner's
    /// other handlers.
    Tooltip(wxWindow* owner, const String& text);

    /// Milliseconds; below 1 counts as 1. Takes effect when the tooltip is armed next.
    void setDelay(long long ms);

    /// The text is laid out when it is to be shown, or asked for its lines: it is broken at line feeds, and at spaces
    /// where a line would otherwise be wider than 250 design pixels. A text without spaces stays on one line however
    /// wide it is. The empty text has no line and is never shown. A popup that is on the screen shows the new text at
    /// once, in its place.
    void setText(const String& text);

    /// The lines that the text was broken into.
    [[nodiscard]] ArrayView<const String> getLines() const;

    /// Shown by its owner, it stays where it is, and goes as it would otherwise.
    bool Show(bool show = true) override;

    /// A tooltip is for reading alone.
    [[nodiscard]] bool AcceptsFocus() const override { return false; }

private:
    void breakText() const;
    void fitToLines();
    void onPaint(wxPaintEvent& event);
    void onTimer(wxTimerEvent& event);
    void onArm(wxMouseEvent& event);
    void onHide(wxMouseEvent& event);

    wxWindow* _owner;
    String _text;
    mutable Array<String> _lines; ///< of the text, once it has been broken
    mutable bool _broken = false;
    wxTimer _timer;
    long long _delay = TOOLTIP_DELAY_MS;
    Array<Pixel> _lineExtents; ///< one for each line
};

/// Gives a window a tooltip. A window class derives from it beside its toolkit base, and passes itself.
class OSTREL_WX_API TooltipWindow {
public:
    /// No tooltip yet. `owner` must outlive this part of itself, as the window that derives from it does.
    explicit TooltipWindow(wxWindow* owner);
    TooltipWindow(const TooltipWindow&) = delete;
    TooltipWindow& operator=(const TooltipWindow&) = delete;

    /// Sets the text to show; the first call creates the tooltip.
    void setTooltip(const String& text);

    /// The tooltip, or null before the first `setTooltip`. The window owns it.
    [[nodiscard]] Tooltip* getTooltip() const { return _tooltip.get(); }

protected:
    ~TooltipWindow();

private:
    wxWeakRef<Tooltip> _tooltip;
    wxWindow* _owner;
};

} // namespace Ostrel::Wx
