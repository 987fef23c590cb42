#include "platform/ChoiceNative.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/choice.h>
#include <wx/dcclient.h>
#include <wx/radiobut.h>

namespace Ostrel::Detail {

namespace {

// Design pixels.
constexpr int TEXT_INDENT = 6;
constexpr int ARROW_HALF_WIDTH = 5;
constexpr int ARROW_HEIGHT = 5;
/// From the arrow's middle to the right edge.
constexpr int ARROW_PLACE = 11;

} // namespace

void dressRadioButton(wxRadioButton& button, const Wx::GuiSkin& skin) {
    button.SetBackgroundColour(Wx::toWxColour(skin.background));
    button.SetForegroundColour(Wx::toWxColour(skin.text));
}

void dressChoice(wxChoice& choice, const Wx::GuiSkin& skin) {
    // Themed or not, the system frames its choices in white; the list takes the toolkit's colours.
    choice.Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    choice.Bind(wxEVT_PAINT, [&choice, skin](wxPaintEvent&) {
        const wxColour text = Wx::toWxColour(skin.text);
        wxPaintDC dc(&choice);
        wxRect area = choice.GetClientRect();
        dc.SetPen(choice.HasFocus() ? text : Wx::toWxColour(skin.darkGrey));
        dc.SetBrush(Wx::toWxColour(skin.background));
        dc.DrawRectangle(area);
        const int halfWidth = Wx::scaleByDpi(ARROW_HALF_WIDTH);
        const int height = Wx::scaleByDpi(ARROW_HEIGHT);
        const wxPoint corners[] = {{-halfWidth, 0}, {halfWidth, 0}, {0, height}};
        dc.SetPen(text);
        dc.SetBrush(text);
        dc.DrawPolygon(3, corners, area.GetRight() - Wx::scaleByDpi(ARROW_PLACE), (area.height - height) / 2);
        area.Deflate(Wx::scaleByDpi(TEXT_INDENT), 1);
        dc.SetFont(choice.GetFont());
        dc.SetTextForeground(text);
        dc.DrawLabel(choice.GetStringSelection(), area, wxALIGN_CENTER_VERTICAL);
    });
}

} // namespace Ostrel::Detail
