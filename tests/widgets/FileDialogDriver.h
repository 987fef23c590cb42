#pragma once

#include <memory>

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

class wxUIActionSimulator;

/// What a test sees and does of the system's own dialogs and of a host that is not made with the toolkit.
/// One implementation per platform.
namespace FileDialogDriver {

/// The host's window: shown, with a text field that has the focus whenever the window is active.
class Host {
public:
    Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    [[nodiscard]] Ostrel::WindowHandle handle() const;
    [[nodiscard]] bool isEnabled() const;
    [[nodiscard]] bool isActive() const;

    /// What has been typed into it.
    [[nodiscard]] Ostrel::String getText() const;

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};

/// The file or folder dialog with this caption once it is shown and has the keyboard; null before.
Ostrel::WindowHandle findDialog(const Ostrel::String& title);

/// How many files and folders the dialog lists.
int countListed(Ostrel::WindowHandle dialog);

/// The name that the dialog would take now.
Ostrel::String getName(Ostrel::WindowHandle dialog);

/// Goes to where names are typed, if the dialog is not there already.
void enterNameField(Ostrel::WindowHandle dialog, wxUIActionSimulator& input);
bool isInNameField(Ostrel::WindowHandle dialog);

/// Picks all listed files; `names` are theirs. True once they are picked.
Ostrel::Function<bool()> pickAll(Ostrel::WindowHandle dialog, const Ostrel::Array<Ostrel::String>& names,
                                 wxUIActionSimulator& input);

/// Whether the dialog has noticed that it can be accepted: GTK enables its button a while after a name is typed.
bool canAccept(Ostrel::WindowHandle dialog);

/// Presses Escape as often as it takes.
void cancel(Ostrel::WindowHandle dialog, wxUIActionSimulator& input);

/// Whether the dialog has put a message in front of itself, which has the keyboard.
bool hasMessage(Ostrel::WindowHandle dialog);

/// Refuses what the message asks.
void refuseMessage(wxUIActionSimulator& input);

/// Closes whatever dialogs are open, so that a test that has failed ends.
void closeAll();

} // namespace FileDialogDriver
