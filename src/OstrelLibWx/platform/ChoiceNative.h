#pragma once

class wxChoice;
class wxColour;

/// What is asked of the system's own choice. One implementation per platform.
namespace Ostrel::Detail {

/// Gives a choice, after its colours, the look of the controls around it. The systems' own are bright buttons, and
/// GTK's is higher than a line.
void dressChoice(wxChoice& choice, const wxColour& background, const wxColour& foreground, const wxColour& frame);

} // namespace Ostrel::Detail
