#include "models/GradientTrack.h"

#include "models/ColorConversion.h"

namespace Ostrel::Wx {

Pixel GradientTrack::toPixel(float position) const noexcept {
    const float share = limitFraction((position - min) / (max - min));
    const int length = size.x - 2 * getMargin();
    return {getMargin() + static_cast<int>(static_cast<float>(length) * share), size.y - getMargin()};
}

float GradientTrack::toPosition(int x) const noexcept {
    const auto length = static_cast<float>(size.x - 2 * getMargin() - 1);
    return limitFraction(static_cast<float>(x - getMargin()) / length * (max - min) + min);
}

float GradientTrack::toShownPosition(int x) const noexcept {
    const auto length = static_cast<float>(getStrip().width());
    return min + (static_cast<float>(x - getMargin()) + 0.5F) / length * (max - min);
}

} // namespace Ostrel::Wx
