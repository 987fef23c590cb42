#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include "lab/Shading.h"

namespace Ostrel::Gallery {

/// Where a picture lies in a view that zooms and pans. A picture that is smaller than the view, in one direction or
/// both, is in the middle of it; a larger one covers it.
class Placement {
public:
    static constexpr double STEP = 1.25;
    static constexpr double LARGEST_SCALE = 32.0;

    /// Sizes in pixels. A picture of another size, or one that has been fitted and not moved since, is fitted.
    void setSizes(Pixel picture, Pixel view);

    /// As large as it is wholly seen, but not magnified to more than `LARGEST_SCALE`.
    void fit();

    /// Pixel for pixel, about the middle of the view.
    void showUnscaled();

    /// Zooms by so many steps, inward if above 0; what is under `pointer` stays there as far as the edges allow.
    void zoomAbout(Pixel pointer, int steps);

    /// Moves the picture with the pointer.
    void pan(Pixel distance);

    /// View pixels for each pixel of the picture.
    [[nodiscard]] double getScale() const { return _scale; }

    /// The pixel of the picture that lies in the middle of a pixel of the view; nothing beside the picture.
    [[nodiscard]] Optional<Pixel> toPicture(Pixel view) const;

    /// The pixels of the picture that a column or row of the view shows: all that begin in it, or the one that it lies
    /// in. Empty beside the picture.
    struct Span {
        int first = 0;
        int last = 0; ///< exclusive
    };
    [[nodiscard]] Span getColumn(int viewX) const { return getSpan(viewX, _x, _picture.x); }
    [[nodiscard]] Span getRow(int viewY) const { return getSpan(viewY, _y, _picture.y); }

    [[nodiscard]] Pixel getViewSize() const { return _view; }

private:
    [[nodiscard]] double getFittingScale() const;
    void setScale(double scale, double aboutX, double aboutY);
    void keepInside();
    [[nodiscard]] Span getSpan(int position, double origin, int size) const;

    Pixel _picture;
    Pixel _view;
    double _scale = 1.0;
    double _x = 0.0; ///< of the picture's corner in the view
    double _y = 0.0;
    bool _isFitted = true;
};

/// The view with the picture in it, put through `shading`; several pixels that fall on one become their mean as shown.
/// What lies beside the picture is `ground`. `shown` gets the view's size; its memory is used again if it has it.
void showPicture(const BitmapImpl<Rgb>& picture, const Shading& shading, const Placement& placement, const Rgb& ground,
                 BitmapImpl<Rgb>& shown);

} // namespace Ostrel::Gallery
