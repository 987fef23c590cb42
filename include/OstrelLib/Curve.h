#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/Types.h>

#include <array>
#include <cstddef>

namespace Ostrel {

/// A control point of a curve: input and output, customarily in [0, 1]; any float is allowed.
struct CurvePoint {
    float x = 0.0F;
    float y = 0.0F;

    friend constexpr bool operator==(const CurvePoint& a, const CurvePoint& b) noexcept = default;
};

/// How a curve runs from point to point. The numbers are those of the choices that users see.
enum class CurveInterpolation : int {
    /// The natural cubic spline: twice continuously differentiable, without curvature at both ends.
    CUBIC_SPLINE = 0,
    LINEAR = 1,
};

/// A tone curve: a function of one float, given by control points. It runs through the points in the order of their x,
/// whatever their order in the list, and is flat before the first and after the last of them.
///
/// - Points that have the same x make a step. The curve arrives at the one that comes first in the list and goes on
///   from the last, whose y is the value at that x; a spline is natural on both sides of the step.
/// - Points with a NaN or an infinity stay in the list, but the curve is that of the others.
/// - One point makes a constant; no point makes the constant 0.
///
/// Finite points give finite values, limited to the range of float. What evaluation needs is worked out at each change,
/// which takes time in proportion to n log n for n points: set many points at once. A const curve may be evaluated by
/// several threads. An index or a mode that is none raises the stop exception ("Curve") and changes nothing.
class OSTREL_API Curve {
public:
    /// The identity: (0, 0) and (1, 1), cubic.
    Curve();
    explicit Curve(Array<CurvePoint> points, CurveInterpolation interpolation = CurveInterpolation::CUBIC_SPLINE);

    /// The points, in the order of the list.
    [[nodiscard]] const Array<CurvePoint>& getPoints() const noexcept;

    /// Replaces all points; they stay in the order given.
    void setPoints(Array<CurvePoint> points);

    /// Adds a point at the end of the list.
    void appendPoint(const CurvePoint& point);

    /// Replaces a point where it stands in the list.
    void setPoint(std::size_t index, const CurvePoint& point);

    /// Removes a point; the later ones move down one place.
    void removePoint(std::size_t index);

    /// Orders the list by x; points with the same x keep their order, and NaN comes last.
    void sortPoints();

    [[nodiscard]] CurveInterpolation getInterpolation() const noexcept;
    void setInterpolation(CurveInterpolation interpolation);

    /// The value at `x`. NaN counts as lying before the first point.
    [[nodiscard]] float operator()(float x) const noexcept;

    /// The values at many places, `values[i]` at `positions[i]`; the two may be the same memory. Ascending places take
    /// the least time. Views of different lengths raise the stop exception ("Curve").
    void evaluate(ArrayView<const float> positions, ArrayView<float> values) const;

    /// Whether it returns every x in [0, 1] as it is: all points lie on the diagonal, the first at or before 0, the
    /// last at or after 1.
    [[nodiscard]] bool isIdentity() const noexcept;

    /// The same points in the same order, and the same interpolation.
    friend bool operator==(const Curve& a, const Curve& b) noexcept {
        return a._points == b._points && a._interpolation == b._interpolation;
    }

private:
    /// The curve from one point to the next, as a cubic polynomial in the distance from the former's x.
    struct Segment {
        double value;
        double slope;
        double quadratic;
        double cubic;
    };

    void update();
    void fitSplines();
    void fitSpline(std::size_t first, std::size_t last);

    Array<CurvePoint> _points;
    CurveInterpolation _interpolation = CurveInterpolation::CUBIC_SPLINE;

    // Worked out from the above: the points that count, by x, and a segment from each of them to the next.
    Array<float> _knots;
    Array<Segment> _segments;
    float _valueBefore = 0.0F;
    float _valueAfter = 0.0F;
    bool _isDiagonal = false;
};

/// The curves of a colour correction. The numbers are part of the files and callbacks that name channels.
enum class CurveChannel : int {
    /// Applies to all three colours.
    MASTER = 0,
    RED = 1,
    GREEN = 2,
    BLUE = 3,
};

constexpr int CURVE_CHANNEL_COUNT = 4;

/// One curve for each channel.
struct OSTREL_API ColorCurve {
    std::array<Curve, CURVE_CHANNEL_COUNT> curves;

    /// Stop exception ("Curve") for a value that is no channel.
    [[nodiscard]] Curve& operator[](CurveChannel channel);
    [[nodiscard]] const Curve& operator[](CurveChannel channel) const;

    friend bool operator==(const ColorCurve& a, const ColorCurve& b) noexcept = default;
};

} // namespace Ostrel
