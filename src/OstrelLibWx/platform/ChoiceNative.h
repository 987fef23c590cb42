#pragma once

class wxChoice;
class wxRadioButton;

namespace Ostrel::Wx {
struct GuiSkin;
}

/// What is asked of the system's own controls for a choice of several. One implementation per platform.
namespace Ostrel::Detail {

/// Gives a choice the skin's look. The systems' own are bright buttons, and GTK's is higher than a line.
void dressChoice(wxChoice& choice, const Wx::GuiSkin& skin);

/// Gives a radio button, whose size is left to its label, the skin's look.
void dressRadioButton(wxRadioButton& button, const Wx::GuiSkin& skin);

} // namespace Ostrel::Detail
