#include "lab/Tones.h"

#include "lab/Rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Ostrel::Gallery {

namespace {

/// The values that most pictures have.
constexpr float DENSE_FROM = 0.0F;
constexpr float DENSE_TO = 4.0F;

constexpr double DENSE_CELLS_PER_UNIT = 4096.0;
constexpr double LEAST_DENSE_CELLS = 256.0;
constexpr std::size_t WHOLE_CELLS = 16384;

constexpr float ENDLESS = std::numeric_limits<float>::infinity();

/// Ranges below it are as good as a step.
constexpr float LEAST_WIDTH = 0.0001F;

/// Where the curve is not flat: from its first point to its last.
std::pair<float, float> getRange(const Curve& curve) {
    float from = std::numeric_limits<float>::max();
    float to = std::numeric_limits<float>::lowest();
    for (const CurvePoint& point : curve.getPoints()) {
        if (std::isfinite(point.x) && std::isfinite(point.y)) {
            from = std::min(from, point.x);
            to = std::max(to, point.x);
        }
    }
    return from <= to ? std::pair(from, std::max(to, from + LEAST_WIDTH)) : std::pair(0.0F, 1.0F);
}

} // namespace

float encodeSrgb(float light) {
    if (!(light > 0.0F)) {
        return 0.0F;
    }
    return light <= 0.0031308F ? 12.92F * light : 1.055F * std::pow(light, 1.0F / 2.4F) - 0.055F;
}

Rgb encodeSrgb(const Rgb& light) {
    return {encodeSrgb(light.red), encodeSrgb(light.green), encodeSrgb(light.blue), light.alpha};
}

Rgb decodeSrgb(const Rgb& stored) {
    const auto decode = [](float channel) {
        if (!(channel > 0.0F)) {
            return 0.0F;
        }
        return channel <= 0.04045F ? channel / 12.92F : std::pow((channel + 0.055F) / 1.055F, 2.4F);
    };
    return {decode(stored.red), decode(stored.green), decode(stored.blue), stored.alpha};
}

Rgb getWhiteBalance(const Rgb& white) {
    const float luminance = getLuminance(white);
    if (!(luminance > 0.0F) || !std::isfinite(luminance)) {
        return {1.0F, 1.0F, 1.0F};
    }
    const auto getFactor = [luminance](float channel) {
        return channel > 0.0F ? std::clamp(luminance / channel, 1.0F / MOST_BALANCE, MOST_BALANCE) : MOST_BALANCE;
    };
    return {getFactor(white.red), getFactor(white.green), getFactor(white.blue)};
}

SharedPtr<const BitmapImpl<Rgb>> balance(SharedPtr<const BitmapImpl<Rgb>> picture, const Rgb& factors) {
    if (!picture || factors == Rgb{1.0F, 1.0F, 1.0F}) {
        return picture;
    }
    auto balanced = std::make_shared<BitmapImpl<Rgb>>(picture->getWidth(), picture->getHeight());
    forEachRow(picture->getHeight(), 0, {}, [&](int y) {
        const ArrayView<const Rgb> row = picture->row(y);
        std::transform(row.begin(), row.end(), balanced->row(y).begin(),
                       [&factors](const Rgb& pixel) { return pixel * factors; });
    });
    return balanced;
}

ToneTables::ToneTables(const ColorCurve& curves, PictureValues values)
    : _tables{makeTable(curves[CurveChannel::RED], curves[CurveChannel::MASTER], values),
              makeTable(curves[CurveChannel::GREEN], curves[CurveChannel::MASTER], values),
              makeTable(curves[CurveChannel::BLUE], curves[CurveChannel::MASTER], values)} {}

ToneTables::Table ToneTables::makeTable(const Curve& own, const Curve& master, PictureValues values) {
    // Of two identities the first has the range that the screen can show.
    const auto [from, to] = getRange(own.isIdentity() && !master.isIdentity() ? master : own);
    const float denseFrom = std::max(from, DENSE_FROM);
    const float denseTo = std::min(to, DENSE_TO);
    const double denseWidth = static_cast<double>(denseTo) - static_cast<double>(denseFrom);
    const auto makeHere = [&own = own, &master = master, values](float first, float last, std::size_t count) {
        return makeCells(own, master, values, first, last, count);
    };
    Table table;
    if (denseWidth > 0.0) {
        table.denseFrom = denseFrom;
        table.denseTo = denseTo;
        table.dense =
            makeHere(denseFrom, denseTo,
                     static_cast<std::size_t>(std::max(denseWidth * DENSE_CELLS_PER_UNIT, LEAST_DENSE_CELLS)));
    }
    if (denseFrom == from && denseTo == to) {
        // Beyond its points the curve is flat: these cells have its ends, and the others are for NaN alone.
        table.denseFrom = -ENDLESS;
        table.denseTo = ENDLESS;
    }
    table.whole = makeHere(from, to, table.denseTo == ENDLESS ? 1 : WHOLE_CELLS);
    return table;
}

