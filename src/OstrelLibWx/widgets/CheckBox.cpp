#include <OstrelLibWx/widgets/CheckBox.h>

#include "models/CheckBoxLayout.h"
#include "painting/CheckBoxPainting.h"
#include "painting/TextPainting.h"
#include "painting/ToolkitTypes.h"
#include "widgets/ToggleInput.h"

#include <wx/dcbuffer.h>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int BOX_SIZE = 15;
constexpr int GAP = 3;
constexpr int PADDING = 2;

constexpr int CLICK_KEYS[] = {WXK_SPACE};

CheckBoxMetrics makeMetrics() {
    return {scaleByDpi(BOX_SIZE), scaleByDpi(GAP), scaleByDpi(PADDING)};
}

} // namespace

struct CheckBox::Impl {
    wxString label;
    Function<void(bool)> onToggle;
    AutoPtr<ToggleInput> input{};
    Pixel labelExtent{0, 0}; ///< kept since the label or the font changed last
    CheckBoxLayout layout{}; ///< kept since the size or the label changed last
};

CheckBox::CheckBox(wxWindow* parent, int id, const String& label, const wxPoint& pos, const wxSize& size, bool value,
                   Function<void(bool)> onToggle)
    : SkinnableMixin<wxControl>(parent, id, pos, scaleByDpi(size), wxBORDER_NONE)
    , TooltipWindow(this)
    , _impl(new Impl{toWx(label), std::move(onToggle)}) {
    _impl->input.reset(new ToggleInput(*this, CLICK_KEYS, [this] { setValue(!getValue(), true); }));
    _impl->input->setOn(value);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    applySkin(GuiSkin());
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        paint(dc);
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        updateLayout();
        event.Skip();
    });
    Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
        measureLabel();
        event.Skip();
    });
    SetFont(setupStaticTextFont(m_font, {}));
    SetInitialSize(scaleByDpi(size));
}

CheckBox::~CheckBox() = default;

void CheckBox::setValue(bool value, bool notify) {
    if (!_impl->input->setOn(value) || !notify || !_impl->onToggle) {
        return;
    }
    const Function<void(bool)> onToggle = _impl->onToggle; // the control, and with it its own, may be destroyed
    onToggle(value);
}

bool CheckBox::getValue() const {
    return _impl->input->isOn();
}

void CheckBox::setToggleCallback(Function<void(bool)> onToggle) {
    _impl->onToggle = std::move(onToggle);
}

void CheckBox::SetLabel(const wxString& label) {
    _impl->label = label;
    measureLabel();
}

wxString CheckBox::GetLabel() const {
    return _impl->label;
}

bool CheckBox::SetFont(const wxFont& font) {
    const bool changed = SkinnableMixin<wxControl>::SetFont(font);
    measureLabel();
    return changed;
}

void CheckBox::paint(wxDC& dc) const {
    dc.SetFont(GetFont());
    paintCheckBox(dc, {.size = GetClientSize(),
                       .layout = _impl->layout,
                       .state = _impl->input->getState(),
                       .background = GetBackgroundColour(),
                       .foreground = GetForegroundColour(),
                       .label = _impl->label,
                       .skin = getSkin()});
}

wxSize CheckBox::DoGetBestSize() const {
    const Pixel size = computeCheckBoxSize(makeMetrics(), _impl->labelExtent);
    return {size.x, size.y};
}

bool CheckBox::Enable(bool enable) {
    const bool changed = SkinnableMixin<wxControl>::Enable(enable);
    _impl->input->followEnabled();
    return changed;
}

void CheckBox::measureLabel() {
    _impl->labelExtent = _impl->label.empty() ? Pixel{0, 0} : toPixel(measureText(*this, _impl->label));
    InvalidateBestSize();
    updateLayout();
}

void CheckBox::updateLayout() {
    _impl->layout = layOutCheckBox(makeMetrics(), toPixel(GetClientSize()), _impl->labelExtent);
    Refresh();
}

} // namespace Ostrel::Wx
