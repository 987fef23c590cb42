#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Types.h>

#include "lab/Shading.h"

#include <array>
#include <utility>

namespace Ostrel::Gallery {

/// What the values of a picture are.
enum class PictureValues {
    STORED, ///< bytes over 255, as the screen takes them
    LIGHT,  ///< amounts of light, from 0 up without a limit
};

/// How bright a linear colour is: Y of ITU-R BT.709.
[[nodiscard]] constexpr float getLuminance(const Rgb& color) noexcept {
    return 0.2126F * color.red + 0.7152F * color.green + 0.0722F * color.blue;
}

/// The stored value, 0 to 1, of an amount of light: the transfer curve of sRGB, IEC 61966-2-1. NaN counts as 0.
[[nodiscard]] float encodeSrgb(float light);
[[nodiscard]] Rgb encodeSrgb(const Rgb& light);

/// The inverse: the light of a stored colour. Below 0 it is 0; alpha stays.
[[nodiscard]] Rgb decodeSrgb(const Rgb& stored);

/// The factors that make what is `white` grey, without changing its luminance. At most `MOST_BALANCE` either way, and
/// all 1 for what has no luminance, or an infinite one.
constexpr float MOST_BALANCE = 16.0F;
[[nodiscard]] Rgb getWhiteBalance(const Rgb& white);

/// The picture with all colours multiplied by these; the picture itself if all are 1.
[[nodiscard]] SharedPtr<const BitmapImpl<Rgb>> balance(SharedPtr<const BitmapImpl<Rgb>> picture, const Rgb& factors);

/// What a picture value looks like once the curves have been applied: first the colour's own curve, then Master over
/// the whole, which is the order of most programs that have such curves; light is encoded for the screen after that. A
/// curve that is the identity is passed over, so that values above 1 reach the other one.
///
/// Each colour has a table for all of this, which is read linearly between the edges of its cells. From 0 to 4 there
/// are at least 4096 cells to a unit of the value; what lies beyond, if the curve has points there, shares 16384 cells
/// over the whole of it. Curves are flat outside of their points, so the table's ends are exact. Elsewhere the error is
/// an eighth of the second derivative times the square of the cell: below 1/8 of a byte for a spline that goes from 0
/// to 1 between points 41 cells apart, which is 0.01 from 0 to 4, and less with the square of their distance. Light
/// adds to it where the curve rises out of black, at which the encoding bends: a fifth of a byte for each unit of the
/// curve's slope, in that one cell. A step is as wide as one cell.
class ToneTables : public Shading {
public:
    ToneTables(const ColorCurve& curves, PictureValues values);

    /// Curves may leave [0, 1]. NaN counts as a value before the first point.
    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept override;

private:
    /// What becomes of a range of values.
    struct Cells {
        float from = 0.0F; ///< the value at the first cell's edge
        float perUnit = 1.0F;
        float count = 1.0F;
        Array<float> edges; ///< shown, at the cells' edges; the last one twice
    };

    /// What becomes of one colour.
    struct Table {
        float denseFrom = 0.0F; ///< values from here to `denseTo` are read from `dense`, all others from `whole`
        float denseTo = -1.0F;
        Cells dense;
        Cells whole;
    };

    static Table makeTable(const Curve& own, const Curve& master, PictureValues values);
    static Cells makeCells(const Curve& own, const Curve& master, PictureValues values, float from, float to,
                           std::size_t count);
    static void applyTable(const Table& table, float Rgb::*colour, ArrayView<const Rgb> values,
                           ArrayView<Rgb> shown) noexcept;

    std::array<Table, 3> _tables;
};

/// The same without tables, for files that tell finer steps apart than a screen.
class ExactTones : public Shading {
public:
    ExactTones(ColorCurve curves, PictureValues values)
        : _curves(std::move(curves))
        , _values(values) {}

    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept override;

private:
    ColorCurve _curves;
    PictureValues _values;
};

/// The light of what a picture holds.
class Light : public Shading {
public:
    explicit Light(PictureValues values)
        : _values(values) {}

    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept override;

private:
    PictureValues _values;
};

/// What becomes of a whole picture. Alpha is that of `alphas`, which has the same size.
[[nodiscard]] BitmapImpl<Rgb> shade(const BitmapImpl<Rgb>& values, const Shading& shading,
                                    const BitmapImpl<Rgb>& alphas);

} // namespace Ostrel::Gallery
