#pragma once

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/WindowUtils.h>

namespace Ostrel::Wx {

/// A small picture that is embedded in the library, as PNG, in the screen's scale.
[[nodiscard]] inline wxBitmap decodeAsset(const unsigned char* data, std::size_t size) {
    return scaleByDpi(
        convertMemoryToBitmap(reinterpret_cast<const unsigned*>(data), static_cast<int>(size), wxBITMAP_TYPE_PNG));
}

} // namespace Ostrel::Wx
