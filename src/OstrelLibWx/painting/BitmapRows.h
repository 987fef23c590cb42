#pragma once

#include "models/PixelConversion.h"

#include <wx/rawbmp.h>

/// Rows of the toolkit's bitmaps, whichever way round they lie in memory.
namespace Ostrel::Detail {

/// The first byte of a row. Rows lie as far apart as the toolkit says, in either direction.
template <class PixelData>
unsigned char* getBitmapRow(PixelData& data, int y) {
    typename PixelData::Iterator row(data);
    row.OffsetY(data, y);
    return row.m_ptr;
}

template <class Format>
constexpr ByteOrder getBitmapByteOrder() {
    static_assert((Format::RED == 0 && Format::BLUE == 2) || (Format::RED == 2 && Format::BLUE == 0));
    if constexpr (Format::HasAlpha) {
        return Format::RED == 0 ? ByteOrder::RGBA : ByteOrder::BGRA;
    } else {
        return Format::RED == 0 ? ByteOrder::RGB : ByteOrder::BGR;
    }
}

} // namespace Ostrel::Detail
