#include "models/GradientTrack.h"

#include <algorithm>

namespace Ostrel::Wx {

namespace {

/// To [0, 1]; NaN becomes 0.
float clampShare(float share) {
    return share > 0.0F ? std::min(share, 1.0F) : 0.0F;
}

} // namespace

Pixel GradientTrack::toPixel(float position) const noexcept {
    const float share = clampShare((position - min) / (max - min));
    const int length = size.x - 2 * getMargin();
    return {getMargin() + static_cast<int>(static_cast<float>(length) * share), size.y - getMargin()};
}

float GradientTrack::toPosition(int x) const noexcept {
    const auto length = static_cast<float>(size.x - 2 * getMargin() - 1);
    return clampShare(static_cast<float>(x - getMargin()) / length * (max - min) + min);
}

float GradientTrack::toShownPosition(int x) const noexcept {
    const auto length = static_cast<float>(getStrip().width());
    return min + (static_cast<float>(x - getMargin()) + 0.5F) / length * (max - min);
}

} // namespace Ostrel::Wx
