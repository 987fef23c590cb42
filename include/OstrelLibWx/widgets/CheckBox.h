#pragma once

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Skinnable.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/control.h>

namespace Ostrel::Wx {

/// A box with a tick and a label at its right, for a value that is true or false. It begins with the default skin;
/// `applySkin` gives it another.
///
/// A click inverts the value: the left button's going down and coming up over the control (each click of a
/// double-click is one), or Space pressed and released while it has the focus, which a press, Tab and `moveFocus` give
/// it. A press ends without a click when the mouse is released elsewhere or taken away, when the focus goes while
/// Space is down, and when the control or a parent of it is disabled.
class OSTREL_WX_API CheckBox : public SkinnableMixin<wxControl>, public Focusable, public TooltipWindow {
public:
    /// @param label shown as it stands, on one line: '&' is an ordinary character. May be empty
    /// @param pos in pixels of the screen
    /// @param size in design pixels; a component of -1 is as large as box and label need
    /// @param onToggle called with the new value after each click; see `setToggleCallback`
    CheckBox(wxWindow* parent, int id, const String& label, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, bool value = false, Function<void(bool)> onToggle = {});

    /// Releases the mouse if it is held.
    ~CheckBox() override;

    /// A value that is no change does nothing. With `notify`, a change calls the callback as a click does.
    void setValue(bool value, bool notify);
    [[nodiscard]] bool getValue() const;

    /// Replaces what is told of changes. It may destroy the check box. An empty callable: nobody.
    void setToggleCallback(Function<void(bool)> onToggle);

    /// Changes what the best size is, and leaves the size to the layout.
    void SetLabel(const wxString& label) override;
    [[nodiscard]] wxString GetLabel() const override;

    bool SetFont(const wxFont& font) override;

    /// Disabling cancels a press.
    bool Enable(bool enable = true) override;

    /// Draws the control as it is now, at its present size, onto a screen's or a bitmap's device context.
    void paint(wxDC& dc) const;

    [[nodiscard]] bool AcceptsFocus() const override { return true; }

protected:
    [[nodiscard]] wxSize DoGetBestSize() const override;

private:
    struct Impl;

    void measureLabel();
    void updateLayout();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
