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

/// Of a bitmap's information header, at `header`.
bool isRunLengthEncoded(Bytes data, std::size_t header) {
    constexpr std::uint32_t CORE_HEADER_SIZE = 12; // has no such field
    constexpr std::size_t COMPRESSION = 16;
    constexpr std::uint32_t RLE8 = 1;
    constexpr std::uint32_t RLE4 = 2;
    const std::uint32_t compression = readNumber(data, header + COMPRESSION, 4);
    return readNumber(data, header, 4) != CORE_HEADER_SIZE && (compression == RLE8 || compression == RLE4);
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
    const std::uint32_t type = readNumber(data, 2, 2);
    return data.size() >= 4 && readNumber(data, 0, 2) == 0 && (type == 1 || type == 2);
}

bool isSafeBmp(Bytes data) {
    constexpr std::size_t FILE_HEADER_SIZE = 14;
    return !isRunLengthEncoded(data, FILE_HEADER_SIZE);
}

bool isSafeIcon(Bytes data) {
    constexpr std::size_t HEADER_SIZE = 6;
    constexpr std::size_t ENTRY_SIZE = 16;
    constexpr std::size_t OFFSET_IN_ENTRY = 12;
    const std::size_t count = readNumber(data, 4, 2);
    for (std::size_t i = 0; i < count; ++i) {
        if (isRunLengthEncoded(data, readNumber(data, HEADER_SIZE + i * ENTRY_SIZE + OFFSET_IN_ENTRY, 4))) {
            return false;
        }
    }
    return true;
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
    return !header.isMapped() ||
           isInMap(pixels.first(static_cast<std::size_t>(std::min<std::uint64_t>(header.pixelCount, pixels.size()))),
                   header.mapLength);
}

} // namespace Ostrel::Detail
