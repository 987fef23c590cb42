#include "EventLog.h"
#include "Page.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>

#include <wx/weakref.h>

namespace Ostrel::Gallery {

namespace {

using Dialog = Wx::ImageSaveSettingsDialog;

class ImageSaveSettingsDialogPage : public Page {
public:
    explicit ImageSaveSettingsDialogPage(const PageContext& context)
        : Page(context, "Image save settings",
               "ImageSaveSettingsDialog asks how a picture is to be saved, and offers what was accepted last.") {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("Anything", [this] { ask(Dialog::getAllFormats(), true); }), GRID);
        for (const ImageFormat format :
             {ImageFormat::PNG, ImageFormat::TIFF, ImageFormat::OPENEXR, ImageFormat::JPEG}) {
            const ImageFormatDescriptor& file = getImageFormatDescriptor(format);
            addToRow(*row, makeButton(file.name.toWide(), [this, &file] { ask(file.colorFormats, file.canHoldAlpha); }),
                     GRID);
        }
        addSection("Ask", "For a kind of file, what it can hold is offered.")->Add(row);
        _stage = new wxPanel(this, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(wxSize(CONTENT_WIDTH, STAGE_HEIGHT)),
                             wxBORDER_NONE);
        afterSkin([this] { _stage->SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin().darkGrey)); });
        content().AddSpacer(Wx::scaleByDpi(2 * GRID));
        content().Add(_stage);
    }

    ~ImageSaveSettingsDialogPage() override { closeAll(); }

    void onPageShown(bool shown) override {
        if (!shown) {
            closeAll();
        }
    }

    void arrangeForPicture() override {
        closeAll();
        show(0, Dialog::getAllFormats(), true, {ImageColorFormat::LINEAR_16_BIT_FLOAT, true});
        show(1, ImageColorFormat::SRGB_8_BIT, false, {});
    }

private:
    static constexpr int STAGE_HEIGHT = 200;

    void ask(Flags<ImageColorFormat> formats, bool canHoldAlpha) {
        const wxWeakRef<ImageSaveSettingsDialogPage> self(this);
        const WindowHandle owner = Wx::getWindowNativeHandle(wxGetTopLevelParent(this));
        const Optional<Wx::ImageSaveSettings> answer = Dialog::requestSettingsFromUser(owner, formats, canHoldAlpha);
        if (self) {
            log().report("requestSettingsFromUser",
                         answer ? wxString::Format("format %d, %s", static_cast<int>(answer->colorFormat),
                                                   answer->includeAlpha ? "alpha" : "no alpha")
                                : wxString("nothing"));
        }
    }

    /// On the stage, which has two columns.
    void show(int column, Flags<ImageColorFormat> formats, bool canHoldAlpha, const Wx::ImageSaveSettings& offered) {
        const WindowHandle owner = Wx::getWindowNativeHandle(wxGetTopLevelParent(this));
        auto* const dialog = new Dialog(owner, formats, canHoldAlpha, offered);
        const wxSize cell(_stage->GetClientSize().x / 2, _stage->GetClientSize().y);
        const wxSize room = cell - dialog->GetSize();
        dialog->Move(_stage->ClientToScreen(wxPoint(column * cell.x + room.x / 2, room.y / 2)));
        dialog->ShowWithoutActivating();
        _dialogs.emplace_back(dialog);
    }

    void closeAll() {
        for (const wxWeakRef<Dialog>& dialog : std::exchange(_dialogs, {})) {
            if (dialog) {
                dialog->Close();
            }
        }
    }

    wxPanel* _stage{};
    Array<wxWeakRef<Dialog>> _dialogs;
};

const PageRegistration registration = registerPage<ImageSaveSettingsDialogPage>(815, "Image save settings");

} // namespace

} // namespace Ostrel::Gallery
