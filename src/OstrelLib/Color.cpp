#include <OstrelLib/Color.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace Ostrel {

namespace {

constexpr float DEGREES = 360.0F;

/// Colour matching functions x̄, ȳ, z̄ of the CIE 1931 2° standard observer (CIE 15).
constexpr std::array<std::array<double, 3>, 81> MATCHING_FUNCTIONS{{
    {0.001368, 0.000039, 0.006450}, // 380 nm
    {0.002236, 0.000064, 0.010550}, {0.004243, 0.000120, 0.020050},
    {0.007650, 0.000217, 0.036210}, {0.014310, 0.000396, 0.067850}, // 400 nm
    {0.023190, 0.000640, 0.110200}, {0.043510, 0.001210, 0.207400},
    {0.077630, 0.002180, 0.371300}, {0.134380, 0.004000, 0.645600}, // 420 nm
    {0.214770, 0.007300, 1.039050}, {0.283900, 0.011600, 1.385600},
    {0.328500, 0.016840, 1.622960}, {0.348280, 0.023000, 1.747060}, // 440 nm
    {0.348060, 0.029800, 1.782600}, {0.336200, 0.038000, 1.772110},
    {0.318700, 0.048000, 1.744100}, {0.290800, 0.060000, 1.669200}, // 460 nm
    {0.251100, 0.073900, 1.528100}, {0.195360, 0.090980, 1.287640},
    {0.142100, 0.112600, 1.041900}, {0.095640, 0.139020, 0.812950}, // 480 nm
    {0.057950, 0.169300, 0.616200}, {0.032010, 0.208020, 0.465180},
    {0.014700, 0.258600, 0.353300}, {0.004900, 0.323000, 0.272000}, // 500 nm
    {0.002400, 0.407300, 0.212300}, {0.009300, 0.503000, 0.158200},
    {0.029100, 0.608200, 0.111700}, {0.063270, 0.710000, 0.078250}, // 520 nm
    {0.109600, 0.793200, 0.057250}, {0.165500, 0.862000, 0.042160},
    {0.225750, 0.914850, 0.029840}, {0.290400, 0.954000, 0.020300}, // 540 nm
    {0.359700, 0.980300, 0.013400}, {0.433450, 0.994950, 0.008750},
    {0.512050, 1.000000, 0.005750}, {0.594500, 0.995000, 0.003900}, // 560 nm
    {0.678400, 0.978600, 0.002750}, {0.762100, 0.952000, 0.002100},
    {0.842500, 0.915400, 0.001800}, {0.916300, 0.870000, 0.001650}, // 580 nm
    {0.978600, 0.816300, 0.001400}, {1.026300, 0.757000, 0.001100},
    {1.056700, 0.694900, 0.001000}, {1.062200, 0.631000, 0.000800}, // 600 nm
    {1.045600, 0.566800, 0.000600}, {1.002600, 0.503000, 0.000340},
    {0.938400, 0.441200, 0.000240}, {0.854450, 0.381000, 0.000190}, // 620 nm
    {0.751400, 0.321000, 0.000100}, {0.642400, 0.265000, 0.000050},
    {0.541900, 0.217000, 0.000030}, {0.447900, 0.175000, 0.000020}, // 640 nm
    {0.360800, 0.138200, 0.000010}, {0.283500, 0.107000, 0.000000},
    {0.218700, 0.081600, 0.000000}, {0.164900, 0.061000, 0.000000}, // 660 nm
    {0.121200, 0.044580, 0.000000}, {0.087400, 0.032000, 0.000000},
    {0.063600, 0.023200, 0.000000}, {0.046770, 0.017000, 0.000000}, // 680 nm
    {0.032900, 0.011920, 0.000000}, {0.022700, 0.008210, 0.000000},
    {0.015840, 0.005723, 0.000000}, {0.011359, 0.004102, 0.000000}, // 700 nm
    {0.008111, 0.002929, 0.000000}, {0.005790, 0.002091, 0.000000},
    {0.004109, 0.001484, 0.000000}, {0.002899, 0.001047, 0.000000}, // 720 nm
    {0.002049, 0.000740, 0.000000}, {0.001440, 0.000520, 0.000000},
    {0.001000, 0.000361, 0.000000}, {0.000690, 0.000249, 0.000000}, // 740 nm
    {0.000476, 0.000172, 0.000000}, {0.000332, 0.000120, 0.000000},
    {0.000235, 0.000085, 0.000000}, {0.000166, 0.000060, 0.000000}, // 760 nm
    {0.000117, 0.000042, 0.000000}, {0.000083, 0.000030, 0.000000},
    {0.000059, 0.000021, 0.000000}, {0.000042, 0.000015, 0.000000}, // 780 nm
}};

constexpr double FIRST_WAVELENGTH_NM = 380.0;
constexpr double LAST_WAVELENGTH_NM = 780.0;
constexpr double WAVELENGTH_STEP_NM = 5.0;
static_assert(MATCHING_FUNCTIONS.size() ==
              std::size_t((LAST_WAVELENGTH_NM - FIRST_WAVELENGTH_NM) / WAVELENGTH_STEP_NM) + 1);

/// The table's own check: the three functions enclose the same area, which is what makes equal energy white.
constexpr double sumOfMatchingFunction(std::size_t index) {
    double sum = 0.0;
    for (const std::array<double, 3>& functions : MATCHING_FUNCTIONS) {
        sum += functions[index];
    }
    return sum;
}
constexpr bool encloseSameArea(std::size_t a, std::size_t b) {
    const double ratio = sumOfMatchingFunction(a) / sumOfMatchingFunction(b);
    return ratio > 0.9999 && ratio < 1.0001;
}
static_assert(encloseSameArea(0, 1) && encloseSameArea(2, 1));

/// hc/k in nm·K (CODATA 2018).
constexpr double SECOND_RADIATION_CONSTANT = 1.438776877e7;
constexpr double LOWEST_KELVIN = 100.0;
constexpr double HIGHEST_KELVIN = 1.0e6;

/// Spectral radiance, but for a constant factor (M. Planck, 1901).
double radiance(double wavelengthNm, double kelvin) {
    const double micrometres = wavelengthNm * 0.001; // keeps the fifth power near 1
    const double square = micrometres * micrometres;
    return 1.0 /
           (square * square * micrometres * (std::exp(SECOND_RADIATION_CONSTANT / (wavelengthNm * kelvin)) - 1.0));
}

std::uint8_t toByte(float channel) {
    // The order of the comparisons sends NaN to 0.
    const float scaled = (channel > 0.0F ? std::min(channel, 1.0F) : 0.0F) * 255.0F;
    // A float of 2^23 has no bits for a fraction: the sum is rounded to the nearest integer, ties to the even one, and
    // the integer stands in its lowest bits. Unlike the rounding functions this is a single addition.
    return static_cast<std::uint8_t>(std::bit_cast<std::uint32_t>(scaled + 0x1p23F));
}

} // namespace

