#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>

#include "models/TextModel.h"

#include <wx/colour.h>
#include <wx/font.h>

class wxCursor;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

/// What is asked of the system's own labels and text fields. One implementation per platform.
namespace Ostrel::Detail {

// Positions. Points are those of the control's mouse events.

/// The position between two characters that is nearest to the point, in its line.
[[nodiscard]] int findTextPosition(const wxTextCtrl& text, Pixel point);

/// The line at that point.
[[nodiscard]] Wx::TextLine findTextLine(const wxTextCtrl& text, Pixel point);

/// Captures the mouse so that its events keep arriving at the control, with the same coordinates as before.
void captureTextMouse(wxTextCtrl& text);

/// Makes a new control ready for `captureTextMouse`, and has it show a new font or colour without a transition.
void prepareTextView(wxTextCtrl& text);

/// Gives the control the focus and leaves its selection alone.
void focusText(wxTextCtrl& text);

/// Shows the last line.
void scrollTextToBottom(wxTextCtrl& text);

/// Keeps what is seen of a text still while its contents change.
class TextUpdate {
public:
    /// Freezes the control where it would otherwise flicker. On Linux nothing is drawn before the next frame anyway,
    /// and the toolkit's freezing would forget what the view shows.
    explicit TextUpdate(wxTextCtrl& text);
    ~TextUpdate();
    TextUpdate(const TextUpdate&) = delete;
    TextUpdate& operator=(const TextUpdate&) = delete;

    /// Scrolls back to the lines that were shown at the beginning.
    void restoreView();

private:
    wxTextCtrl& _text;
    double _scrollPosition; ///< in lines on Windows, in pixels on Linux
    int _shownPosition = 0; ///< of a character that is shown; Linux
};

// Looks

/// Whether the system shows the window as enabled. A window behind a modal dialog is, whatever the toolkit says of it.
[[nodiscard]] bool looksEnabled(const wxWindow& window);

/// Shows the label as it stands, '&' included, aligned as the wxALIGN_… bits of the window's style say. True if the
/// label's size may have changed with it. On Windows the control paints its label itself, and nothing happens.
bool showLabelVerbatim(wxStaticText& label, const String& text);

// What the toolkit's `SetForegroundColour`, `SetBackgroundColour` and `SetFont` do. GTK's toolkit writes each window a
// style sheet of its own at every call, and reading it takes longer than making the window. Here, those that look alike
// share theirs.
bool setTextColour(wxStaticText& label, const wxColour& colour);
bool setTextColour(wxTextCtrl& text, const wxColour& colour);
bool setTextBackground(wxTextCtrl& text, const wxColour& colour);
bool setTextFont(wxStaticText& label, const wxFont& font);

/// The colour of the text while the window is disabled. On Windows the controls paint it themselves, and nothing
/// happens.
void setDisabledTextColour(wxWindow& window, const wxColour& colour);

/// Takes away what the desktop's theme adds around the text of a field, so that a field can be as low as a line.
/// Nothing on Windows.
void makeTextFieldCompact(wxTextCtrl& text);

// Input

/// Has a label notice the mouse's coming and going, if it does not yet. Windows' labels do already.
void makeLabelHearMouse(wxStaticText& label);

/// The cursor over the label alone. Needs `makeLabelHearMouse`.
void setLabelCursor(wxStaticText& label, const wxCursor& cursor);

/// Lets a label have the focus, and shows where it is. Windows' labels take it already; there they paint it themselves.
void makeLabelFocusable(wxStaticText& label);

/// Gives the focus to a label that was made focusable.
void focusLabel(wxStaticText& label);

/// Has the Tab key pass a window for which `AcceptsFocusFromKeyboard` is false, although a click may give it the focus.
/// Windows asks it anyway.
void makeTabAskWindow(wxWindow& window);

} // namespace Ostrel::Detail
