#include "lab/FalseColors.h"

#include "lab/Tones.h"

#include <algorithm>
#include <cmath>

namespace Ostrel::Gallery {

namespace {

constexpr int CELL_COUNT = 4096;

} // namespace

Rgb getFalseColor(const VolumeGridMapping& mapping, float scaledValue) {
    return hsvToRgb(mapping.gradient.getColorAt(mapping.curve(scaledValue)));
}

float getScaleToFit(const BitmapImpl<Rgb>& picture) {
    float largest = 0.0F;
    for (const Rgb& pixel : ArrayView<const Rgb>(picture.data(), picture.size())) {
        const float luminance = getLuminance(pixel);
        largest = std::isfinite(luminance) ? std::max(largest, luminance) : largest;
    }
    return largest > 0.0F ? 1.0F / largest : 1.0F;
}

VolumeGridMapping makeFalseColors(float inputScale) {
    VolumeGridMapping mapping;
    mapping.gradient = ColorGradient({{{240.0F, 0.8F, 0.15F}, 0.0F},
                                      {{275.0F, 0.85F, 0.5F}, 0.25F},
                                      {{350.0F, 0.8F, 0.8F}, 0.5F},
                                      {{32.0F, 0.85F, 1.0F}, 0.75F},
                                      {{55.0F, 0.35F, 1.0F}, 1.0F}});
    mapping.inputScale = inputScale;
    return mapping;
}

FalseColors::FalseColors(const VolumeGridMapping& mapping)
    : _scale(mapping.inputScale) {
    _edges.reserve(CELL_COUNT + 2);
    for (int i = 0; i <= CELL_COUNT; ++i) {
        _edges.push_back(getFalseColor(mapping, static_cast<float>(i) / CELL_COUNT));
    }
    _edges.push_back(_edges.back());
}

void FalseColors::apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept {
    std::transform(values.begin(), values.end(), shown.begin(), [this](const Rgb& value) {
        const float place = getLuminance(value) * _scale * CELL_COUNT;
        const float inside = place > 0.0F ? std::min(place, static_cast<float>(CELL_COUNT)) : 0.0F; // NaN is not above
        const auto cell = static_cast<std::size_t>(inside);
        const float share = inside - static_cast<float>(cell);
        return _edges[cell] * (1.0F - share) + _edges[cell + 1] * share;
    });
}

} // namespace Ostrel::Gallery
