#include "models/PictureCheck.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Ostrel::Detail {

namespace {

using Bytes = ArrayView<const unsigned char>;

/// Little-endian; what lies beyond the end is 0.
std::uint32_t readNumber(Bytes data, std::size_t position, std::size_t byteCount) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < byteCount && position + i < data.size(); ++i) {
        number |= std::uint32_t{data[position + i]} << (8 * i);
    }
    return number;
}

/// A device-independent bitmap's information header (Microsoft, "Bitmap Storage").
struct BitmapHeader {
    BitmapHeader(Bytes data, std::size_t position)
        : size(readNumber(data, position, 4))
        , isCore(size == CORE_SIZE)
        , width(isCore ? readNumber(data, position + 4, 2) : readNumber(data, position + 4, 4))
        , height(isCore ? readNumber(data, position + 6, 2) : readNumber(data, position + 8, 4))
        , bitsPerPixel(readNumber(data, position + (isCore ? 10 : 14), 2))
        , compression(isCore ? 0 : readNumber(data, position + 16, 4))
        , coloursUsed(isCore ? 0 : readNumber(data, position + 32, 4)) {}

    static constexpr std::uint32_t CORE_SIZE = 12; // has fewer fields

    std::uint32_t size;
    bool isCore;
    std::uint32_t width;
    std::uint32_t height; ///< negative, as two's complement, from the upper row on
    std::uint32_t bitsPerPixel;
    std::uint32_t compression;
    std::uint32_t coloursUsed; ///< 0: as many as a pixel can tell apart

    [[nodiscard]] bool isRunLengthEncoded() const { return compression == 1 || compression == 2; }
    [[nodiscard]] bool isMapped() const { return bitsPerPixel <= 8; }
    [[nodiscard]] std::uint64_t rowBytes() const { return (std::uint64_t{width} * bitsPerPixel + 31) / 32 * 4; }
    [[nodiscard]] std::uint64_t rowCount() const {
        return height > 0x7FFFFFFFU ? 0x100000000U - std::uint64_t{height} : height;
    }
};

/// Whether every index of `bitsPerPixel` bits in the bytes is below `count`.
bool areIndicesBelow(Bytes bytes, std::uint32_t count, std::uint32_t bitsPerPixel) {
    const unsigned mask = (1U << bitsPerPixel) - 1;
    return std::all_of(bytes.begin(), bytes.end(), [=](unsigned byte) {
        for (unsigned shift = 0; shift < 8; shift += bitsPerPixel) {
            if ((byte >> shift & mask) >= count) {
                return false;
            }
        }
        return true;
    });
}

/// Whether no pixel has a colour that the table does not have. All that follows the table counts as pixels.
bool isTableWhole(const BitmapHeader& header, Bytes data, std::size_t position) {
    if (!header.isMapped() || header.coloursUsed == 0) {
        return true;
    }
    if (header.bitsPerPixel == 0 || header.coloursUsed > 1U << header.bitsPerPixel) {
        return false;
    }
    const std::uint64_t pixels = std::uint64_t{position} + header.size + 4 * std::uint64_t{header.coloursUsed};
    return header.coloursUsed == 1U << header.bitsPerPixel ||
           (pixels <= data.size() && 8 % header.bitsPerPixel == 0 &&
            areIndicesBelow(data.subspan(static_cast<std::size_t>(pixels)), header.coloursUsed, header.bitsPerPixel));
}

struct TgaHeader {
    explicit TgaHeader(Bytes data)
        : hasMap(data[1] == 1)
        , type(data[2])
        , mapOrigin(readNumber(data, 3, 2))
        , mapLength(readNumber(data, 5, 2))
        , mapEntryBytes((readNumber(data, 7, 1) + 7) / 8)
        , pixelCount(std::uint64_t{readNumber(data, 12, 2)} * readNumber(data, 14, 2))
        , pixelBytes(readNumber(data, 16, 1) / 8)
        , pixels(SIZE + readNumber(data, 0, 1) + (hasMap ? std::size_t{mapLength} * mapEntryBytes : 0)) {}

    static constexpr std::size_t SIZE = 18;

    bool hasMap;
    unsigned type;
    std::uint32_t mapOrigin;
    std::uint32_t mapLength;
    std::uint32_t mapEntryBytes;
    std::uint64_t pixelCount;
    std::uint32_t pixelBytes;
    std::size_t pixels; ///< where they begin

    [[nodiscard]] bool isMapped() const { return (type & 7U) == 1; }
    [[nodiscard]] bool isRunLengthEncoded() const { return type >= 8; }
};

