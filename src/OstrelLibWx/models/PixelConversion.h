#pragma once

#include <cstddef>

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Detail {

/// How the bytes of a pixel follow each other in memory.
enum class ByteOrder {
    RGB,
    BGR,
    RGBA,
    BGRA,
    BGRX, ///< as the screen has it: X is not read, and alpha is 1; written as BGRA
};

constexpr int BYTE_ORDER_COUNT = 5;

/// Bytes per pixel.
[[nodiscard]] constexpr std::size_t getPixelSize(ByteOrder order) noexcept {
    return order == ByteOrder::RGB || order == ByteOrder::BGR ? 3 : 4;
}

/// Each colour clamped to [0, 1], times 255, rounded to the nearest byte, ties to the even one; alpha likewise, but
/// truncated. NaN counts as 0.
/// @param bytes room for `getPixelSize(order)` bytes a pixel, at any address
void convertToBytes(ArrayView<const Rgb> pixels, ByteOrder order, unsigned char* bytes);

/// Each byte times 0.003921569, which is 1/255; alpha is 1 where there is no byte for it.
void convertToPixels(const unsigned char* bytes, ByteOrder order, ArrayView<Rgb> pixels);

/// The same for a whole picture.
/// @param firstRow the bytes of the image's row 0
/// @param stride from one row's bytes to the next one's; below 0 where the rows lie the other way round
void convertToBytes(const BitmapImpl<Rgb>& image, ByteOrder order, unsigned char* firstRow, std::ptrdiff_t stride);
void convertToPixels(const unsigned char* firstRow, std::ptrdiff_t stride, ByteOrder order, BitmapImpl<Rgb>& image);

/// The device-independent bitmap that goes to the clipboard: a BITMAPINFOHEADER of 40 bytes, then the rows of 24-bit
/// pixels, each padded to a multiple of 4 bytes (Microsoft, "Bitmap Storage").
constexpr std::size_t DIB_HEADER_SIZE = 40;

/// The bytes of such a bitmap, header included.
[[nodiscard]] std::size_t getDibSize(int width, int height);

/// Writes the header and the rows; the bytes that pad the rows are left as they are. The rows stand in the image's own
/// order under a positive height, which readers take to begin with the lowest row: this is meant.
/// @param image not empty
/// @param spoilGrey if every pixel's bytes are equal, makes the first pixel's blue one less, or 1 where it is 0
/// @param block of `getDibSize` bytes
void writeDib(const BitmapImpl<Rgb>& image, bool spoilGrey, ArrayView<unsigned char> block);

} // namespace Ostrel::Detail
