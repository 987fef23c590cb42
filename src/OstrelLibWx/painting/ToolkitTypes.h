#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>

#include <wx/gdicmn.h>
#include <wx/string.h>

/// The core library's values as the toolkit's, and back.
namespace Ostrel::Wx {

inline wxString toWx(const String& text) {
    return wxString(text.toWide());
}

inline Pixel toPixel(wxPoint point) {
    return {point.x, point.y};
}

inline Pixel toPixel(wxSize size) {
    return {size.x, size.y};
}

inline Bucket toBucket(const wxRect& rectangle) {
    return {{rectangle.x, rectangle.y}, {rectangle.x + rectangle.width, rectangle.y + rectangle.height}};
}

inline wxRect toRect(const Bucket& bucket) {
    return {bucket.min.x, bucket.min.y, bucket.max.x - bucket.min.x, bucket.max.y - bucket.min.y};
}

} // namespace Ostrel::Wx