Hsv rgbToHsv(const Rgb& color) noexcept {
    float r = color.red;
    float g = color.green;
    float b = color.blue;
    float k = 0.0F;
    if (g < b) {
        std::swap(g, b);
        k = -1.0F;
    }
    if (r < g) {
        std::swap(r, g);
        k = -1.0F / 3.0F - k;
    }
    const float chroma = r - std::min(g, b);
    // A tiny part added to -1 is lost, and the hue would be 360.
    const float turn = chroma == 0.0F ? 0.0F : std::abs(k + (g - b) / (6.0F * chroma));
    return {turn < 1.0F ? turn * DEGREES : 0.0F, r == 0.0F ? 0.0F : chroma / r, r};
}

Rgb hsvToRgb(const Hsv& color) noexcept {
    float degrees = color.hue;
    if (!(degrees >= 0.0F && degrees < DEGREES)) {
        degrees = std::isfinite(degrees) ? std::fmod(degrees, DEGREES) : 0.0F;
        degrees += degrees < 0.0F ? DEGREES : 0.0F;
    }
    const float chroma = color.value * color.saturation;
    // Every channel is the same trapezium over the hue, each a third of the circle later; n is where on it hue 0 lies.
    const auto channel = [&](float n) {
        const float turned = n + degrees / 60.0F;
        const float sixth = turned < 6.0F ? turned : turned - 6.0F; // exact: it is below 12
        return color.value - chroma * std::clamp(std::min(sixth, 4.0F - sixth), 0.0F, 1.0F);
    };
    return {channel(5.0F), channel(3.0F), channel(1.0F)};
}

RgbBytes toRgbBytes(const Rgb& color) noexcept {
    return {toByte(color.red), toByte(color.green), toByte(color.blue)};
}

XYZ blackbodyColor(float kelvin) noexcept {
    const double temperature = kelvin > LOWEST_KELVIN ? std::min(double{kelvin}, HIGHEST_KELVIN) : LOWEST_KELVIN;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double wavelength = FIRST_WAVELENGTH_NM;
    for (const std::array<double, 3>& functions : MATCHING_FUNCTIONS) {
        const double energy = radiance(wavelength, temperature);
        x += energy * functions[0];
        y += energy * functions[1];
        z += energy * functions[2];
        wavelength += WAVELENGTH_STEP_NM;
    }
    return {static_cast<float>(x / y), 1.0F, static_cast<float>(z / y)};
}

} // namespace Ostrel
