#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/VolumeGridMapping.h>

#include "lab/Shading.h"

namespace Ostrel::Gallery {

/// The colour of a value that has been scaled already.
[[nodiscard]] Rgb getFalseColor(const VolumeGridMapping& mapping, float scaledValue);

/// The scale with which the largest finite luminance comes to 1; 1 if there is none above 0.
[[nodiscard]] float getScaleToFit(const BitmapImpl<Rgb>& picture);

/// From dark blue through red to pale yellow, evenly brighter.
[[nodiscard]] VolumeGridMapping makeFalseColors(float inputScale);

/// Shows a colour for each value's luminance. What is outside the mapping's range, once scaled, has the colour of the
/// nearer end, NaN that of the lower one. Colours are read from a table of 4096 cells, which is exact at their edges
/// and linear between.
class FalseColors : public Shading {
public:
    explicit FalseColors(const VolumeGridMapping& mapping);

    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept override;

private:
    float _scale;
    Array<Rgb> _edges; ///< the last one twice
};

} // namespace Ostrel::Gallery
