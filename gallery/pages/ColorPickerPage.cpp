#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/weakref.h>

#include <utility>

namespace Ostrel::Gallery {

namespace {

using Wx::ColorPicker;
using enum ColorPicker::ColorFormat;
using enum ColorPicker::DialogType;

constexpr Rgb SKY{0.345F, 0.6F, 0.93F, 0.75F};

class ColorPickerPage : public Page {
public:
    explicit ColorPickerPage(const PageContext& context)
        : Page(context, "Color picker",
               "ColorPicker is the dialog in which a colour is chosen. Every view shows the one current colour, and "
               "each changes it; space and range of the numbers are kept from one dialog to the next.") {
        addButtons();
        addStage();
    }

    ~ColorPickerPage() override { delete _specimen.get(); }

    void onPageShown(bool shown) override {
        if (!shown) {
            closeSpecimen();
        }
    }

    void arrangeForPicture() override { showSpecimen(WITH_ALPHA); }

private:
    void addButtons() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto add = [&](const wxString& label, ColorPicker::DialogType type, ColorPicker::ColorFormat format,
                             const Rgb& color) {
            constexpr int WIDTH = 120;
            const auto show = [=, this] {
                ColorPicker dialog(wxGetTopLevelParent(this), "Color", wxDefaultPosition, color, type, format);
                listen(dialog);
                dialog.CentreOnParent();
                dialog.ShowModal();
            };
            addToRow(*row, makeButton(label, show, Wx::Button::PUSH, WIDTH), GRID);
        };
        add("Color", CONFIRM, WITHOUT_ALPHA, SKY);
        add("Color with alpha", CONFIRM, WITH_ALPHA, SKY);
        add("Add colors", ADD_COLOR, WITHOUT_ALPHA, SKY);
        add("Beyond 0 to 1", CONFIRM, WITH_ALPHA, {3.5F, -0.25F, 0.5F, 2.0F});
        addSection("Waiting for the user")->Add(row);
    }

    void addStage() {
        constexpr int STAGE_HEIGHT = 350;
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("Show", [this] { showSpecimen(WITHOUT_ALPHA); }), GRID);
        addToRow(*row, makeButton("Show with alpha", [this] { showSpecimen(WITH_ALPHA); }), GRID);
        addToRow(*row, makeButton("Close it", [this] { closeSpecimen(); }), GRID);
        auto* const section = addSection("Without waiting", "Shown with Show, a dialog is hidden when it is closed.");
        section->Add(row);
        section->AddSpacer(Wx::scaleByDpi(2 * GRID));
        _stage = new wxPanel(this, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(wxSize(CONTENT_WIDTH, STAGE_HEIGHT)),
                             wxBORDER_NONE);
        afterSkin([this] { _stage->SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin().darkGrey)); });
        section->Add(_stage);
    }

    void listen(ColorPicker& dialog) {
        const auto reportColor = [this](const char* name) {
            return [this, name](const Rgb& color) {
                log().report("ColorPicker",
                             wxString::Format("%s: %.3f, %.3f, %.3f, %.3f", name, static_cast<double>(color.red),
                                              static_cast<double>(color.green), static_cast<double>(color.blue),
                                              static_cast<double>(color.alpha)));
            };
        };
        const auto report = [this](const char* name) { return [this, name] { log().report("ColorPicker", name); }; };
        dialog.onColorChanged = reportColor("onColorChanged");
        dialog.onColorAccepted = reportColor("onColorAccepted");
        dialog.onCancel = report("onCancel");
        dialog.onClose = report("onClose");
        dialog.onHexFocusGained = report("onHexFocusGained");
        dialog.onHexFocusLost = report("onHexFocusLost");
        dialog.onReset = report("onReset");
        dialog.onAfterReset = report("onAfterReset");
    }

    /// In the middle of the stage.
    void showSpecimen(ColorPicker::ColorFormat format) {
        closeSpecimen();
        auto* const dialog =
            new ColorPicker(wxGetTopLevelParent(this), "Color", wxDefaultPosition, SKY, ADD_COLOR, format);
        dialog->setColor({0.86F, 0.45F, 0.13F, 0.6F});
        listen(*dialog);
        const wxSize room = _stage->GetClientSize() - dialog->GetSize();
        dialog->Move(_stage->ClientToScreen(wxPoint(room.x / 2, room.y / 2)));
        dialog->ShowWithoutActivating();
        _specimen = dialog;
    }

    void closeSpecimen() {
        if (_specimen) {
            _specimen->Destroy();
        }
    }

    wxPanel* _stage{};
    wxWeakRef<ColorPicker> _specimen;
};

const PageRegistration registration = registerPage<ColorPickerPage>(500, "Color picker");

} // namespace

} // namespace Ostrel::Gallery
