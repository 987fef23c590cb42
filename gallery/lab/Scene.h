#pragma once

#include <OstrelLib/Bitmap.h>
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

/// What the user chooses of the scene, in linear light.
struct SceneColors {
    Rgb sky{0.13F, 0.27F, 0.62F};    ///< overhead; towards the horizon it is paler
    Rgb sphere{0.85F, 0.62F, 0.14F}; ///< the share of the light that the rough sphere in the middle gives back

    friend bool operator==(const SceneColors&, const SceneColors&) = default;
};

/// The colours that look like these on the screen; a sphere gives back no more light than it gets.
[[nodiscard]] SceneColors getSceneColors(const Rgb& shownSky, const Rgb& shownSphere);

/// The light that falls through a random place of a pixel of a picture of the scene: spheres that are rough, mirrors or
/// of glass on a chequered ground under a clear sky. Linear and without an upper limit; the sun is near 1000. Alpha is
/// 0 where the sky itself is seen, else 1.
/// A path of light is followed backwards, one way at each surface (J. T. Kajiya, "The Rendering Equation", 1986).
[[nodiscard]] Rgb traceScene(Pixel pixel, Pixel pictureSize, const SceneColors& colors, Random& random);

/// What is farther from the camera than this counts as endlessly far.
constexpr float DEPTH_END = 40.0F;

/// How far from the camera is what the middle of each pixel shows, in the scene's units, the same in all three
/// channels; infinite for the sky. The spheres are 4 to 9 units away.
[[nodiscard]] BitmapImpl<Rgb> renderDepth(Pixel pictureSize);

} // namespace Ostrel::Gallery
