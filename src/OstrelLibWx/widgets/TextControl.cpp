#include <OstrelLibWx/widgets/TextControl.h>

#include "models/TextModel.h"
#include "painting/TextPainting.h"
#include "platform/TextNative.h"

#include <wx/dcclient.h>

namespace Ostrel::Wx {

namespace {

/// Design pixels.
constexpr int DISABLED_INDENT = 3;

} // namespace

TextControl::TextControl(wxWindow* parent, int id, const String& text, unsigned int style, Flags<TextFlag> flags,
                         wxSize size)
    : SkinnableMixin<wxTextCtrl>(parent, id, wxString(replaceUnshowable(text.toWide())), wxDefaultPosition,
                                 scaleByDpi(size), static_cast<long>(style))
    , TooltipWindow(this) {
    Bind(wxEVT_PAINT, &TextControl::onPaint, this);
    Detail::makeTextFieldCompact(*this);
    Detail::setDisabledTextColour(*this, toWxColour(getSkin().grey));
    Detail::makeTabAskWindow(*this);
    SetFont(setupStaticTextFont(m_font, flags));
}

void TextControl::applySkin(const GuiSkin& skin) {
    SkinnableMixin<wxTextCtrl>::applySkin(skin);
    Detail::setDisabledTextColour(*this, toWxColour(skin.grey));
}

bool TextControl::SetForegroundColour(const wxColour& colour) {
    return Detail::setTextColour(*this, colour);
}

bool TextControl::SetBackgroundColour(const wxColour& colour) {
    return Detail::setTextBackground(*this, colour);
}

bool TextControl::AcceptsFocusFromKeyboard() const {
    return !HasFlag(wxTE_READONLY);
}

void TextControl::onPaint(wxPaintEvent& event) {
    if (Detail::looksEnabled(*this)) {
        event.Skip();
        return;
    }
    wxPaintDC dc(this);
    paintDisabledText(dc, GetValue(), HasFlag(wxTE_PASSWORD), scaleByDpi(DISABLED_INDENT), toWxColour(getSkin().grey));
}

} // namespace Ostrel::Wx
