#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>

#include <ostream>

/// How test messages show the core's values.
namespace Ostrel {

inline void PrintTo(const String& text, std::ostream* out) {
    *out << '"' << text.toUtf8() << '"';
}

inline void PrintTo(const Path& path, std::ostream* out) {
    PrintTo(path.nativeStr(), out);
}

inline void PrintTo(const Bucket& b, std::ostream* out) {
    *out << '(' << b.min.x << ", " << b.min.y << ") to (" << b.max.x << ", " << b.max.y << ')';
}

inline void PrintTo(const Hsv& c, std::ostream* out) {
    *out << "hsv(" << c.hue << ", " << c.saturation << ", " << c.value << ')';
}

} // namespace Ostrel
