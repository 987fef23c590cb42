#include "models/CurvesFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>
#include <utility>

namespace Ostrel::Detail {

namespace {

constexpr unsigned VERSION = 4;

/// For every other version, whichever it is: the text is meant to stand as it is.
constexpr const char* VERSION_TEXT = "Version 1 of acv file is not supported.";

/// Of a step of the file; 1/255 as a float. Multiplied by 255 again it is never below the step, so that truncation
/// gives back what was read.
constexpr float STEP = 0.003921569F;
constexpr float STEPS = 255.0F;

/// The ends of the input range, with room for rounding. A curve that ends before them goes on flat.
constexpr float ALMOST_ZERO = 0.000001F;
constexpr float ALMOST_ONE = 0.999999F;

constexpr std::size_t BYTES_PER_POINT = 4;
constexpr std::size_t POINTS_PER_READ = 256;

unsigned decode(const unsigned char* bytes) {
    return unsigned{bytes[0]} << 8U | bytes[1];
}

unsigned readNumber(Io::BinaryInputStream& stream) {
    std::array<unsigned char, 2> bytes{};
    stream.readExactly(bytes.data(), bytes.size());
    return decode(bytes.data());
}

/// Reads that many points, a piece at a time: a piece that is not there ends the reading before memory is taken for it.
Array<CurvePoint> readPoints(Io::BinaryInputStream& stream, std::size_t count) {
    std::array<unsigned char, POINTS_PER_READ * BYTES_PER_POINT> bytes{};
    Array<CurvePoint> points;
    while (points.size() < count) {
        const std::size_t piece = std::min(count - points.size(), POINTS_PER_READ);
        stream.readExactly(bytes.data(), piece * BYTES_PER_POINT);
        for (std::size_t i = 0; i < piece; ++i) {
            const unsigned char* const point = bytes.data() + i * BYTES_PER_POINT;
            const auto output = static_cast<float>(decode(point));
            const auto input = static_cast<float>(decode(point + 2));
            points.push_back({input * STEP, output * STEP});
        }
    }
    return points;
}

/// Makes the points those of a curve over the whole range of inputs.
void extendToEnds(Array<CurvePoint>& points) {
    const CurvePoint first = points.front(); // in the order of the file
    const CurvePoint last = points.back();
    if (last.x < ALMOST_ONE) {
        points.push_back({1.0F, last.y});
    }
    if (first.x > ALMOST_ZERO) {
        points.push_back({0.0F, first.y});
    }
}

void appendNumber(Array<unsigned char>& bytes, unsigned number) {
    bytes.push_back(static_cast<unsigned char>(number >> 8U & 0xFFU));
    bytes.push_back(static_cast<unsigned char>(number & 0xFFU));
}

/// The low 16 bits of the value's integer part in steps: it is truncated, neither rounded nor clamped, and a value
/// outside of the file's range wraps. This is meant. A value that is no number is written as 0.
unsigned toSteps(float value) {
    constexpr float WRAP = 65536.0F;
    const float wrapped = std::fmod(std::trunc(value * STEPS), WRAP);
    return std::isfinite(wrapped) ? static_cast<unsigned>(static_cast<int>(wrapped)) : 0U;
}

} // namespace

Expected<ColorCurve, String> readCurves(Io::BinaryInputStream& stream) {
    if (readNumber(stream) != VERSION) {
        return Unexpected<String>(VERSION_TEXT);
    }
    ColorCurve curves;
    const std::size_t recordCount = readNumber(stream);
    for (std::size_t i = 0; i < recordCount; ++i) {
        const std::size_t pointCount = readNumber(stream);
        if (i == curves.curves.size()) {
            break; // the files of many programs have a fifth record, which says nothing
        }
        Array<CurvePoint> points = readPoints(stream, pointCount);
        if (points.empty()) {
            continue; // a record without points keeps the default, as no record does
        }
        extendToEnds(points);
        Curve& curve = curves.curves[i];
        curve.setPoints(std::move(points));
        curve.sortPoints();
    }
    return curves;
}

Array<unsigned char> encodeCurves(const ColorCurve& curves) {
    std::size_t size = 4;
    for (const Curve& curve : curves.curves) {
        size += 2 + curve.getPoints().size() * BYTES_PER_POINT;
    }
    Array<unsigned char> bytes;
    bytes.reserve(size);
    appendNumber(bytes, VERSION);
    appendNumber(bytes, CURVE_CHANNEL_COUNT);
    for (const Curve& curve : curves.curves) {
        appendNumber(bytes, static_cast<unsigned>(curve.getPoints().size()));
        for (const CurvePoint& point : curve.getPoints()) {
            appendNumber(bytes, toSteps(point.y));
            appendNumber(bytes, toSteps(point.x));
        }
    }
    return bytes;
}

Expected<ColorCurve, String> loadCurves(const Path& path) {
    try {
        Io::FileInputStream file(path);
        Expected<ColorCurve, String> curves = readCurves(file);
        file.close();
        return curves;
    } catch (...) {
        return Unexpected<String>(ostrelExceptionToString(std::current_exception()));
    }
}

bool saveCurves(const ColorCurve& curves, const Path& path) noexcept {
    try {
        Io::FileOutputStream file(path);
        const Array<unsigned char> bytes = encodeCurves(curves);
        file.write(bytes.data(), bytes.size());
        file.close();
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace Ostrel::Detail
