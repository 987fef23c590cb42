#include <OstrelLibWx/widgets/StaticText.h>

#include <OstrelLibWx/widgets/GuiSkin.h>

#include "painting/TextPainting.h"
#include "painting/ToolkitTypes.h"
#include "platform/TextNative.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

namespace Ostrel::Wx {

namespace {

/// What disabled-looking text has in every skin.
constexpr RgbBytes DISABLED_COLOUR{110, 110, 110};

} // namespace

StaticText::StaticText(wxWindow* parent, int id, const String& text, unsigned int style, Flags<TextFlag> flags,
                       wxSize size)
    : TooltipWindow(this) {
    // Measuring takes longest: it waits until text and font are there.
    Create(parent, id, wxString(), wxDefaultPosition, wxSize(1, 1), static_cast<long>(style) | wxST_NO_AUTORESIZE);
    Bind(wxEVT_PAINT, &StaticText::onPaint, this);
    Detail::setDisabledTextColour(*this, toWxColour(DISABLED_COLOUR));
    const wxFont font = setupStaticTextFont(m_font, flags);
    if (!m_font.IsOk()) {
        m_font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT); // GTK's toolkit asks a second label for it
    }
    if (!SetFont(font)) { // it is the system's own, and not the label's yet
        m_font = wxNullFont;
        SetFont(font);
    }
    SetLabel(toWx(text));
    if ((style & wxST_NO_AUTORESIZE) != 0) {
        SetInitialSize(scaleByDpi(size));
    } else {
        m_windowStyle &= ~wxST_NO_AUTORESIZE;
        SetMinSize(scaleByDpi(size));
        AutoResizeIfNecessary();
    }
}

void StaticText::SetLabel(const wxString& label) {
    _label = label.ToStdWstring();
    wxStaticText::SetLabel(label);
    showText();
}

bool StaticText::SetForegroundColour(const wxColour& colour) {
    return Detail::setTextColour(*this, colour);
}

bool StaticText::SetFont(const wxFont& font) {
    const bool changed = Detail::setTextFont(*this, font);
    if (changed) {
        showText();
    }
    return changed;
}

void StaticText::Wrap(int width) {
    const String unwrapped = _label;
    SetLabel(toWx(unwrapped));
    wxStaticText::Wrap(width); // sets the wrapped text as the label
    _label = unwrapped;
}

void StaticText::paint(wxDC& dc) const {
    dc.SetFont(GetFont());
    paintLabel(dc, GetClientSize(), GetLabel(), GetWindowStyle(),
               Detail::looksEnabled(*this) ? GetForegroundColour() : toWxColour(DISABLED_COLOUR));
}

wxSize StaticText::DoGetBestClientSize() const {
    // The toolkit's own measures the label without its '&'s, and GTK's asks again when nothing has changed.
    const wxString label = GetLabel();
    const wxFont font = GetFont();
    if (_measured.label != label || !_measured.font.IsSameAs(font)) {
        // One more row than the text: the toolkit's labels have it.
        _measured = {label, font, measureText(*this, label) + wxSize(0, 1)};
    }
    return _measured.size;
}

bool StaticText::OnDynamicBind(wxDynamicEventTableEntry& entry) {
    if (entry.m_eventType == wxEVT_ENTER_WINDOW || entry.m_eventType == wxEVT_LEAVE_WINDOW) {
        Detail::makeLabelHearMouse(*this);
    }
    return wxStaticText::OnDynamicBind(entry);
}

void StaticText::onPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    paint(dc);
}

void StaticText::showText() {
    if (Detail::showLabelVerbatim(*this, String(GetLabel().ToStdWstring()))) {
        AutoResizeIfNecessary();
    }
}

} // namespace Ostrel::Wx
