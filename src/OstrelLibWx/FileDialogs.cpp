#include <OstrelLibWx/FileDialogs.h>

#include <wx/dirdlg.h>
#include <wx/filedlg.h>

#include <OstrelLib/Application.h>

#include "DialogParentWrapper.h"
#include "painting/ToolkitTypes.h"
#include "platform/DialogOwner.h"

namespace Ostrel::Wx {

namespace {

Path toPath(const wxString& path) {
    return Path(String(path.ToStdWstring()));
}

/// Whether the user accepted the dialog.
bool showModal(wxDialog& dialog, WindowHandle parent) {
    int answer = wxID_CANCEL;
    {
        const WindowDisabler disabler(parent);
        answer = dialog.ShowModal();
    }
    Detail::reactivateOwner(parent);
    return answer == wxID_OK;
}

Path askForFile(WindowHandle parent, const String& title, const String& wildcard, const Path& initial, long style) {
    Fallback::DialogParentWrapper wrapper(parent);
    wxFileDialog dialog(&wrapper, toWx(title), toWx(initial.parentDirectory().nativeStr()), toWx(initial.fileName()),
                        toWx(wildcard), style);
    return showModal(dialog, parent) ? toPath(dialog.GetPath()) : Path();
}

} // namespace

Path filenameOpenDlg(WindowHandle parent, const String& title, const String& wildcard, const Path& initial) {
    return askForFile(parent, title, wildcard, initial, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
}

Path filenameSaveDlg(WindowHandle parent, const String& title, const String& wildcard, Flags<FileSelect> flags,
                     const Path& initial) {
    const long confirm = flags.has(FileSelect::CONFIRM_OVERWRITE) ? wxFD_OVERWRITE_PROMPT : 0;
    return askForFile(parent, title, wildcard, initial, wxFD_SAVE | confirm);
}

Stack<Path> multiFilenameOpenDlg(WindowHandle parent, const String& title, const String& wildcard,
                                 const Path& initialDirectory) {
    Fallback::DialogParentWrapper wrapper(parent);
    wxFileDialog dialog(&wrapper, toWx(title), toWx(initialDirectory.nativeStr()), wxString(), toWx(wildcard),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE);
    Stack<Path> paths;
    if (showModal(dialog, parent)) {
        wxArrayString names;
        dialog.GetPaths(names);
        for (const wxString& name : names) {
            paths.push_back(toPath(name));
        }
    }
    return paths;
}

Path dirSelectDlg(WindowHandle parent, const String& title, const Path& initial) {
    Fallback::DialogParentWrapper wrapper(parent);
    wxDirDialog dialog(&wrapper, toWx(title), toWx(initial.nativeStr()), wxDD_DEFAULT_STYLE);
    return showModal(dialog, parent) ? toPath(dialog.GetPath()) : Path();
}

} // namespace Ostrel::Wx