bool isInMap(Bytes indices, std::uint32_t mapLength) {
    return std::all_of(indices.begin(), indices.end(), [mapLength](unsigned char index) { return index < mapLength; });
}

/// Whether the runs make exactly the picture's pixels.
bool areRunsWhole(const TgaHeader& header, Bytes runs) {
    constexpr unsigned REPEATED = 0x80;
    std::uint64_t left = header.pixelCount;
    while (left > 0) {
        if (runs.empty()) {
            return false;
        }
        const std::size_t count = (runs[0] & ~REPEATED) + 1U;
        const std::size_t bytes = ((runs[0] & REPEATED) != 0 ? 1 : count) * header.pixelBytes;
        runs = runs.subspan(1);
        if (count > left || bytes > runs.size() ||
            (header.isMapped() && !isInMap(runs.first(bytes), header.mapLength))) {
            return false;
        }
        runs = runs.subspan(bytes);
        left -= count;
    }
    return true;
}

} // namespace

bool isBmp(Bytes data) {
    return data.size() >= 2 && data[0] == 'B' && data[1] == 'M';
}

bool isIcon(Bytes data) {
    return data.size() >= 4 && readNumber(data, 0, 4) == 0x10000;
}

bool isCursor(Bytes data) {
    return data.size() >= 4 && readNumber(data, 0, 4) == 0x20000;
}

bool isSafeBmp(Bytes data) {
    constexpr std::size_t FILE_HEADER_SIZE = 14;
    constexpr std::size_t PIXELS = 10;
    const BitmapHeader header(data, FILE_HEADER_SIZE);
    const std::uint64_t pixels = readNumber(data, PIXELS, 4);
    const bool whole = pixels <= data.size() &&
                       (header.rowBytes() == 0 || header.rowCount() <= (data.size() - pixels) / header.rowBytes());
    return whole && !header.isRunLengthEncoded() && isTableWhole(header, data, FILE_HEADER_SIZE);
}

bool isSafeIcon(Bytes data) {
    constexpr std::size_t HEADER_SIZE = 6;
    constexpr std::size_t ENTRY_SIZE = 16;
    constexpr std::size_t SIZE_IN_ENTRY = 8;
    constexpr std::size_t OFFSET_IN_ENTRY = 12;
    const std::size_t count = readNumber(data, 4, 2);
    if (count == 0 || HEADER_SIZE + count * ENTRY_SIZE > data.size()) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = HEADER_SIZE + i * ENTRY_SIZE;
        const std::uint64_t size = readNumber(data, entry + SIZE_IN_ENTRY, 4);
        const std::uint32_t position = readNumber(data, entry + OFFSET_IN_ENTRY, 4);
        const BitmapHeader header(data, position);
        if (position + size > data.size() || header.isRunLengthEncoded() || !isTableWhole(header, data, position)) {
            return false;
        }
    }
    return true;
}

bool isJpeg(Bytes data) {
    return data.size() >= 3 && data[0] == 0xFF && data[1] == 0xD8 && data[2] == 0xFF;
}

bool isWholeJpeg(Bytes data) {
    constexpr unsigned char MARK = 0xFF;
    constexpr unsigned char START_OF_SCAN = 0xDA;
    constexpr unsigned char END_OF_IMAGE = 0xD9;
    // Segments, each with its length, up to the first scan; there the end is the only thing that looks like it.
    std::size_t position = 2;
    while (position + 3 < data.size() && data[position] == MARK && data[position + 1] != START_OF_SCAN) {
        position += data[position + 1] == MARK ? 1 : 2 + std::size_t{data[position + 2]} * 256 + data[position + 3];
    }
    if (position >= data.size()) {
        return false;
    }
    constexpr unsigned char END[] = {MARK, END_OF_IMAGE};
    const Bytes rest = data.subspan(position);
    return std::search(rest.begin(), rest.end(), std::begin(END), std::end(END)) != rest.end();
}

bool isSafeTga(Bytes data) {
    if (data.size() < TgaHeader::SIZE) {
        return false;
    }
    const TgaHeader header(data);
    if (header.pixels > data.size() || header.pixelBytes == 0) {
        return false;
    }
    if (header.isMapped() && (!header.hasMap || header.mapOrigin != 0 || header.pixelBytes != 1)) {
        return false;
    }
    const Bytes pixels = data.subspan(header.pixels);
    if (header.isRunLengthEncoded()) {
        return areRunsWhole(header, pixels);
    }
    if (header.pixelCount * header.pixelBytes > pixels.size()) {
        return false;
    }
    return !header.isMapped() || isInMap(pixels.first(static_cast<std::size_t>(header.pixelCount)), header.mapLength);
}

} // namespace Ostrel::Detail
