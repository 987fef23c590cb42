#pragma once

#include <wx/bitmap.h>

#include <cstddef>

namespace Ostrel::Wx {

/// A small picture that is embedded in the library, as PNG, in the screen's scale. It is decoded once while the library
/// is up; who changes it copies it first.
[[nodiscard]] wxBitmap getAsset(const unsigned char* data, std::size_t size);

/// The same, pixel for pixel.
[[nodiscard]] wxBitmap getUnscaledAsset(const unsigned char* data, std::size_t size);

/// To be called before the toolkit goes, with which bitmaps end.
void forgetAssets();

} // namespace Ostrel::Wx
