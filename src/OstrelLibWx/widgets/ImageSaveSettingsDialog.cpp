#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>

#include <OstrelLib/Application.h>
#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/AutoSizedButton.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/ComboBox.h>

#include "platform/DialogOwner.h"
#include "widgets/DialogParts.h"

#include <wx/sizer.h>

namespace Ostrel::Wx {

namespace {

constexpr int COMBO_BOX_WIDTH = 230; // design pixels

struct FormatLabel {
    ImageColorFormat format;
    const char* label;
};

constexpr FormatLabel FORMATS[] = {
    {ImageColorFormat::SRGB_8_BIT, "8-bit sRGB"},
    {ImageColorFormat::SRGB_16_BIT, "16-bit sRGB"},
    {ImageColorFormat::LINEAR_16_BIT_FLOAT, "16-bit floating-point linear RGB"},
    {ImageColorFormat::LINEAR_32_BIT_FLOAT, "32-bit floating-point linear RGB"},
};

/// Accepted last.
ImageSaveSettings& getLastSettings() {
    static ImageSaveSettings settings;
    return settings;
}

} // namespace

struct ImageSaveSettingsDialog::Impl {
    ComboBox* format;
    CheckBox* alpha;
};

ImageSaveSettingsDialog::ImageSaveSettingsDialog(WindowHandle parent, Flags<ImageColorFormat> formats,
                                                 bool canHoldAlpha, const ImageSaveSettings& offered)
    // The toolkit would otherwise make one of its own windows the owner.
    : wxDialog(nullptr, wxID_ANY, "Image save settings", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxDIALOG_NO_PARENT) {
    if ((formats & getAllFormats()).isEmpty()) {
        Detail::throwStopException("widgets/ImageSaveSettingsDialog", __LINE__);
    }
    setOwnerFromNativeHandle(getWindowNativeHandle(this), parent);
    const int border = wxSizerFlags::GetDefaultBorder();

    Array<ComboBox::Item> items;
    int selected = 0;
    for (const auto& [format, label] : FORMATS) {
        if (formats.has(format)) {
            selected = format == offered.colorFormat ? static_cast<int>(items.size()) : selected;
            items.push_back({label, static_cast<int>(format)});
        }
    }
    auto* const formatRow = new wxBoxSizer(wxHORIZONTAL);
    formatRow->Add(makeDialogLabel(this, "Color format:"), wxSizerFlags().CenterVertical().Border(wxRIGHT, border));
    _impl.reset(new Impl{
        .format = new ComboBox(this, wxID_ANY, COMBO_BOX_WIDTH, {}, {}, true),
        .alpha = new CheckBox(this, wxID_ANY, "Include alpha channel"),
    });
    _impl->format->setData(items);
    _impl->format->selectIndex(selected, false);
    _impl->alpha->setValue(canHoldAlpha && offered.includeAlpha, false);
    _impl->alpha->Enable(canHoldAlpha);
    formatRow->Add(_impl->format, wxSizerFlags().CenterVertical());

    auto* const buttonRow = new wxBoxSizer(wxHORIZONTAL);
    buttonRow->AddStretchSpacer();
    const auto addButton = [&](const char* label, int result) {
        auto* const button = new AutoSizedButton(this, label);
        Bind(
            Button::clickEventType(), [this, result](wxMouseEvent&) { end(result); }, button->GetId());
        buttonRow->Add(button);
    };
    addButton("OK", wxOK);
    addButton("Cancel", wxCANCEL);

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(formatRow, wxSizerFlags().Expand().Border(wxALL, border));
    rows->Add(_impl->alpha, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, border));
    rows->Add(buttonRow, wxSizerFlags().Expand().Border(wxALL, border));
    applySkinRecursive(this, GuiSkin());
    SetSizerAndFit(rows);
    SetReturnCode(wxCANCEL);
    Bind(wxEVT_CHAR_HOOK, &ImageSaveSettingsDialog::onKey, this);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { end(wxCANCEL); });
    setNimbraIcon(this);
    placeOverOwner(this, parent);
    _impl->format->SetFocus();
}

ImageSaveSettingsDialog::~ImageSaveSettingsDialog() = default;

Optional<ImageSaveSettings> ImageSaveSettingsDialog::requestSettingsFromUser(WindowHandle parent,
                                                                             Flags<ImageColorFormat> formats,
                                                                             bool canHoldAlpha) {
    ImageSaveSettings& last = getLastSettings();
    Optional<ImageSaveSettings> answer;
    {
        ImageSaveSettingsDialog dialog(parent, formats, canHoldAlpha, last);
        const WindowDisabler disabler(parent);
        if (dialog.ShowModal() == wxOK) {
            answer = dialog.getSettings();
        }
    }
    Detail::reactivateOwner(parent);
    if (answer) {
        last = {answer->colorFormat, canHoldAlpha ? answer->includeAlpha : last.includeAlpha};
    }
    return answer;
}

ImageSaveSettings ImageSaveSettingsDialog::getSettings() const {
    return {static_cast<ImageColorFormat>(_impl->format->getSelectedId().value()), _impl->alpha->getValue()};
}

void ImageSaveSettingsDialog::end(int result) {
    if (IsModal()) {
        EndModal(result);
    } else if (IsShown()) { // else it has ended: what still arrives changes nothing
        SetReturnCode(result);
        Hide();
        Destroy();
    }
}

void ImageSaveSettingsDialog::onKey(wxKeyEvent& event) {
    switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        end(wxOK);
        break;
    case WXK_ESCAPE:
        end(wxCANCEL);
        break;
    default:
        event.Skip();
    }
}

} // namespace Ostrel::Wx
