#pragma once

class wxTopLevelWindow;

/// What a dropdown's window needs of the system and the toolkit does not do.
namespace Ostrel::Detail {

/// Lets a top-level window that is about to be shown take input although it belongs to a modal dialog. GTK hands all
/// input of a program to the modal dialog except what goes to windows of another group; on Windows there is nothing to
/// do.
void letTakeInputBesideModalDialog(wxTopLevelWindow& window);

} // namespace Ostrel::Detail
