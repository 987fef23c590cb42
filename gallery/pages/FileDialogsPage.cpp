#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/WindowUtils.h>

namespace Ostrel::Gallery {

namespace {

constexpr const char* WILDCARD = "Pictures|*.png;*.jpg;*.jpeg;*.tif;*.tiff;*.bmp;*.gif|All files|*";
constexpr const char* NO_ANSWER = "Not asked yet";

/// The system's dialogs, asked for by the native handle of the gallery's window, as any host would.
class FileDialogsPage : public Page {
public:
    explicit FileDialogsPage(const PageContext& context)
        : Page(context, "Files and folders",
               "The system's own dialogs, owned by a window that is given by its native handle; that window is "
               "disabled meanwhile. Here it is the gallery's. A cancelled dialog answers nothing, and the next one "
               "begins where the last answer was.") {
        addOpening();
        addSaving();
        addFolder();
    }

private:
    void addOpening() {
        auto* const section = addSection("Open", "filenameOpenDlg and multiFilenameOpenDlg: only files that exist.");
        addQuestion(*section, "One file...", "filenameOpenDlg", [this] {
            const Path file = Wx::filenameOpenDlg(owner(), "Open a picture", WILDCARD, _last);
            return Stack<Path>(file.isEmpty() ? 0 : 1, file);
        });
        addQuestion(*section, "Several files...", "multiFilenameOpenDlg", [this] {
            return Wx::multiFilenameOpenDlg(owner(), "Open pictures", WILDCARD, _last.parentDirectory());
        });
    }

    void addSaving() {
        auto* const section = addSection("Save", "filenameSaveDlg gives a name; nothing is written.");
        _confirm = makeButton("Confirm overwriting", {}, Wx::Button::TOGGLE, BUTTON_WIDTH);
        afterSkin([this] { _confirm->setToggled(true); });
        addQuestion(*section, "Save as...", "filenameSaveDlg", [this] {
            Flags<Wx::FileSelect> flags;
            flags.set(Wx::FileSelect::CONFIRM_OVERWRITE, _confirm->isToggled());
            const Path file = Wx::filenameSaveDlg(owner(), "Save the picture", WILDCARD, flags,
                                                  _last.parentDirectory() / "picture.png");
            return Stack<Path>(file.isEmpty() ? 0 : 1, file);
        });
        section->AddSpacer(Wx::scaleByDpi(GRID));
        section->Add(_confirm);
    }

    void addFolder() {
        auto* const section = addSection("Folder", "dirSelectDlg");
        addQuestion(*section, "A folder...", "dirSelectDlg", [this] {
            const Path folder = Wx::dirSelectDlg(owner(), "Choose a folder", _last.parentDirectory());
            return Stack<Path>(folder.isEmpty() ? 0 : 1, folder);
        });
    }

    /// A button that asks, and the answer beside it.
    void addQuestion(wxBoxSizer& section, const wxString& label, const char* function, Function<Stack<Path>()> ask) {
        auto* const answer = makeText(TextRole::BODY, NO_ANSWER);
        auto* const button = makeButton(
            label,
            [this, answer, function, ask = std::move(ask)] {
                const Stack<Path> paths = ask();
                wxString text;
                for (const Path& path : paths) {
                    text += (text.empty() ? "" : "\n") + wxString(path.nativeStr().toWide());
                }
                answer->SetLabelText(paths.empty() ? wxString("Cancelled") : text);
                if (!paths.empty()) {
                    _last = paths.front();
                }
                log().report(function, wxString::Format("%zu answered", paths.size()));
                Layout();
            },
            Wx::Button::PUSH, BUTTON_WIDTH);
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(button);
        row->AddSpacer(Wx::scaleByDpi(2 * GRID));
        row->Add(answer, wxSizerFlags().CenterVertical());
        section.Add(row, wxSizerFlags().Border(wxTOP, Wx::scaleByDpi(GRID)));
    }

    WindowHandle owner() { return Wx::getWindowNativeHandle(wxGetTopLevelParent(this)); }

    static constexpr int BUTTON_WIDTH = 152;

    Wx::Button* _confirm{};
    Path _last; ///< the answer before
};

const PageRegistration registration = registerPage<FileDialogsPage>(820, "Files and folders");

} // namespace

} // namespace Ostrel::Gallery
