#pragma once

#include <OstrelLib/ColorGradient.h>
#include <OstrelLib/Curve.h>

namespace Ostrel {

/// The smallest `VolumeGridMapping::inputScale`.
constexpr float VOLUME_GRID_MINIMUM_SCALE = 0.000001F;

/// How the values of one channel of a volume grid become colours: a value is scaled, goes through the curve, and what
/// comes out is a position of the gradient.
struct VolumeGridMapping {
    ColorGradient gradient;

    /// From the scaled value to a position; with its interpolation.
    Curve curve;

    /// The factor of the values, at least `VOLUME_GRID_MINIMUM_SCALE`.
    float inputScale = 1.0F;

    friend bool operator==(const VolumeGridMapping& a, const VolumeGridMapping& b) noexcept = default;
};

} // namespace Ostrel
