#include "painting/CheckBoxPainting.h"

#include "painting/BorderPainting.h"
#include "painting/MarkPainting.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>

namespace Ostrel::Wx {

namespace {

Flags<RawaBorderState> toBorderState(Flags<ToggleState> state) {
    Flags<RawaBorderState> border;
    border.set(RawaBorderState::MOUSE_OVER, state.has(ToggleState::MOUSE_OVER));
    border.set(RawaBorderState::ENABLED, state.has(ToggleState::ENABLED));
    return border;
}

void paintBox(wxDC& dc, const CheckBoxPicture& checkBox, const wxColour& ink) {
    const GuiSkin& skin = checkBox.skin;
    const Bucket& box = checkBox.layout.box;
    const bool enabled = checkBox.state.has(ToggleState::ENABLED);
    const bool pressed = checkBox.state.has(ToggleState::PRESSED);
    const bool on = checkBox.state.has(ToggleState::ON);

    // Pressed goes before on, as with a button.
    RgbBytes inside = skin.background;
    wxColour tick = ink;
    if (pressed) {
        inside = skin.pressedBackground;
    } else if (on && enabled) {
        inside = skin.toggledBackground;
        tick = toWxColour(skin.toggledText);
    }
    fillPixels(dc, box, toWxColour(inside));

    // The frame is drawn at the origin, where alone it is right.
    const wxPoint origin = dc.GetDeviceOrigin();
    dc.SetDeviceOrigin(origin.x + box.min.x, origin.y + box.min.y);
    paintBorder(dc, {{0, 0}, {box.width(), box.height()}}, toBorderState(checkBox.state));
    dc.SetDeviceOrigin(origin.x, origin.y);

    if (on) {
        const TickShape shape = computeTick(box);
        for (int i = 0; i < shape.columns; ++i) {
            const Pixel top{shape.at.x + i, shape.getTop(i)};
            fillPixels(dc, {top, top + Pixel{1, shape.thickness}}, tick);
        }
    }
}

} // namespace

void paintCheckBox(wxDC& dc, const CheckBoxPicture& checkBox) {
    const wxColour disabledText(110, 110, 110);
    const wxColour ink = checkBox.state.has(ToggleState::ENABLED) ? checkBox.foreground : disabledText;
    fillPixels(dc, {{0, 0}, {checkBox.size.x, checkBox.size.y}}, checkBox.background);
    paintBox(dc, checkBox, ink);
    if (!checkBox.label.empty()) {
        dc.SetTextForeground(ink);
        dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
        dc.DrawText(checkBox.label, checkBox.layout.label.x, checkBox.layout.label.y);
    }
    if (checkBox.state.has(ToggleState::FOCUSED)) {
        paintFocusFrame(dc, checkBox.layout.focus, ink);
    }
}

} // namespace Ostrel::Wx
