#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/dialog.h>

#include <cstdint>

/// Message boxes in the library's look. The owner of a dialog is any native window; without one (a null handle) the
/// dialog has no owner and appears in the middle of a monitor.
///
/// `showOkDialog`, `showOkCancelDialog` and `showYesNoDialog` cover the common cases; `Detail::showMessageDialogImpl`
/// takes any set of controls; `MessageDialog` itself can also be shown without waiting.
namespace Ostrel::Wx {

/// One thing that can end a message dialog. It has to outlive the dialogs that it is given to.
///
/// Construct controls on one thread, the main one: the counter behind `id` is not guarded.
class OSTREL_WX_API MessageDialogControl : public Polymorphic {
public:
    /// A control that is no button, and is triggered by these keys.
    explicit MessageDialogControl(Stack<int> codes = {});
    MessageDialogControl(const MessageDialogControl&) = delete;
    MessageDialogControl& operator=(const MessageDialogControl&) = delete;
    ~MessageDialogControl() override;

    /// The keys that trigger this control in a dialog that is made now.
    [[nodiscard]] virtual Stack<int> keyCodesToBind() const;

    /// What a dialog returns that this control ended. Unique: one counter for all controls, from 15999 on; a host's
    /// controls start at 16006.
    const std::int32_t id;
    /// The toolkit's key codes: WXK_… or a capital letter.
    Stack<int> keyCodes;

    /// Not acted on by the dialog itself. Id 15999.
    static const MessageDialogControl OUTSIDE_CLOSE;
    /// The title bar's close box, and Escape. Id 16000.
    static const MessageDialogControl FRAME_CLOSE;
    /// The title bar's icon and system menu. Id 16001.
    static const MessageDialogControl FRAME_ICON;
};

/// A button of a message dialog.
class OSTREL_WX_API MessageDialogButton : public MessageDialogControl {
public:
    MessageDialogButton(String buttonLabel, int keyCode);
    MessageDialogButton(String buttonLabel, Stack<int> buttonKeyCodes);
    ~MessageDialogButton() override;

    /// None while the button is disabled.
    [[nodiscard]] Stack<int> keyCodesToBind() const override;

    /// Shown as it stands: '&' is an ordinary character.
    String label;
    /// A disabled button is shown, and answers neither to the mouse nor to its keys. For dialogs made from now on.
    bool enabled = true;

    /// "OK"; Return and the numeric pad's Enter. Id 16002.
    static const MessageDialogButton OK;
    /// "Cancel"; no key of its own, but a dialog that has it can be closed, by Escape too. Id 16003.
    static const MessageDialogButton CANCEL;
    /// "Yes"; Y. Id 16004.
    static const MessageDialogButton YES;
    /// "No"; N. Id 16005.
    static const MessageDialogButton NO;
};

/// The picture beside the message.
enum class MessageDialogIcon : int {
    NO_ICON = 0,
    ERROR_ICON = 1,
    WARNING = 2,
    INFORMATION = 3,
    QUESTION = 4,
};

/// The dialog. It is built for the main thread, as every window.
///
/// It lies over the middle of its owner, or in the middle of the work area of the monitor it is on, and always wholly
/// on the work area if it fits there. Lines of the message are at most 450 design pixels wide; a tab is four blanks,
/// and a word wider than that is broken. Of a message too long for the screen the end is cut off; the buttons stay.
/// A value of `icon` that is not in the enumeration shows no icon.
///
/// The dialog ends by a click on a button, by a key that is bound to a control (modifiers do not matter), or by a
/// request to close it, which counts as FRAME_CLOSE even where that is not among the controls. What comes first counts,
/// and the id of that control is the return code. Shown with `ShowModal`, the dialog then returns it; the toolkit's
/// other windows are disabled meanwhile, a host's own are not. Shown with `Show`, the dialog stores it
/// (`GetReturnCode`) and destroys itself (`Destroy`): such a dialog is made with `new`.
class OSTREL_WX_API MessageDialog : public wxDialog {
public:
    /// Buttons stand in the order of `controls`, which may hold each control once. FRAME_CLOSE gives the title bar a
    /// close box and is added if CANCEL is there without it; FRAME_ICON gives it the product's icon and a system menu.
    /// A dialog with neither of the two and an empty title has no title bar. Where several controls have a key in
    /// common, it is the last one's.
    MessageDialog(WindowHandle parent, const String& title, String message, MessageDialogIcon icon,
                  Stack<const MessageDialogControl*> controls);
    ~MessageDialog() override;

    int ShowModal() override;
    void EndModal(int returnCode) override;

private:
    struct Impl;

    void create(WindowHandle parent, const String& title, String message, MessageDialogIcon icon,
                Stack<const MessageDialogControl*> controls);
    void addRows(const String& message, MessageDialogIcon icon, ArrayView<const MessageDialogControl* const> controls);
    void place();
    void end(int id);
    void onKey(wxKeyEvent& event);

    AutoPtr<Impl> _impl;
};

/// Shows a message with the button OK, waits, and tells whether OK ended it. False after Escape and the close box.
/// For the thread, see `Detail::showMessageDialogImpl`.
OSTREL_WX_API bool showOkDialog(WindowHandle parent, const String& title, const String& message,
                                MessageDialogIcon icon);

/// The same with OK and Cancel: true for OK.
OSTREL_WX_API bool showOkCancelDialog(WindowHandle parent, const String& title, const String& message,
                                      MessageDialogIcon icon);

/// The same with Yes and No: true for Yes. There is no close box, and Escape does nothing.
OSTREL_WX_API bool showYesNoDialog(WindowHandle parent, const String& title, const String& message,
                                   MessageDialogIcon icon);

} // namespace Ostrel::Wx

namespace Ostrel::Detail {

/// Shows a `Wx::MessageDialog` with these controls and FRAME_ICON, modally.
///
/// Called off the main thread, it shows the toolkit's own message box instead, with as many of OK, Cancel, and Yes and
/// No together as there are among the controls, and disables the parent's window meanwhile; the toolkit's box itself
/// disables the library's windows, with a parent or without. On Windows it is shown on the calling thread. On Linux it
/// is shown by the main thread, which has to be in an event loop or to run one soon; the call waits until the box is
/// closed. On both, the main thread must not wait for the calling one meanwhile.
/// @return the id of the control that ended the dialog
/// @throws StopException of the message box alone: at `MessageDialog`:332 for an unknown icon, at `MessageDialog`:367
///     for a result that no control stands for
/// @throws std::future_error of the message box on Linux, when the library goes down before it has been shown
OSTREL_WX_API int showMessageDialogImpl(WindowHandle parent, const String& title, const String& message,
                                        Wx::MessageDialogIcon icon,
                                        ArrayView<const Wx::MessageDialogControl* const> controls);

} // namespace Ostrel::Detail
