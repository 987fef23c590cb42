#include <OstrelLibWx/widgets/StaticText.h>

#include <OstrelLibWx/widgets/GuiSkin.h>

#include "painting/TextPainting.h"
#include "painting/ToolkitTypes.h"
#include "platform/TextNative.h"

#include <wx/arrstr.h>
#include <wx/dcclient.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

/// What disabled-looking text has in every skin.
constexpr RgbBytes DISABLED_COLOUR{110, 110, 110};

} // namespace

StaticText::StaticText(wxWindow* parent, int id, const String& text, unsigned int style, Flags<TextFlag> flags,
                       wxSize size)
    : wxStaticText(parent, id, toWx(text), wxDefaultPosition, scaleByDpi(size), static_cast<long>(style))
    , TooltipWindow(this)
    , _label(text) {
    Bind(wxEVT_PAINT, &StaticText::onPaint, this);
    Detail::makeLabelHearMouse(*this);
    Detail::setDisabledTextColour(*this, toWxColour(DISABLED_COLOUR));
    SetFont(setupStaticTextFont(GetFont(), flags));
    showText();
}

void StaticText::SetLabel(const wxString& label) {
    _label = label.ToStdWstring();
    wxStaticText::SetLabel(label);
    showText();
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
    // The toolkit's own measures the label without its '&'s. One more row than the text: the toolkit's labels have it.
    wxSize size;
    for (const wxString& line : wxSplit(GetLabel(), '\n', '\0')) {
        const wxSize extent = GetTextExtent(line.empty() ? wxString(" ") : line);
        size = wxSize(std::max(size.x, line.empty() ? 0 : extent.x), size.y + extent.y);
    }
    return size + wxSize(0, 1);
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
