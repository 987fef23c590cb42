#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/weakref.h>

#include <thread>
#include <utility>

namespace Ostrel::Gallery {

namespace {

using Icon = Wx::MessageDialogIcon;
using Helper = bool (*)(WindowHandle, const String&, const String&, Icon);

constexpr const char* LONG_MESSAGE =
    "The renderer has stopped because the scene asks for more memory than this machine has. Make the largest textures "
    "smaller, or render in tiles:\n\n\t1.\tOpen the settings of the camera.\n\t2.\tSwitch tiles on & choose 512 "
    "pixels.\n\nWhat has been rendered so far is kept.";
constexpr const char* WIDE_WORD_MESSAGE =
    "This file could not be read:\n/projects/2026/atrium/textures/floor/"
    "oiled-oak-herringbone-with-brass-inlay-displacement-16-bit-linear-tile-1001-version-27.tif";

class MessageDialogPage : public Page {
public:
    explicit MessageDialogPage(const PageContext& context)
        : Page(context, "Message dialog",
               "Messages in the library's look, with any native window as their owner. Keys answer as well as the "
               "buttons: Return or Enter for OK, Y and N, and Escape wherever there is a close box.") {
        _upload.enabled = false;
        const auto [left, right] = addColumns();
        addIcons(left);
        addControls(right);
        addMessages(left);
        addSpecimens(right);
    }

    ~MessageDialogPage() override {
        for (const wxWeakRef<Wx::MessageDialog>& dialog : _specimens) {
            delete dialog.get();
        }
    }

    void onPageShown(bool shown) override {
        if (!shown) {
            closeSpecimens();
        }
    }

    void arrangeForPicture() override { showSpecimens(); }

private:
    [[nodiscard]] WindowHandle owner() { return Wx::getWindowNativeHandle(wxGetTopLevelParent(this)); }

    void addButton(wxBoxSizer& row, const wxString& label, Function<void()> onClick) {
        constexpr int WIDTH = 90;
        addToRow(row, makeButton(label, std::move(onClick), Wx::Button::PUSH, WIDTH), GRID);
    }

    void addHelper(wxBoxSizer& row, const wxString& label, const wxString& name, Helper show, Icon icon,
                   const String& message) {
        addButton(row, label, [=, this] {
            const bool result = show(owner(), "Nimbra Renderer", message, icon);
            log().report(name, result ? "true" : "false");
        });
    }

    void addIcons(wxBoxSizer* column) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto add = [&](const wxString& label, Icon icon, const char* message) {
            addHelper(*row, label, "showOkDialog", Wx::showOkDialog, icon, message);
        };
        add("Error", Icon::ERROR_ICON, "The picture could not be saved: the disk is full.");
        add("Warning", Icon::WARNING, "Three textures are missing. Their objects are rendered grey.");
        add("Information", Icon::INFORMATION, "The picture has been rendered in 2 minutes and 41 seconds.");
        add("Question", Icon::QUESTION, "Is this the picture that you expected?");
        addSection("Icons", "They differ in shape as well as in colour.", column, COLUMN_WIDTH)->Add(row);
    }

    void addControls(wxBoxSizer* column) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addHelper(*row, "OK, Cancel", "showOkCancelDialog", Wx::showOkCancelDialog, Icon::WARNING,
                  "The scene has been changed by another program. It is read again.");
        addHelper(*row, "Yes, No", "showYesNoDialog", Wx::showYesNoDialog, Icon::QUESTION,
                  "Render the remaining frames tonight?");
        addButton(*row, "Own", [this] { showOwn(); });
        addButton(*row, "Off thread", [this] { showFromThread(); });
        addSection("Controls", "Off the main thread, the toolkit's own box stands in.", column, COLUMN_WIDTH)->Add(row);
    }

    void showOwn() {
        const Wx::MessageDialogControl* const controls[] = {&_save, &_discard, &_upload,
                                                            &Wx::MessageDialogButton::CANCEL};
        const int id = Detail::showMessageDialogImpl(owner(), "Unsaved changes",
                                                     "The scene \"Atrium\" has changes. Save them? Keys: S and D.",
                                                     Icon::QUESTION, controls);
        log().report("showMessageDialogImpl", id == _save.id      ? "Save"
                                              : id == _discard.id ? "Discard"
                                                                  : wxString::Format("control %d", id));
    }

