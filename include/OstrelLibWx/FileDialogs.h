#pragma once

#include <type_traits>

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

/// The system's own dialogs for files and folders, for a host that knows its window by the native handle alone.
///
/// `parent` is a window of any toolkit, in front of which the dialog stays; the host's top-level window is disabled
/// while the dialog is shown, and is left as it was found. With a null `parent` the dialog belongs to the library's
/// active window, if there is one. `title` is the dialog's caption.
///
/// `wildcard` is a list of descriptions and patterns, "Pictures|*.png;*.jpg|All files|*"; the first is in force. An
/// empty one lets all files through. It is the toolkit's to read, which fails an assertion over a malformed one.
///
/// All functions belong to the GUI thread and return when the dialog is closed; until then the events of other windows
/// are dispatched. Cancelling, closing and failing all give the empty result; nothing is reported. No path is checked
/// after the dialog.
///
/// On Linux a host's window that is not GTK's takes input while the dialog is shown, and files whose names are not
/// UTF-8 come back as an empty path.
namespace Ostrel::Wx {

/// How `filenameSaveDlg` treats the chosen name.
enum class FileSelect : unsigned {
    CONFIRM_OVERWRITE = 1, ///< ask before a file that exists is chosen
};

/// Asks for a file that exists.
/// @param initial the folder that is shown first and the name proposed in it. Empty: the system's choice, no name; the
///     same for a folder that does not exist
[[nodiscard]] OSTREL_WX_API Path filenameOpenDlg(WindowHandle parent, const String& title, const String& wildcard,
                                                 const Path& initial);

/// Asks for a name to save to. The library adds no extension to it; the dialog of Windows gives a name without one the
/// extension of the pattern in force.
/// @param initial as for `filenameOpenDlg`
[[nodiscard]] OSTREL_WX_API Path filenameSaveDlg(WindowHandle parent, const String& title, const String& wildcard,
                                                 Flags<FileSelect> flags, const Path& initial);

/// Asks for one or more files that exist.
/// @param initialDirectory the folder itself that is shown first
/// @return in the dialog's order; no element when cancelled
[[nodiscard]] OSTREL_WX_API Stack<Path> multiFilenameOpenDlg(WindowHandle parent, const String& title,
                                                             const String& wildcard, const Path& initialDirectory);

/// Asks for a folder, which the user may create.
/// @param initial the folder itself that is shown first
[[nodiscard]] OSTREL_WX_API Path dirSelectDlg(WindowHandle parent, const String& title, const Path& initial);

} // namespace Ostrel::Wx

namespace Ostrel {

template <>
struct IsFlag<Wx::FileSelect> : std::true_type {};

} // namespace Ostrel
