#pragma once

#include <OstrelLibWx/Export.h>

#include <wx/panel.h>

class wxDC;

namespace Ostrel {

/// A panel that paints all of itself, buffered and without erasing first, which would flicker.
class OSTREL_WX_API PaintedPanel : public wxPanel {
public:
    /// Draws all that the control shows, at its present size and in its present state, onto a screen's or a bitmap's
    /// device context.
    virtual void paint(wxDC& dc) const = 0;

    /// Both colours are kept for `paint`; controls made in the panel later take over the foreground. The native window
    /// is not told of them: it shows nothing of its own, and GTK resolves a style sheet for every window that has
    /// colours. `applySkinRecursive` gives them to what is in the panel already.
    bool SetBackgroundColour(const wxColour& colour) override;
    bool SetForegroundColour(const wxColour& colour) override;

protected:
    /// As wxPanel's.
    PaintedPanel(wxWindow* parent, int id, wxPoint position, wxSize size, long style, const wxString& name);
};

} // namespace Ostrel
