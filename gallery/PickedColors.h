#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Gallery {

class PictureView;

/// What the eye dropper of a colour picker has taken from a picture. It reads the screen, where the picture has been
/// balanced already and put through curves; this knows the picture's own values in those places.
class PickedColors {
public:
    /// The picture's own value behind a colour that a picker has just told of, if its eye dropper has taken it from the
    /// view, now or before: for the same square of pixels their mean.
    /// @param picture what the view shows, before anything is done to it
    Optional<Rgb> find(const Rgb& color, const PictureView& view, const BitmapImpl<Rgb>& picture);

private:
    struct PickedColor {
        Rgb shown; ///< on the screen
        Rgb value; ///< in the picture
    };

    Array<PickedColor> _picked; ///< in the order of time
};

} // namespace Ostrel::Gallery
