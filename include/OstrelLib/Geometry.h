#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Ostrel {

namespace Detail {

[[nodiscard]] constexpr int saturateToInt(std::int64_t value) noexcept {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace Detail

/// A point or an offset in whole pixels; x runs to the right, y down. Sums and differences stop at the ends of `int`
/// instead of overflowing.
struct Pixel {
    int x = 0;
    int y = 0;

    friend constexpr Pixel operator+(Pixel a, Pixel b) noexcept {
        return {Detail::saturateToInt(std::int64_t{a.x} + b.x), Detail::saturateToInt(std::int64_t{a.y} + b.y)};
    }
    friend constexpr Pixel operator-(Pixel a, Pixel b) noexcept {
        return {Detail::saturateToInt(std::int64_t{a.x} - b.x), Detail::saturateToInt(std::int64_t{a.y} - b.y)};
    }
    friend constexpr bool operator==(Pixel a, Pixel b) noexcept = default;
};

/// A rectangle of pixels: `min` is its first pixel, `max` lies one past its last one in either axis. Any four
/// integers are allowed; a bucket whose `max` is not beyond its `min` in both axes is empty.
struct Bucket {
    Pixel min;
    Pixel max;

    /// Pixels from `min` to `max`: never below 0, and at most the largest `int` even where the distance is longer.
    [[nodiscard]] constexpr int width() const noexcept {
        return std::max(0, Detail::saturateToInt(std::int64_t{max.x} - min.x));
    }
    [[nodiscard]] constexpr int height() const noexcept {
        return std::max(0, Detail::saturateToInt(std::int64_t{max.y} - min.y));
    }

    [[nodiscard]] constexpr bool isEmpty() const noexcept { return max.x <= min.x || max.y <= min.y; }

    [[nodiscard]] constexpr bool contains(Pixel p) const noexcept {
        return p.x >= min.x && p.x < max.x && p.y >= min.y && p.y < max.y;
    }

    /// The pixels that both have; the default bucket when there are none.
    [[nodiscard]] constexpr Bucket intersect(const Bucket& other) const noexcept {
        const Bucket common{{std::max(min.x, other.min.x), std::max(min.y, other.min.y)},
                            {std::min(max.x, other.max.x), std::min(max.y, other.max.y)}};
        return common.isEmpty() ? Bucket{} : common;
    }

    friend constexpr bool operator==(const Bucket& a, const Bucket& b) noexcept = default;
};

/// The window system's own id of a window, an `HWND` on Windows and an X11 window id on Linux, so that a host of any
/// toolkit can name its window. It owns nothing, and the window may be gone.
class WindowHandle {
public:
    /// No window.
    constexpr WindowHandle() noexcept = default;

    constexpr explicit WindowHandle(std::uintptr_t value) noexcept
        : _value(value) {}

    /// For systems whose ids are pointers.
    [[nodiscard]] static WindowHandle fromPointer(const void* pointer) noexcept {
        return WindowHandle(reinterpret_cast<std::uintptr_t>(pointer));
    }
    [[nodiscard]] void* toPointer() const noexcept { return reinterpret_cast<void*>(_value); }

    [[nodiscard]] constexpr std::uintptr_t value() const noexcept { return _value; }
    [[nodiscard]] constexpr bool isNull() const noexcept { return _value == 0; }
    [[nodiscard]] constexpr explicit operator bool() const noexcept { return _value != 0; }

    friend constexpr bool operator==(WindowHandle a, WindowHandle b) noexcept = default;

private:
    std::uintptr_t _value = 0;
};

} // namespace Ostrel
