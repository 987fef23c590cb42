#include <OstrelLibWx/widgets/TextCtrl.h>

#include "models/TextModel.h"
#include "platform/TextNative.h"

namespace Ostrel::Wx {

namespace {

constexpr long RICH_STYLES = wxTE_RICH | wxTE_RICH2 | wxTE_AUTO_URL;

} // namespace

TextCtrl::TextCtrl(wxWindow* parent, int id, const wxString& value, const wxPoint& pos, const wxSize& size, long style)
    : wxTextCtrl(parent, id, wxString(replaceUnshowable(value.ToStdWstring())), pos, size, style & ~RICH_STYLES) {
    Detail::prepareTextView(*this);
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {}); // no erasing: it would flicker
    Bind(wxEVT_LEFT_DOWN, &TextCtrl::onLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &TextCtrl::onLeftDoubleClick, this);
    Bind(wxEVT_LEFT_UP, &TextCtrl::onLeftUp, this);
    Bind(wxEVT_MOTION, &TextCtrl::onMotion, this);
    Bind(wxEVT_ENTER_WINDOW, &TextCtrl::onEnter, this);
    Bind(wxEVT_KEY_DOWN, &TextCtrl::onKeyDown, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { releaseCapture(); });
}

TextCtrl::~TextCtrl() {
    releaseCapture();
}

void TextCtrl::AppendText(const wxString& text) {
    Detail::TextUpdate update(*this);
    const int oldEnd = static_cast<int>(GetLastPosition());
    long from = 0;
    long to = 0;
    GetSelection(&from, &to);
    wxTextCtrl::AppendText(wxString(replaceUnshowable(text.ToStdWstring())));
    if (followsAppendedText(HasFocus(), {static_cast<int>(from), static_cast<int>(to)}, oldEnd)) {
        const long end = GetLastPosition();
        SetSelection(end, end);
        Detail::scrollTextToBottom(*this);
    } else {
        SetSelection(from, to);
        update.restoreView();
    }
}

void TextCtrl::onLeftDown(wxMouseEvent& event) {
    _anchor = Detail::findTextPosition(*this, {event.GetX(), event.GetY()});
    SetSelection(_anchor, _anchor);
    Detail::focusText(*this);
    _selecting = true;
    if (!HasCapture()) {
        Detail::captureTextMouse(*this);
    }
}

void TextCtrl::onLeftDoubleClick(wxMouseEvent& event) {
    const TextLine line = Detail::findTextLine(*this, {event.GetX(), event.GetY()});
    const TextRange range = selectLine(line, static_cast<int>(GetLastPosition()));
    SetSelection(range.from, range.to);
}

void TextCtrl::onLeftUp(wxMouseEvent&) {
    _selecting = false;
    releaseCapture();
}

void TextCtrl::onMotion(wxMouseEvent& event) {
    if (!_selecting) {
        event.Skip();
        return;
    }
    const wxSize size = GetClientSize();
    const Pixel mouse = clampDragPoint({event.GetX(), event.GetY()}, {size.x, size.y});
    SetSelection(_anchor, Detail::findTextPosition(*this, mouse));
}

void TextCtrl::onEnter(wxMouseEvent& event) {
    if (!event.LeftIsDown()) {
        _selecting = false;
    }
    event.Skip();
}

void TextCtrl::onKeyDown(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if ((key == 'A' || key == 'a') && event.ControlDown()) {
        SetSelection(0, -1);
    } else if (key == WXK_TAB && !event.ControlDown() && !event.AltDown() && !HasFlag(wxTE_PROCESS_TAB)) {
        // The system's own navigation may come after this, and would then not see the key.
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
    }
    // Not skipped, whatever the key: the control is a viewer.
}

void TextCtrl::releaseCapture() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

} // namespace Ostrel::Wx
