#include "platform/TextNative.h"

#include <windows.h>

#include <wx/cursor.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace Ostrel::Detail {

namespace {

int send(const wxTextCtrl& text, UINT message, WPARAM first = 0, LPARAM second = 0) {
    return static_cast<int>(SendMessageW(static_cast<HWND>(text.GetHandle()), message, first, second));
}

struct Hit {
    int line;
    int position;
};

Hit hitTest(const wxTextCtrl& text, Pixel point) {
    const int answer = send(text, EM_CHARFROMPOS, 0, MAKELPARAM(point.x, point.y));
    if (answer == -1) {
        return {0, 0}; // a control without an area has no point inside
    }
    // A single line's "first visible line" is its first visible character.
    const int firstVisible = text.IsMultiLine() ? send(text, EM_GETFIRSTVISIBLELINE) : 0;
    const int line = text.IsMultiLine() ? Wx::widenIndex(HIWORD(answer), firstVisible) : 0;
    return {line, Wx::widenIndex(LOWORD(answer), send(text, EM_LINEINDEX, static_cast<WPARAM>(line)))};
}

} // namespace

int findTextPosition(const wxTextCtrl& text, Pixel point) {
    return hitTest(text, point).position;
}

Wx::TextLine findTextLine(const wxTextCtrl& text, Pixel point) {
    const int line = hitTest(text, point).line;
    Wx::TextLine found{send(text, EM_LINEINDEX, static_cast<WPARAM>(line)), {}};
    if (line + 1 < send(text, EM_GETLINECOUNT)) {
        found.next = send(text, EM_LINEINDEX, static_cast<WPARAM>(line) + 1);
    }
    return found;
}

void captureTextMouse(wxTextCtrl& text) {
    text.CaptureMouse();
}

void prepareTextView(wxTextCtrl&) {}

void focusText(wxTextCtrl& text) {
    text.SetFocus();
}

void scrollTextToBottom(wxTextCtrl& text) {
    send(text, WM_VSCROLL, SB_BOTTOM);
}

TextUpdate::TextUpdate(wxTextCtrl& text)
    : _text(text)
    , _scrollPosition(0) {
    _text.Freeze();
    _scrollPosition = send(_text, EM_GETFIRSTVISIBLELINE);
}

TextUpdate::~TextUpdate() {
    _text.Update();
    _text.Thaw();
}

void TextUpdate::restoreView() {
    if (_text.IsMultiLine()) {
        const int lines = static_cast<int>(_scrollPosition) - send(_text, EM_GETFIRSTVISIBLELINE);
        send(_text, EM_LINESCROLL, 0, lines);
    }
}

bool looksEnabled(const wxWindow& window) {
    return IsWindowEnabled(static_cast<HWND>(window.GetHandle())) != FALSE;
}

bool showLabelVerbatim(wxStaticText&, const String&) {
    return false;
}

bool setTextColour(wxStaticText& label, const wxColour& colour) {
    return label.wxStaticText::SetForegroundColour(colour);
}

bool setTextColour(wxTextCtrl& text, const wxColour& colour) {
    return text.wxTextCtrl::SetForegroundColour(colour);
}

bool setTextBackground(wxTextCtrl& text, const wxColour& colour) {
    return text.wxTextCtrl::SetBackgroundColour(colour);
}

bool setTextFont(wxStaticText& label, const wxFont& font) {
    return label.wxStaticText::SetFont(font);
}

void setDisabledTextColour(wxWindow&, const wxColour&) {}

void makeTextFieldCompact(wxTextCtrl&) {}

void makeLabelHearMouse(wxStaticText&) {}

void setLabelCursor(wxStaticText& label, const wxCursor& cursor) {
    label.SetCursor(cursor);
}

void makeLabelFocusable(wxStaticText&) {}

void focusLabel(wxStaticText& label) {
    label.wxStaticText::SetFocus();
}

void makeTabAskWindow(wxWindow&) {}

} // namespace Ostrel::Detail
