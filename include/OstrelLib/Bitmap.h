#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Export.h>
#include <OstrelLib/ImageFormat.h>
#include <OstrelLib/Types.h>

#include <cstddef>
#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace Ostrel {

namespace Detail {

/// Memory for pixels, which begins with a line of the processor's cache: reading and writing across the ends of lines
/// takes twice as long. Where the system has larger pages for who asks for them, large pictures get these: the system
/// hands out a page when it is first written, and one by one the small ones take far longer than a conversion.
/// @throws std::bad_alloc
[[nodiscard]] OSTREL_API void* allocatePixels(std::size_t byteCount);
/// @param byteCount as it was allocated
OSTREL_API void freePixels(void* memory, std::size_t byteCount) noexcept;

/// What is made without a value holds what the memory held before.
template <class T>
struct PixelAllocator {
    using value_type = T;

    PixelAllocator() = default;
    template <class U>
    explicit PixelAllocator(const PixelAllocator<U>&) noexcept {}

    [[nodiscard]] T* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
            throw std::bad_array_new_length();
        }
        return static_cast<T*>(allocatePixels(count * sizeof(T)));
    }
    void deallocate(T* memory, std::size_t count) noexcept { freePixels(memory, count * sizeof(T)); }

    template <class U>
    void construct(U*) noexcept {
        static_assert(std::is_trivially_copyable_v<U>, "such an object is there as soon as its memory is");
    }
    template <class U, class... Values>
    void construct(U* place, Values&&... values) {
        ::new (static_cast<void*>(place)) U(std::forward<Values>(values)...);
    }

    friend bool operator==(const PixelAllocator&, const PixelAllocator&) { return true; }
};

} // namespace Detail

/// A picture in memory: width × height pixels of `T`, row by row from the top, without gaps. A picture without pixels
/// is 0 × 0.
template <class T>
class BitmapImpl {
    static_assert(!std::is_same_v<T, bool>, "a row of bool is no sequence of bool in memory");

public:
    BitmapImpl() = default;

    /// All pixels are `fill`. A width or height below 1 makes an empty picture; more pixels than memory can hold throw
    /// `std::length_error` or `std::bad_alloc`.
    BitmapImpl(int width, int height, const T& fill = T()) {
        if (width > 0 && height > 0) {
            _pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill);
            _width = width;
            _height = height;
        }
    }

    /// A picture whose pixels hold anything, for who writes all of them at once: to fill a large one costs as much as
    /// to convert it. Sizes and failures as above.
    [[nodiscard]] static BitmapImpl makeUnwritten(int width, int height) {
        BitmapImpl bitmap;
        if (width > 0 && height > 0) {
            bitmap._pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
            bitmap._width = width;
            bitmap._height = height;
        }
        return bitmap;
    }

    BitmapImpl(const BitmapImpl&) = default;
    BitmapImpl& operator=(const BitmapImpl&) = default;
    ~BitmapImpl() = default;

    /// Leaves `other` without pixels.
    BitmapImpl(BitmapImpl&& other) noexcept
        : _width(std::exchange(other._width, 0))
        , _height(std::exchange(other._height, 0))
        , _pixels(std::exchange(other._pixels, {})) {}
    BitmapImpl& operator=(BitmapImpl&& other) noexcept {
        _pixels = std::exchange(other._pixels, {});
        _width = std::exchange(other._width, 0);
        _height = std::exchange(other._height, 0);
        return *this;
    }

    [[nodiscard]] int getWidth() const noexcept { return _width; }
    [[nodiscard]] int getHeight() const noexcept { return _height; }
    [[nodiscard]] bool isEmpty() const noexcept { return _pixels.empty(); }

    /// The number of pixels.
    [[nodiscard]] std::size_t size() const noexcept { return _pixels.size(); }

    /// The pixel at (x, y), which has to be inside.
    [[nodiscard]] T& operator()(int x, int y) noexcept { return _pixels[index(x, y)]; }
    [[nodiscard]] const T& operator()(int x, int y) const noexcept { return _pixels[index(x, y)]; }

    /// The pixel at (x, y); throws `std::out_of_range` when it is outside.
    [[nodiscard]] T& at(int x, int y) {
        checkInside(x, y);
        return (*this)(x, y);
    }
    [[nodiscard]] const T& at(int x, int y) const {
        checkInside(x, y);
        return (*this)(x, y);
    }

    /// The pixels of row `y`, which has to be inside, from left to right.
    [[nodiscard]] ArrayView<T> row(int y) noexcept {
        return ArrayView<T>(_pixels).subspan(index(0, y), static_cast<std::size_t>(_width));
    }
    [[nodiscard]] ArrayView<const T> row(int y) const noexcept {
        return ArrayView<const T>(_pixels).subspan(index(0, y), static_cast<std::size_t>(_width));
    }

    /// All pixels, row by row.
    [[nodiscard]] T* data() noexcept { return _pixels.data(); }
    [[nodiscard]] const T* data() const noexcept { return _pixels.data(); }

    friend bool operator==(const BitmapImpl& a, const BitmapImpl& b) = default;

private:
    [[nodiscard]] std::size_t index(int x, int y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) + static_cast<std::size_t>(x);
    }
    void checkInside(int x, int y) const {
        if (x < 0 || y < 0 || x >= _width || y >= _height) {
            throw std::out_of_range("pixel outside the bitmap");
        }
    }

    int _width = 0;
    int _height = 0;
    std::vector<T, Detail::PixelAllocator<T>> _pixels;
};

/// A picture with the form in which a file holds it, or is to hold it. The pixels themselves are always linear floats.
class Image : public BitmapImpl<Rgb> {
public:
    Image() = default;
    explicit Image(BitmapImpl<Rgb> pixels)
        : BitmapImpl<Rgb>(std::move(pixels)) {}

    ImageColorFormat colorFormat = ImageColorFormat::SRGB_8_BIT;

    /// Whether the alpha of the pixels says something; without it every pixel counts as opaque.
    bool hasAlpha = true;

    friend bool operator==(const Image& a, const Image& b) = default;
};

} // namespace Ostrel
