#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

namespace Ostrel::Wx {

/// A panel on which a point is dragged with the left button: it captures and releases the mouse, and takes the focus
/// with a press, so that a text that is being typed elsewhere is set first. It takes no focus from the keyboard.
///
/// Exported for the library's own tests alone, as the classes made of it.
class OSTREL_WX_API DragPanel : public PaintedPanel {
public:
    /// Releases the mouse if it is held.
    ~DragPanel() override;

    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    /// The left button went down; before the point moves. May be empty, and so may the next. Either may destroy the
    /// control.
    Function<void(wxMouseEvent&)> onMousePressed;
    /// It came up, or the mouse was taken away.
    Function<void()> onMouseReleased;

protected:
    /// @param size in design pixels
    DragPanel(wxWindow* parent, wxSize size, const wxString& name);

    /// The pointer has been pressed or dragged there, in client coordinates, beyond the window too. May destroy the
    /// control.
    virtual void moveTo(wxPoint mouse) = 0;

private:
    void onLeftDown(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void end();
};

} // namespace Ostrel::Wx
