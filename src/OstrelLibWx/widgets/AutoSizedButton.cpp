#include <OstrelLibWx/widgets/AutoSizedButton.h>

#include <OstrelLibWx/WindowUtils.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

/// Design pixels above the label and below it.
constexpr int VERTICAL_PADDING = 3;
/// Design pixels.
constexpr int MINIMUM_HEIGHT = 24;

} // namespace

AutoSizedButton::AutoSizedButton(wxWindow* parent, const wxString& label, int horizontalPadding, int minimumWidth)
    : Button(parent, GuiSkin(), wxID_ANY, label, wxNullBitmap, wxNullBitmap, {}, PUSH, true, RawaBorderState::ENABLED)
    , _horizontalPadding(horizontalPadding)
    , _minimumWidth(minimumWidth) {
    fitToLabel();
}

void AutoSizedButton::SetLabel(const wxString& label) {
    Button::SetLabel(label);
    fitToLabel();
}

bool AutoSizedButton::Enable(bool enable) {
    const bool changed = Button::Enable(enable);
    fitToLabel();
    return changed;
}

void AutoSizedButton::fitToLabel() {
    const wxSize label = getLabelExtent();
    const wxSize size(std::max(label.x + 2 * scaleByDpi(_horizontalPadding), scaleByDpi(_minimumWidth)),
                      std::max(label.y + 2 * scaleByDpi(VERTICAL_PADDING), scaleByDpi(MINIMUM_HEIGHT)));
    // What a layout made of the present size stays while the label asks for the same.
    if (size != GetMinSize()) {
        SetInitialSize(size);
    }
}

} // namespace Ostrel::Wx