    void showFromThread() {
        _thread = std::jthread([this, parent = owner()] {
            const bool result =
                Wx::showOkCancelDialog(parent, "Another thread", "A worker has a message.", Icon::INFORMATION);
            CallAfter([this, result] { log().report("showOkCancelDialog", result ? "true" : "false"); });
        });
    }

    void addMessages(wxBoxSizer* column) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto add = [&](const wxString& label, const String& message) {
            addHelper(*row, label, "showOkDialog", Wx::showOkDialog, Icon::INFORMATION, message);
        };
        add("Long", LONG_MESSAGE);
        add("A wide word", WIDE_WORD_MESSAGE);
        addHelper(*row, "No icon", "showOkDialog", Wx::showOkDialog, Icon::NO_ICON,
                  "Nothing stands at the left of this message.");
        add("Very long", [] {
            String text;
            for (int i = 0; i < 300; ++i) {
                text += "A message that is longer than the screen is high loses its end, never its buttons. ";
            }
            return text;
        }());
        addSection("Messages", "Lines are at most 450 pixels wide.", column, COLUMN_WIDTH)->Add(row);
    }

    void addSpecimens(wxBoxSizer* column) {
        constexpr int STAGE_HEIGHT = 288;
        const Wx::GuiSkin skin;
        _stage = new wxPanel(this, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(wxSize(CONTENT_WIDTH, STAGE_HEIGHT)),
                             wxBORDER_NONE);
        afterSkin([this, skin] { _stage->SetBackgroundColour(Wx::toWxColour(skin.darkGrey)); });
        auto* const section = addSection("Without waiting", "Shown with Show, a dialog destroys itself when it ends.",
                                         column, COLUMN_WIDTH);
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addButton(*row, "Show four", [this] { showSpecimens(); });
        addButton(*row, "Close them", [this] { closeSpecimens(); });
        section->Add(row);
        content().AddSpacer(Wx::scaleByDpi(3 * GRID));
        content().Add(_stage);
    }

    void showSpecimens() {
        closeSpecimens();
        const auto& ok = Wx::MessageDialogButton::OK;
        const auto& cancel = Wx::MessageDialogButton::CANCEL;
        const auto& icon = Wx::MessageDialogControl::FRAME_ICON;
        showSpecimen(0, 0, "Nimbra Renderer Error", "The picture could not be saved: the disk is full.",
                     Icon::ERROR_ICON, {&ok, &cancel, &icon});
        showSpecimen(1, 0, "Missing textures", "Three textures are missing.\nRender all the same?", Icon::WARNING,
                     {&Wx::MessageDialogButton::YES, &Wx::MessageDialogButton::NO, &icon});
        showSpecimen(0, 1, "Finished", "The picture has been rendered.\nIt took 2 minutes and 41 seconds.",
                     Icon::INFORMATION, {&ok, &icon});
        showSpecimen(1, 1, "Unsaved changes", "The scene \"Atrium\" has changes. Save them?", Icon::QUESTION,
                     {&_save, &_discard, &_upload, &cancel, &icon});
    }

    /// On the stage, which has two columns and two rows.
    void showSpecimen(int column, int row, const String& title, const String& message, Icon icon,
                      Stack<const Wx::MessageDialogControl*> controls) {
        auto* const dialog = new Wx::MessageDialog(owner(), title, message, icon, std::move(controls));
        const wxSize cell = _stage->GetClientSize() / 2;
        const wxSize size = dialog->GetSize();
        const wxPoint corner(column * cell.x + (cell.x - size.x) / 2, row * cell.y + (cell.y - size.y) / 2);
        dialog->Move(_stage->ClientToScreen(corner));
        dialog->ShowWithoutActivating();
        _specimens.emplace_back(dialog);
    }

    void closeSpecimens() {
        for (const wxWeakRef<Wx::MessageDialog>& dialog : std::exchange(_specimens, {})) {
            if (dialog) {
                dialog->Destroy();
            }
        }
    }

    Wx::MessageDialogButton _save{"Save", 'S'};
    Wx::MessageDialogButton _discard{"Discard", 'D'};
    Wx::MessageDialogButton _upload{"Upload", 'U'}; ///< disabled
    wxPanel* _stage{};
    Array<wxWeakRef<Wx::MessageDialog>> _specimens;
    std::jthread _thread;
};

const PageRegistration registration = registerPage<MessageDialogPage>(600, "Message dialog");

} // namespace

} // namespace Ostrel::Gallery
