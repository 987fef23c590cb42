// Reads anything as a curves file. Whatever it is: no fault, no leak, memory in proportion to its length, and if it
// loads, curves that a panel can edit and that saving keeps.

#include "models/CurvesFile.h"

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

using namespace Ostrel;

/// The largest piece of memory that has been asked for since it was set to 0.
std::size_t largestPiece = 0;

void check(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

/// Four bytes of the file become a point of 8 bytes and a segment of 32; a sequence that grows takes twice as much.
std::size_t getJustPiece(std::size_t fileSize) {
    constexpr std::size_t ALWAYS = 4096; // the pieces that are read at a time, and texts
    return ALWAYS + fileSize / 4 * 2 * 32;
}

void checkCurve(const Curve& curve) {
    const Array<CurvePoint>& points = curve.getPoints();
    check(points.size() >= 2, "a curve of less than two points");
    check(points.front().x < 0.00001F && points.back().x > 0.99999F, "a curve that does not span the range");
    check(std::is_sorted(points.begin(), points.end(), [](auto& a, auto& b) { return a.x < b.x; }), "not sorted");
    for (const float x : {-1.0F, 0.0F, 0.3F, 1.0F, 300.0F}) {
        check(std::isfinite(curve(x)), "a value that is no number");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const auto watch = [](const volatile void*, std::size_t size) { largestPiece = std::max(largestPiece, size); };
    check(__sanitizer_install_malloc_and_free_hooks(watch, [](const volatile void*) {}) != 0, "memory is not watched");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Io::MemoryInputStream stream(std::as_bytes(std::span(data, size)));
    largestPiece = 0;
    try {
        const auto curves = Detail::readCurves(stream);
        check(largestPiece <= getJustPiece(size), "more memory than the file's length justifies");
        if (curves) {
            std::for_each(curves->curves.begin(), curves->curves.end(), checkCurve);
            const Array<unsigned char> saved = Detail::encodeCurves(*curves);
            Io::MemoryInputStream again(std::as_bytes(std::span(saved)));
            check(Detail::readCurves(again).has_value(), "what is saved does not load");
        }
    } catch (const Io::StreamException&) {
        check(largestPiece <= getJustPiece(size), "more memory for a refused file than its length justifies");
    }
    return 0;
}
