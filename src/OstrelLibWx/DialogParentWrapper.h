#pragma once

#include <OstrelLib/Geometry.h>

#include <wx/window.h>

namespace Ostrel::Fallback {

/// Lets one of the toolkit's own dialogs have a window of the host as its parent. It takes the host's native window for
/// its own as long as it lives and gives it back unharmed: the window is neither hooked nor resized nor destroyed.
///
/// Make it on the stack, give its address to the dialog as the parent, and let the dialog go first:
///
///     Fallback::DialogParentWrapper wrapper(parent);
///     wxFileDialog dialog(&wrapper, …);
///     const WindowDisabler disabler(parent);
///     const int result = dialog.ShowModal();
///
/// On Linux the dialog is made transient for the host's window, whichever program or toolkit that belongs to.
class DialogParentWrapper : public wxWindow {
public:
    /// A handle that is null or no window's makes a wrapper of nothing: a dialog takes none for a parent but looks for
    /// a window of the toolkit's. Give the dialog a null parent instead of wrapping a null handle.
    explicit DialogParentWrapper(WindowHandle window);
    DialogParentWrapper(const DialogParentWrapper&) = delete;
    DialogParentWrapper& operator=(const DialogParentWrapper&) = delete;

    /// Lets go of the host's window before the toolkit destroys what it believes to own.
    ~DialogParentWrapper() override;

    /// True while it wraps a window: the toolkit lets top-level windows alone be the parents of dialogs.
    [[nodiscard]] bool IsTopLevel() const override { return GetHandle() != nullptr; }
};

} // namespace Ostrel::Fallback
