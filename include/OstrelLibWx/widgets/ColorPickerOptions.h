#pragma once

#include <cstdint>

namespace Ostrel::Wx {

/// In which space the colour picker shows and takes the numbers of red, green and blue. The colour is the same in
/// either. The values are what a host may keep.
enum class ColorPickerSpace : std::int32_t {
    /// The 2.2 power of the channel as it is shown on the screen.
    LINEAR = 0,
    /// The channel as it is shown on the screen: the numbers of two-dimensional image editors.
    SRGB = 1,
};

/// In which range the colour picker shows and takes the numbers of all rows but the temperature. The colour is the same
/// in all of them. The values are what a host may keep.
enum class ColorPickerRange : std::int32_t {
    UP_TO_255 = 0, ///< 0 to 255, no decimals, step 1
    UP_TO_1 = 1,   ///< 0 to 1, 3 decimals, step 0.001
    PERCENT = 2,   ///< 0 to 100, 1 decimal, step 0.1
};

} // namespace Ostrel::Wx
