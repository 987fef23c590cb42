#include "models/PixelConversion.h"

#include <cstdint>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

static_assert(sizeof(Rgb) == 4 * sizeof(float));

namespace {

constexpr std::size_t DIB_PIXEL_SIZE = 3;
constexpr std::size_t DIB_ROW_ALIGNMENT = 4;

std::size_t getDibRowSize(int width) {
    const std::size_t size = static_cast<std::size_t>(width) * DIB_PIXEL_SIZE;
    return (size + DIB_ROW_ALIGNMENT - 1) / DIB_ROW_ALIGNMENT * DIB_ROW_ALIGNMENT;
}

/// Little-endian, one after the other.
class FieldWriter {
public:
    explicit FieldWriter(unsigned char* target)
        : _target(target) {}

    void write16(std::uint32_t value) { write(value, 2); }
    void write32(std::uint32_t value) { write(value, 4); }

private:
    void write(std::uint32_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8) {
            *_target++ = static_cast<unsigned char>(value);
        }
    }

    unsigned char* _target;
};

void writeDibHeader(int width, int height, unsigned char* block) {
    constexpr std::uint32_t RESOLUTION = 96; // into fields that count per metre: meant
    FieldWriter header(block);
    header.write32(DIB_HEADER_SIZE);
    header.write32(static_cast<std::uint32_t>(width));
    header.write32(static_cast<std::uint32_t>(height));
    header.write16(1); // planes
    header.write16(8 * DIB_PIXEL_SIZE);
    header.write32(0); // compression: none
    header.write32(0); // image size: follows from the rest
    header.write32(RESOLUTION);
    header.write32(RESOLUTION);
    header.write32(0); // colours used: no table
    header.write32(0); // important colours
}

bool isGrey(const unsigned char* row, int width) {
    for (const unsigned char* const end = row + static_cast<std::size_t>(width) * DIB_PIXEL_SIZE; row != end;
         row += DIB_PIXEL_SIZE) {
        if (row[0] != row[1] || row[1] != row[2]) {
            return false;
        }
    }
    return true;
}

} // namespace

const float LOWER_LIMIT = 0.0F;
const float UPPER_LIMIT = MAX_BYTE;

const PixelKernels& getPixelKernels() {
    static const PixelKernels& kernels = hasAvx2() ? AVX2_KERNELS : BASELINE_KERNELS;
    return kernels;
}

void convertToBytes(ArrayView<const Rgb> pixels, ByteOrder order, unsigned char* bytes) {
    if (!pixels.empty()) {
        getPixelKernels().toBytes[static_cast<int>(order)](&pixels.front().red, pixels.size(), bytes);
    }
}

void convertToPixels(const unsigned char* bytes, ByteOrder order, ArrayView<Rgb> pixels) {
    if (!pixels.empty()) {
        getPixelKernels().toPixels[static_cast<int>(order)](bytes, pixels.size(), &pixels.front().red);
    }
}

void convertToBytes(const PixelKernels& kernels, const BitmapImpl<Rgb>& image, ByteOrder order, unsigned char* firstRow,
                    std::ptrdiff_t stride) {
    const auto toBytes = kernels.toBytes[static_cast<int>(order)];
    for (int y = 0; y < image.getHeight(); ++y) {
        const ArrayView<const Rgb> row = image.row(y);
        toBytes(&row.front().red, row.size(), firstRow + y * stride);
    }
}

void convertToPixels(const PixelKernels& kernels, const unsigned char* firstRow, std::ptrdiff_t stride, ByteOrder order,
                     BitmapImpl<Rgb>& image) {
    const auto toPixels = kernels.toPixels[static_cast<int>(order)];
    for (int y = 0; y < image.getHeight(); ++y) {
        const ArrayView<Rgb> row = image.row(y);
        toPixels(firstRow + y * stride, row.size(), &row.front().red);
    }
}

void convertToBytes(const BitmapImpl<Rgb>& image, ByteOrder order, unsigned char* firstRow, std::ptrdiff_t stride) {
    convertToBytes(getPixelKernels(), image, order, firstRow, stride);
}

void convertToPixels(const unsigned char* firstRow, std::ptrdiff_t stride, ByteOrder order, BitmapImpl<Rgb>& image) {
    convertToPixels(getPixelKernels(), firstRow, stride, order, image);
}

std::size_t getDibSize(int width, int height) {
    return DIB_HEADER_SIZE + getDibRowSize(width) * static_cast<std::size_t>(height);
}

void writeDib(const BitmapImpl<Rgb>& image, bool spoilGrey, ArrayView<unsigned char> block) {
    writeDibHeader(image.getWidth(), image.getHeight(), block.data());
    unsigned char* row = block.data() + DIB_HEADER_SIZE;
    bool grey = true;
    for (int y = 0; y < image.getHeight(); ++y, row += getDibRowSize(image.getWidth())) {
        convertToBytes(image.row(y), ByteOrder::BGR, row);
        grey = grey && isGrey(row, image.getWidth());
    }
    unsigned char& firstBlue = block[DIB_HEADER_SIZE];
    if (spoilGrey && grey) {
        firstBlue = static_cast<unsigned char>(firstBlue == 0 ? 1 : firstBlue - 1);
    }
}

} // namespace Ostrel::Detail
