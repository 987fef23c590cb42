#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

#include <cstdint>

namespace Ostrel::Gallery {

/// Numbers that look like chance, the same for the same seed everywhere: PCG32 (M. E. O'Neill, 2014).
class Random {
public:
    explicit Random(std::uint64_t seed);

    /// From 0 to below 1.
    float next();

private:
    std::uint32_t nextBits();

    std::uint64_t _state;
};

/// The light that falls through a random place of a pixel of a picture of the scene: spheres that are rough, mirrors or
/// of glass on a chequered ground under a clear sky. Linear and without an upper limit; the sun is near 1000.
/// A path of light is followed backwards, one way at each surface (J. T. Kajiya, "The Rendering Equation", 1986).
[[nodiscard]] Rgb traceScene(Pixel pixel, Pixel pictureSize, Random& random);

} // namespace Ostrel::Gallery
