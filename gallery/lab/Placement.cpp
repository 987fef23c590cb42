#include "lab/Placement.h"

#include "lab/Rows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Ostrel::Gallery {

void Placement::setSizes(Pixel picture, Pixel view) {
    const bool isAnother = picture != _picture;
    _picture = {std::max(picture.x, 1), std::max(picture.y, 1)};
    _view = {std::max(view.x, 1), std::max(view.y, 1)};
    if (isAnother || _isFitted) {
        fit();
    } else {
        setScale(_scale, 0.0, 0.0);
    }
}

void Placement::fit() {
    _scale = getFittingScale();
    keepInside();
    _isFitted = true;
}

void Placement::showUnscaled() {
    setScale(1.0, _view.x / 2.0, _view.y / 2.0);
}

void Placement::zoomAbout(Pixel pointer, int steps) {
    setScale(_scale * std::pow(STEP, steps), pointer.x + 0.5, pointer.y + 0.5);
}

void Placement::pan(Pixel distance) {
    _x += distance.x;
    _y += distance.y;
    _isFitted = false;
    keepInside();
}

Optional<Pixel> Placement::toPicture(Pixel view) const {
    const Pixel pixel{static_cast<int>(std::floor((view.x + 0.5 - _x) / _scale)),
                      static_cast<int>(std::floor((view.y + 0.5 - _y) / _scale))};
    return Bucket{{0, 0}, _picture}.contains(pixel) ? Optional<Pixel>(pixel) : Optional<Pixel>();
}

double Placement::getFittingScale() const {
    return std::min(
        {static_cast<double>(_view.x) / _picture.x, static_cast<double>(_view.y) / _picture.y, LARGEST_SCALE});
}

void Placement::setScale(double scale, double aboutX, double aboutY) {
    const double after = std::clamp(scale, std::min(getFittingScale(), 1.0), LARGEST_SCALE);
    _x = aboutX - (aboutX - _x) * after / _scale;
    _y = aboutY - (aboutY - _y) * after / _scale;
    _scale = after;
    _isFitted = false;
    keepInside();
}

void Placement::keepInside() {
    // On whole pixels, so that a picture does not change when it is moved.
    const auto keep = [](double position, double size, int view) {
        return std::round(size <= view ? (view - size) / 2.0 : std::clamp(position, view - size, 0.0));
    };
    _x = keep(_x, _picture.x * _scale, _view.x);
    _y = keep(_y, _picture.y * _scale, _view.y);
}

Placement::Span Placement::getSpan(int position, double origin, int size) const {
    if (_scale >= 1.0) {
        const double middle = std::floor((position + 0.5 - origin) / _scale);
        const int pixel = static_cast<int>(middle);
        return middle >= 0.0 && middle < size ? Span{pixel, pixel + 1} : Span{};
    }
    const double from = (position - origin) / _scale;
    const double to = (position + 1 - origin) / _scale;
    if (to <= 0.0 || from >= size) {
        return {};
    }
    const int first = std::min(static_cast<int>(std::max(from, 0.0)), size - 1);
    return {first, std::clamp(static_cast<int>(to), first + 1, size)};
}

namespace {

using Span = Placement::Span;

/// What rows have in common: for each column of the view its pixel, or for each pixel its column.
struct Columns {
    Span view;            ///< the columns that show something
    Span picture;         ///< the pixels that are seen
    Array<int> magnified; ///< for each column in `view` the pixel
    Array<int> reduced;   ///< for each pixel in `picture` the column
};

Columns findColumns(const Placement& placement, int width) {
    Columns columns;
    columns.magnified.reserve(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x) {
        const Span pixels = placement.getColumn(x);
        if (pixels.first == pixels.last) {
            continue;
        }
        if (columns.magnified.empty()) {
            columns.view.first = x;
            columns.picture.first = pixels.first;
        }
        columns.view.last = x + 1;
        columns.picture.last = pixels.last;
        columns.magnified.push_back(pixels.first);
        columns.reduced.resize(static_cast<std::size_t>(pixels.last - columns.picture.first), x);
    }
    return columns;
}

void magnifyRow(ArrayView<const Rgb> pixels, const Shading& shading, const Columns& columns, ArrayView<Rgb> shown) {
    const ArrayView<Rgb> seen = shown.subspan(static_cast<std::size_t>(columns.view.first), columns.magnified.size());
    std::transform(columns.magnified.begin(), columns.magnified.end(), seen.begin(),
                   [pixels](int pixel) { return pixels[static_cast<std::size_t>(pixel)]; });
    shading.apply(seen, seen);
}

/// Adds the pixels of a row to the columns into which they fall, counting them in alpha.
void addRow(ArrayView<const Rgb> pixels, const Shading& shading, const Columns& columns, ArrayView<Rgb> sums) {
    constexpr std::size_t PART = 256;
    std::array<Rgb, PART> toned;
    const ArrayView<const Rgb> seen =
        pixels.subspan(static_cast<std::size_t>(columns.picture.first), columns.reduced.size());
    for (std::size_t first = 0; first < seen.size(); first += PART) {
        const std::size_t count = std::min(PART, seen.size() - first);
        shading.apply(seen.subspan(first, count), ArrayView<Rgb>(toned).first(count));
        for (std::size_t i = 0; i < count; ++i) {
            // What no screen shows must not outweigh its neighbours.
            const auto clamp = [](float value) { return std::min(std::max(value, 0.0F), 1.0F); };
            Rgb& sum = sums[static_cast<std::size_t>(columns.reduced[first + i])];
            sum = sum + Rgb{clamp(toned[i].red), clamp(toned[i].green), clamp(toned[i].blue), 1.0F};
        }
    }
}

} // namespace

void showPicture(const BitmapImpl<Rgb>& picture, const Shading& shading, const Placement& placement, const Rgb& ground,
                 BitmapImpl<Rgb>& shown) {
    const Pixel size = placement.getViewSize();
    if (shown.getWidth() != size.x || shown.getHeight() != size.y) {
        shown = BitmapImpl<Rgb>(size.x, size.y);
    }
    const Columns columns = findColumns(placement, size.x);
    forEachRow(size.y, 0, {}, [&](int y) {
        const ArrayView<Rgb> row = shown.row(y);
        const Span rows = placement.getRow(y);
        if (placement.getScale() >= 1.0) {
            std::fill(row.begin(), row.end(), ground);
            if (rows.first < rows.last) {
                magnifyRow(picture.row(rows.first), shading, columns, row);
            }
            return;
        }
        std::fill(row.begin(), row.end(), Rgb{0.0F, 0.0F, 0.0F, 0.0F});
        for (int pixelRow = rows.first; pixelRow < rows.last; ++pixelRow) {
            addRow(picture.row(pixelRow), shading, columns, row);
        }
        std::transform(row.begin(), row.end(), row.begin(),
                       [&ground](const Rgb& sum) { return sum.alpha > 0.0F ? sum / sum.alpha : ground; });
    });
}

} // namespace Ostrel::Gallery
