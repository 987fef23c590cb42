#include "platform/ChoiceNative.h"

#include <OstrelLibWx/WindowUtils.h>

#include <wx/choice.h>
#include <wx/dcclient.h>

namespace Ostrel::Detail {

namespace {

// Design pixels.
constexpr int TEXT_INDENT = 6;
constexpr int ARROW_HALF_WIDTH = 5;
constexpr int ARROW_HEIGHT = 5;
/// From the arrow's middle to the right edge.
constexpr int ARROW_PLACE = 11;

} // namespace

void dressChoice(wxChoice& choice, const wxColour& background, const wxColour& foreground, const wxColour& frame) {
    // Themed or not, the system frames its choices in white; the list takes the toolkit's colours.
    choice.Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    choice.Bind(wxEVT_PAINT, [&choice, background, foreground, frame](wxPaintEvent&) {
        wxPaintDC dc(&choice);
        wxRect area = choice.GetClientRect();
        dc.SetPen(choice.HasFocus() ? foreground : frame);
        dc.SetBrush(background);
        dc.DrawRectangle(area);
        const int halfWidth = Wx::scaleByDpi(ARROW_HALF_WIDTH);
        const int height = Wx::scaleByDpi(ARROW_HEIGHT);
        const wxPoint corners[] = {{-halfWidth, 0}, {halfWidth, 0}, {0, height}};
        dc.SetPen(foreground);
        dc.SetBrush(foreground);
        dc.DrawPolygon(3, corners, area.GetRight() - Wx::scaleByDpi(ARROW_PLACE), (area.height - height) / 2);
        area.Deflate(Wx::scaleByDpi(TEXT_INDENT), 1);
        dc.SetFont(choice.GetFont());
        dc.SetTextForeground(foreground);
        dc.DrawLabel(choice.GetStringSelection(), area, wxALIGN_CENTER_VERTICAL);
    });
}

} // namespace Ostrel::Detail
