#include "PickedColors.h"

#include "PictureView.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>

#include <wx/utils.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Ostrel::Gallery {

namespace {

bool isShown(const Rgb& color, Bucket region) {
    const BitmapImpl<Rgb> screen = Wx::getScreenRegionColors(region);
    const Rgb sum = std::accumulate(screen.data(), screen.data() + screen.size(), Rgb{0.0F, 0.0F, 0.0F, 0.0F});
    const Rgb apart = sum / static_cast<float>(std::max<std::size_t>(screen.size(), 1)) - color;
    constexpr float HALF_A_BYTE = 0.5F / 255.0F;
    return std::max({std::abs(apart.red), std::abs(apart.green), std::abs(apart.blue)}) < HALF_A_BYTE;
}

Rgb getMean(const PictureView& view, const BitmapImpl<Rgb>& picture, Pixel middle, int radius) {
    Rgb sum{0.0F, 0.0F, 0.0F, 0.0F}; // counts in alpha
    for (int y = middle.y - radius; y <= middle.y + radius; ++y) {
        for (int x = middle.x - radius; x <= middle.x + radius; ++x) {
            if (const Optional<Pixel> pixel = view.getPixel({x, y})) {
                const Rgb& value = picture(pixel->x, pixel->y);
                sum = sum + Rgb{value.red, value.green, value.blue, 1.0F};
            }
        }
    }
    return sum / std::max(sum.alpha, 1.0F);
}

/// An eye dropper tells of its colour while it still holds the mouse, whose button has come up. Other controls do so
/// too, sliders that the pointer has left: they are told apart by the colour.
Optional<Rgb> readPicked(const Rgb& color, const PictureView& view, const BitmapImpl<Rgb>& picture) {
    const wxMouseState mouse = wxGetMouseState();
    const auto* const picker = dynamic_cast<Wx::ColorPicker*>(wxGetTopLevelParent(wxWindow::GetCapture()));
    if (picker == nullptr || mouse.LeftIsDown() || wxFindWindowAtPoint(mouse.GetPosition()) != &view) {
        return {};
    }
    const int radius = picker->getEyeDropperAveragingRadius();
    const Pixel onScreen{mouse.GetX(), mouse.GetY()};
    const wxPoint position = view.ScreenToClient(mouse.GetPosition());
    const Pixel middle{position.x, position.y};
    const Pixel reach{radius, radius};
    if (!view.getPixel(middle) || !isShown(color, {onScreen - reach, onScreen + reach + Pixel{1, 1}})) {
        return {};
    }
    return getMean(view, picture, middle, radius);
}

} // namespace

Optional<Rgb> PickedColors::find(const Rgb& color, const PictureView& view, const BitmapImpl<Rgb>& picture) {
    if (const Optional<Rgb> value = readPicked(color, view, picture)) {
        _picked.push_back({color, *value});
    }
    const auto found = std::find_if(_picked.rbegin(), _picked.rend(),
                                    [&color](const PickedColor& picked) { return picked.shown == color; });
    return found != _picked.rend() ? Optional<Rgb>(found->value) : Optional<Rgb>();
}

} // namespace Ostrel::Gallery
