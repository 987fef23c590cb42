#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/Skinnable.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include <wx/colour.h>

namespace Ostrel::Wx {

/// A text that acts as a link. It shows its hover colour and a hand while the mouse is over it, else its visited colour
/// if it was marked as visited, else its normal colour; grey while it is disabled. All three colours are the foreground
/// colour of its parent at first; `applySkinRecursive` sets the normal and the hover colour.
///
/// The left button's coming up over it is a click. So is Enter or Space while it has the focus, which Tab and
/// `moveFocus` give it; a click does not. A click does not mark the link as visited: its owner does.
class OSTREL_WX_API TextButton : public StaticText, public Focusable, public ILinkColours {
public:
    /// `onClick` may be empty, and may destroy the link. `pos` is in pixels of the screen, `size` in design pixels.
    TextButton(wxWindow* parent, int id, const String& text, const Function<void()>& onClick, const wxPoint& pos,
               const wxSize& size);

    /// A link that opens `url` in the user's browser.
    TextButton(wxWindow* parent, int id, const String& text, const String& url);

    /// Replaces what a click does. An empty callable: nothing.
    void setClickCallback(const Function<void()>& onClick);

    /// From now on a click opens `url` in the user's browser.
    void setHyperlink(const String& url);

    // A colour is shown at once if it is its turn.

    void setNormalColour(const wxColour& colour) override;
    void setHoverColour(const wxColour& colour) override;
    void setVisitedColour(const wxColour& colour);
    void setVisited(bool visited);
    [[nodiscard]] bool isVisited() const { return _visited; }

    [[nodiscard]] bool AcceptsFocus() const override { return true; }
    void SetFocus() override;

    void paint(wxDC& dc) const override;

private:
    void onLeftUp(wxMouseEvent& event);
    void onEnter(wxMouseEvent& event);
    void onLeave(wxMouseEvent& event);
    void onKey(wxKeyEvent& event);
    void onFocusChanged(wxFocusEvent& event);
    void click();
    void showColour();

    Function<void()> _onClick;
    wxColour _normalColour, _hoverColour, _visitedColour;
    bool _visited = false;
    bool _hovered = false;
};

} // namespace Ostrel::Wx
