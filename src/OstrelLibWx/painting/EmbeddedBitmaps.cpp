#include "painting/EmbeddedBitmaps.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/WindowUtils.h>

#include <map>
#include <utility>

namespace Ostrel::Wx {

namespace {

using Key = std::pair<const unsigned char*, int>; ///< the picture, and what 100 of its pixels are on the screen

constexpr int UNSCALED = 100;

std::map<Key, wxBitmap>& decodedAssets() {
    static auto* const assets = new std::map<Key, wxBitmap>; // never deleted: the toolkit may go before static objects
    return *assets;
}

} // namespace

wxBitmap getAsset(const unsigned char* data, std::size_t size) {
    const int scale = scaleByDpi(UNSCALED);
    if (scale == UNSCALED) {
        return getUnscaledAsset(data, size);
    }
    wxBitmap& asset = decodedAssets()[{data, scale}];
    if (!asset.IsOk()) {
        asset = scaleByDpi(getUnscaledAsset(data, size));
    }
    return asset;
}

wxBitmap getUnscaledAsset(const unsigned char* data, std::size_t size) {
    wxBitmap& asset = decodedAssets()[{data, UNSCALED}];
    if (!asset.IsOk()) {
        asset =
            convertMemoryToBitmap(reinterpret_cast<const unsigned*>(data), static_cast<int>(size), wxBITMAP_TYPE_PNG);
    }
    return asset;
}

void forgetAssets() {
    decodedAssets().clear();
}

} // namespace Ostrel::Wx
