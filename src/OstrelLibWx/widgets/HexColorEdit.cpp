#include "widgets/HexColorEdit.h"

#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/TextControl.h>

#include "models/ColorConversion.h"
#include "painting/ToolkitTypes.h"

#include <wx/sizer.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

/// Design pixels.
constexpr int TEXT_HEIGHT = 16;
/// Screen pixels, at every scale.
constexpr int FRAME_WIDTH = 2;

} // namespace

HexColorEdit::HexColorEdit(wxWindow* parent, int textWidth)
    : RawaBorder(RawaBorderState::ENABLED, parent, wxID_ANY, "HexColorEdit")
    , _text(new TextControl(this, wxID_ANY, String(), wxBORDER_NONE | wxTE_NO_VSCROLL, TextFlag::ITALIC,
                            wxSize(textWidth, TEXT_HEIGHT))) {
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(_text, 1, wxEXPAND | wxALL, FRAME_WIDTH);
    SetSizerAndFit(sizer);
    applySkinRecursive(this, GuiSkin());
    showColor();
    _text->Bind(wxEVT_TEXT, &HexColorEdit::onText, this);
    _text->Bind(wxEVT_SET_FOCUS, &HexColorEdit::onFocus, this);
    _text->Bind(wxEVT_KILL_FOCUS, &HexColorEdit::onFocusKilled, this);
}

HexColorEdit::~HexColorEdit() {
    // The field goes after this part of the control, and may lose the focus by that.
    _text->Unbind(wxEVT_KILL_FOCUS, &HexColorEdit::onFocusKilled, this);
}

void HexColorEdit::setColor(const Rgb& color) {
    const RgbBytes before = toRgbBytes(std::exchange(_color, color));
    if (!_editing && toRgbBytes(color) != before) {
        showColor();
    }
}

void HexColorEdit::onText(wxCommandEvent&) {
    _color = parseHexColor(String(_text->GetValue().ToStdWstring()));
    if (!_editing) {
        showColor();
    }
    if (const auto callback = onChanged) { // the control, and with it its own, may be destroyed
        callback(Rgb(_color));
    }
}

void HexColorEdit::onFocus(wxFocusEvent& event) {
    event.Skip();
    _editing = true;
    if (const auto callback = onFocusGained) {
        callback();
    }
}

void HexColorEdit::onFocusKilled(wxFocusEvent& event) {
    event.Skip();
    _editing = false;
    showColor();
    if (const auto callback = onFocusLost) {
        callback();
    }
}

void HexColorEdit::showColor() {
    const wxString text = toWx(formatHexColor(_color));
    if (_text->GetValue() != text) {
        _text->ChangeValue(text);
    }
}

} // namespace Ostrel::Wx
