#include <OstrelLibWx/widgets/TextButton.h>

#include "models/TextModel.h"
#include "painting/MarkPainting.h"
#include "painting/ToolkitTypes.h"
#include "platform/TextNative.h"

#include <wx/cursor.h>
#include <wx/dc.h>
#include <wx/utils.h>

namespace Ostrel::Wx {

namespace {

Function<void()> makeBrowserCallback(const String& url) {
    return [url = toWx(url)] { wxLaunchDefaultBrowser(url, 0); };
}

} // namespace

TextButton::TextButton(wxWindow* parent, int id, const String& text, const Function<void()>& onClick,
                       const wxPoint& pos, const wxSize& size)
    : StaticText(parent, id, text, 0, {}, size)
    , _onClick(onClick)
    , _normalColour(GetForegroundColour())
    , _hoverColour(_normalColour)
    , _visitedColour(_normalColour) {
    Move(pos);
    Detail::makeLabelFocusable(*this);
    Bind(wxEVT_LEFT_UP, &TextButton::onLeftUp, this);
    Bind(wxEVT_ENTER_WINDOW, &TextButton::onEnter, this);
    Bind(wxEVT_LEAVE_WINDOW, &TextButton::onLeave, this);
    // Before the key is taken for a dialog's default button.
    Bind(wxEVT_CHAR_HOOK, &TextButton::onKey, this);
    Bind(wxEVT_SET_FOCUS, &TextButton::onFocusChanged, this);
    Bind(wxEVT_KILL_FOCUS, &TextButton::onFocusChanged, this);
}

TextButton::TextButton(wxWindow* parent, int id, const String& text, const String& url)
    : TextButton(parent, id, text, makeBrowserCallback(url), wxDefaultPosition, wxDefaultSize) {}

void TextButton::setClickCallback(const Function<void()>& onClick) {
    _onClick = onClick;
}

void TextButton::setHyperlink(const String& url) {
    _onClick = makeBrowserCallback(url);
}

void TextButton::setNormalColour(const wxColour& colour) {
    _normalColour = colour;
    showColour();
}

void TextButton::setHoverColour(const wxColour& colour) {
    _hoverColour = colour;
    showColour();
}

void TextButton::setVisitedColour(const wxColour& colour) {
    _visitedColour = colour;
    showColour();
}

void TextButton::setVisited(bool visited) {
    _visited = visited;
    showColour();
}

void TextButton::SetFocus() {
    Detail::focusLabel(*this);
}

void TextButton::paint(wxDC& dc) const {
    StaticText::paint(dc);
    if (HasFocus()) {
        const wxSize size = GetClientSize();
        paintFocusFrame(dc, {{0, 0}, {size.x, size.y}}, GetForegroundColour());
    }
}

void TextButton::onLeftUp(wxMouseEvent&) {
    if (Detail::looksEnabled(*this)) { // on Linux the mouse is heard all the same
        click();
    }
}

void TextButton::onEnter(wxMouseEvent& event) {
    _hovered = true;
    Detail::setLabelCursor(*this, wxCursor(wxCURSOR_HAND));
    showColour();
    event.Skip();
}

void TextButton::onLeave(wxMouseEvent& event) {
    _hovered = false;
    showColour();
    event.Skip();
}

void TextButton::onKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (event.HasAnyModifiers() || (key != WXK_RETURN && key != WXK_NUMPAD_ENTER && key != WXK_SPACE)) {
        event.Skip();
        return;
    }
    click();
}

void TextButton::onFocusChanged(wxFocusEvent& event) {
    Refresh();
    event.Skip();
}

void TextButton::click() {
    if (_onClick) {
        // The callable may destroy the link, and with it the one that is kept.
        const Function<void()> onClick = _onClick;
        onClick();
    }
}

void TextButton::showColour() {
    switch (LinkState{_visited, _hovered}.getLook()) {
    case LinkLook::NORMAL:
        SetForegroundColour(_normalColour);
        break;
    case LinkLook::HOVERED:
        SetForegroundColour(_hoverColour);
        break;
    case LinkLook::VISITED:
        SetForegroundColour(_visitedColour);
        break;
    }
    Refresh();
}

} // namespace Ostrel::Wx
