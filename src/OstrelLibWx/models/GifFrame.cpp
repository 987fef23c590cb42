#include "models/GifFrame.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Ostrel::Detail {

namespace {

constexpr std::string_view SIGNATURE = "GIF";
constexpr std::size_t HEADER_SIZE = 13; // signature, version and logical screen descriptor
constexpr std::size_t DESCRIPTOR_SIZE = 9;
constexpr std::size_t GRAPHIC_CONTROL_SIZE = 6; // block size, four fields, terminator
constexpr unsigned char EXTENSION = 0x21;
constexpr unsigned char GRAPHIC_CONTROL = 0xF9;
constexpr unsigned char IMAGE = 0x2C;
constexpr unsigned char TRAILER = 0x3B;

using Bytes = ArrayView<const unsigned char>;

/// Takes bytes off the front; an empty view, and `failed`, where there are fewer.
class Reader {
public:
    explicit Reader(Bytes data)
        : _rest(data) {}

    Bytes take(std::size_t count) {
        if (count > _rest.size()) {
            failed = true;
            return {};
        }
        const Bytes taken = _rest.first(count);
        _rest = _rest.subspan(count);
        return taken;
    }

    unsigned char takeByte() {
        const Bytes byte = take(1);
        return byte.empty() ? 0 : byte.front();
    }

    /// The colour table that the flags of a descriptor announce.
    Bytes takeColours(unsigned char flags) {
        return (flags & 0x80) != 0 ? take(std::size_t{6} << (flags & 7)) : Bytes{};
    }

    bool failed = false;

private:
    Bytes _rest;
};

std::size_t toSize(unsigned char low, unsigned char high) {
    return low + std::size_t{256} * high;
}

/// Follows the codes of one picture without making its pixels: which codes exist, and how many pixels each stands for.
class CodeChecker {
public:
    CodeChecker(int rootBits, std::size_t pixels)
        : _rootBits(rootBits)
        , _clear(1U << rootBits)
        , _missing(pixels) {
        std::fill_n(_lengths.begin(), _clear, std::uint16_t{1});
        reset();
    }

    /// Takes the codes that end within this sub-block. @return false if one of them is not allowed where it stands
    bool take(Bytes block) {
        for (const unsigned char byte : block) {
            _bits |= std::uint32_t{byte} << _bitCount;
            _bitCount += 8;
            while (_bitCount >= _width && _missing > 0) {
                const std::uint32_t code = _bits & ((1U << _width) - 1U);
                _bits >>= _width;
                _bitCount -= _width;
                if (!takeCode(code)) {
                    return false;
                }
            }
        }
        return true;
    }

    bool isComplete() const { return _missing == 0; }

private:
    static constexpr int MAX_WIDTH = 12;
    static constexpr std::uint32_t NO_CODE = 0xFFFF;

    void reset() {
        _width = _rootBits + 1;
        _free = _clear + 2;
        _last = NO_CODE;
    }

    bool takeCode(std::uint32_t code) {
        if (code == _clear) {
            reset();
            return true;
        }
        const bool isNew = code == _free && _last != NO_CODE;
        if (code == _clear + 1 || (code >= _free && !isNew)) {
            return false; // the end, too early, or a code that does not exist yet
        }
        if (_last != NO_CODE) {
            if (_free >> _width != 0) {
                return false; // the table is full
            }
            _lengths[_free++] = static_cast<std::uint16_t>(_lengths[_last] + 1);
            if (_free >> _width != 0 && _width < MAX_WIDTH) {
                ++_width;
            }
        }
        _last = code;
        _missing -= std::min<std::size_t>(_missing, _lengths[code]);
        return true;
    }

    int _rootBits;
    std::uint32_t _clear;
    std::size_t _missing;
    int _width{};
    std::uint32_t _free{};
    std::uint32_t _last{};
    std::uint32_t _bits{};
    int _bitCount{};
    std::array<std::uint16_t, (std::size_t{1} << MAX_WIDTH) + 1> _lengths{};
};

void append(Array<unsigned char>& target, Bytes bytes) {
    target.insert(target.end(), bytes.begin(), bytes.end());
}

/// Copies the picture's descriptor, colours and codes, up to the sub-block that completes it. @return false if damaged
bool copyPicture(Reader& reader, Array<unsigned char>& file) {
    const Bytes descriptor = reader.take(DESCRIPTOR_SIZE);
    if (reader.failed) {
        return false;
    }
    const Bytes colours = reader.takeColours(descriptor[8]);
    const unsigned char rootBits = reader.takeByte();
    const std::size_t pixels = toSize(descriptor[4], descriptor[5]) * toSize(descriptor[6], descriptor[7]);
    if (reader.failed || pixels == 0 || rootBits < 2 || rootBits > 8) {
        return false;
    }
    file.push_back(IMAGE);
    append(file, descriptor);
    append(file, colours);
    file.push_back(rootBits);
    CodeChecker checker(rootBits, pixels);
    while (!checker.isComplete()) {
        const unsigned char size = reader.takeByte();
        const Bytes block = reader.take(size);
        if (reader.failed || size == 0 || !checker.take(block)) {
            return false;
        }
        file.push_back(size);
        append(file, block);
    }
    file.push_back(0); // ends the sub-blocks
    return true;
}

void skipSubBlocks(Reader& reader) {
    while (const unsigned char size = reader.takeByte()) {
        reader.take(size);
    }
}

} // namespace

bool isGif(ArrayView<const unsigned char> data) {
    return data.size() >= SIGNATURE.size() && std::equal(SIGNATURE.begin(), SIGNATURE.end(), data.begin());
}

Array<unsigned char> extractFirstGifFrame(ArrayView<const unsigned char> data) {
    Reader reader(data);
    const Bytes header = reader.take(HEADER_SIZE);
    if (reader.failed || !isGif(header)) {
        return {};
    }
    Array<unsigned char> file;
    file.reserve(data.size() + 2);
    append(file, header);
    append(file, reader.takeColours(header[10]));
    while (!reader.failed) {
        const unsigned char block = reader.takeByte();
        if (block == IMAGE) {
            if (!copyPicture(reader, file)) {
                return {};
            }
            file.push_back(TRAILER);
            return file;
        }
        if (block != EXTENSION) {
            continue; // between blocks, anything else is passed over
        }
        if (reader.takeByte() == GRAPHIC_CONTROL) {
            const Bytes control = reader.take(GRAPHIC_CONTROL_SIZE);
            file.insert(file.end(), {EXTENSION, GRAPHIC_CONTROL});
            append(file, control);
        } else {
            skipSubBlocks(reader);
        }
    }
    return {};
}

} // namespace Ostrel::Detail
