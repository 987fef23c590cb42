#pragma once

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

inline void PrintTo(const Pixel& p, std::ostream* out) {
    *out << '(' << p.x << ", " << p.y << ')';
}

inline void PrintTo(const Bucket& b, std::ostream* out) {
    PrintTo(b.min, out);
    *out << " to ";
    PrintTo(b.max, out);
}

} // namespace Ostrel
