#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Gallery {

/// How the values of a picture become what the screen shows of them.
class Shading : public Polymorphic {
public:
    /// The shown colours, opaque, of as many values; both may be the same memory. Not clamped.
    virtual void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept = 0;
};

} // namespace Ostrel::Gallery