ToneTables::Cells ToneTables::makeCells(const Curve& own, const Curve& master, PictureValues values, float from,
                                        float to, std::size_t count) {
    const double width = static_cast<double>(to) - static_cast<double>(from);
    Array<float> places(count + 2, to);
    for (std::size_t i = 0; i < count; ++i) {
        places[i] = static_cast<float>(from + width * static_cast<double>(i) / static_cast<double>(count));
    }
    for (const Curve* const curve : {&own, &master}) {
        if (!curve->isIdentity()) {
            curve->evaluate(places, places);
        }
    }
    if (values == PictureValues::LIGHT) {
        std::transform(places.begin(), places.end(), places.begin(), [](float light) { return encodeSrgb(light); });
    }
    return {from, static_cast<float>(static_cast<double>(count) / width), static_cast<float>(count), std::move(places)};
}

void ToneTables::apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept {
    // One table after the other: each fits into the processor's nearest cache, all three do not.
    applyTable(_tables[0], &Rgb::red, values, shown);
    applyTable(_tables[1], &Rgb::green, values, shown);
    applyTable(_tables[2], &Rgb::blue, values, shown);
    for (Rgb& pixel : shown) {
        pixel.alpha = 1.0F;
    }
}

void ToneTables::applyTable(const Table& table, float Rgb::*colour, ArrayView<const Rgb> values,
                            ArrayView<Rgb> shown) noexcept {
    // Copies, which no write to a pixel can change.
    const auto makeReader = [](const Cells& cells) {
        return [from = cells.from, perUnit = cells.perUnit, count = cells.count, edges = cells.edges.data()](float x) {
            const float place = (x - from) * perUnit;
            const float inside = std::min(place > 0.0F ? place : 0.0F, count); // NaN is not above 0
            const int cell = static_cast<int>(inside);
            const float left = edges[cell];
            return left + (inside - static_cast<float>(cell)) * (edges[cell + 1] - left);
        };
    };
    const auto readDense = makeReader(table.dense);
    const auto readWhole = makeReader(table.whole);
    const float denseFrom = table.denseFrom;
    const float denseTo = table.denseTo;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const float x = values[i].*colour;
        shown[i].*colour = x >= denseFrom && x <= denseTo ? readDense(x) : readWhole(x);
    }
}

void ExactTones::apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept {
    const auto applyCurves = [this](float value, CurveChannel channel) {
        for (const Curve* const curve : {&_curves[channel], &_curves[CurveChannel::MASTER]}) {
            value = curve->isIdentity() ? value : (*curve)(value);
        }
        return _values == PictureValues::LIGHT ? encodeSrgb(value) : value;
    };
    for (std::size_t i = 0; i < shown.size(); ++i) {
        shown[i] = {applyCurves(values[i].red, CurveChannel::RED), applyCurves(values[i].green, CurveChannel::GREEN),
                    applyCurves(values[i].blue, CurveChannel::BLUE)};
    }
}

void Light::apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept {
    std::transform(values.begin(), values.end(), shown.begin(), [this](const Rgb& value) {
        const Rgb light = _values == PictureValues::STORED ? decodeSrgb(value) : value;
        return Rgb{light.red, light.green, light.blue};
    });
}

BitmapImpl<Rgb> shade(const BitmapImpl<Rgb>& values, const Shading& shading, const BitmapImpl<Rgb>& alphas) {
    BitmapImpl<Rgb> shaded(values.getWidth(), values.getHeight());
    forEachRow(values.getHeight(), 0, {}, [&](int y) {
        const ArrayView<Rgb> row = shaded.row(y);
        shading.apply(values.row(y), row);
        std::transform(row.begin(), row.end(), alphas.row(y).begin(), row.begin(), [](Rgb color, const Rgb& alpha) {
            color.alpha = alpha.alpha;
            return color;
        });
    });
    return shaded;
}

} // namespace Ostrel::Gallery
