#include "painting/ComboBoxPainting.h"

#include "painting/BorderPainting.h"
#include "painting/PixelDrawing.h"

#include <algorithm>

namespace Ostrel::Wx {

void paintComboBox(wxDC& dc, const ComboBoxPicture& picture) {
    const auto [width, height] = std::pair(picture.size.x, picture.size.y);
    const Bucket area{{0, 0}, {width, height}};
    fillPixels(dc, area, picture.background);
    paintBorder(dc, area, picture.border);
    const int arrowLeft = width - picture.padding - (picture.arrow.IsOk() ? picture.arrow.GetWidth() : 0);
    if (picture.arrow.IsOk()) {
        dc.DrawBitmap(picture.arrow, arrowLeft, (height - picture.arrow.GetHeight()) / 2, true);
    }
    const int textWidth = arrowLeft - 2 * picture.padding;
    if (textWidth > 0 && !picture.text.empty()) {
        const wxDCClipper clipper(dc, picture.padding, 0, textWidth, height);
        dc.SetTextForeground(picture.foreground);
        dc.DrawText(picture.text, picture.padding, (height - dc.GetCharHeight()) / 2);
    }
}

void paintComboBoxRow(wxDC& dc, const Bucket& row, const wxString& text, bool highlighted, int padding, int textHeight,
                      const GuiSkin& skin) {
    const wxColour highlightFrame(0, 114, 188);
    if (highlighted) {
        fillPixels(dc, row, toWxColour(skin.pressedBackground));
        drawPixelFrame(dc, row, highlightFrame);
    }
    dc.SetTextForeground(toWxColour(skin.text));
    dc.DrawText(text, row.min.x + padding, row.min.y + (row.height() - textHeight) / 2);
}

} // namespace Ostrel::Wx
