#pragma once

class wxChoice;
class wxColour;

/// What is asked of the system's own choice. One implementation per platform.
namespace Ostrel::Detail {

/// Gives a choice, after its colours, the look of the controls around it: GTK's own is a bright button that lets the
/// colours through in its middle alone, and higher than a line. Windows' choice has its own look, and nothing happens.
void dressChoice(wxChoice& choice, const wxColour& background, const wxColour& foreground, const wxColour& frame);

} // namespace Ostrel::Detail
