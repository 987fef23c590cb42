#include <OstrelLibWx/widgets/RgbDataObject.h>

#include "models/ColorBytes.h"

#include <cstring>
#include <span>

namespace Ostrel::Wx {

namespace {

/// Registered with the window system at its first use, when the toolkit is up.
const wxDataFormat& getFormat() {
    static const wxDataFormat format("Quarnel-Rgb");
    return format;
}

} // namespace

RgbDataObject::RgbDataObject()
    : wxDataObjectSimple(getFormat()) {}

RgbDataObject::RgbDataObject(const Rgb& color)
    : wxDataObjectSimple(getFormat())
    , _color(color) {}

size_t RgbDataObject::GetDataSize() const {
    return COLOR_BYTE_COUNT;
}

bool RgbDataObject::GetDataHere(void* buffer) const {
    const auto bytes = toColorBytes(_color.value_or(Rgb{}));
    std::memcpy(buffer, bytes.data(), bytes.size());
    return true;
}

bool RgbDataObject::SetData(size_t length, const void* buffer) {
    if (length < COLOR_BYTE_COUNT) {
        return false;
    }
    _color = fromColorBytes(
        std::span<const std::byte, COLOR_BYTE_COUNT>(static_cast<const std::byte*>(buffer), COLOR_BYTE_COUNT));
    return true;
}

} // namespace Ostrel::Wx
