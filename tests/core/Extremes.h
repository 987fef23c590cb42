#pragma once

#include <limits>

/// Floats that break code which thinks of ordinary ones alone.
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float LARGEST = std::numeric_limits<float>::max();
constexpr float SMALLEST = std::numeric_limits<float>::denorm_min();
