#include "painting/LinePainting.h"

#include <OstrelLib/Exceptions.h>

#include "painting/PixelDrawing.h"

#include <algorithm>

namespace Ostrel::Wx {

namespace {

wxColour brighten(const wxColour& colour) {
    const auto doubled = [](int channel) { return static_cast<unsigned char>(std::min(2 * channel, 255)); };
    return {doubled(colour.Red()), doubled(colour.Green()), doubled(colour.Blue())};
}

} // namespace

void paintStaticLine(wxDC& dc, wxSize size, wxOrientation orientation, ArrayView<const wxColour> colours,
                     float lengthScale) {
    if (orientation != wxHORIZONTAL && orientation != wxVERTICAL) {
        Detail::throwStopException("widgets/StaticLine", __LINE__);
    }
    const bool horizontal = orientation == wxHORIZONTAL;
    const int length = static_cast<int>(static_cast<float>(horizontal ? size.x : size.y) * lengthScale);
    // Only the full length keeps its colours, even a line of no length is a bright one: this is meant.
    const bool bright = lengthScale != 1.0f;
    int row = 0;
    for (const wxColour& colour : colours) {
        const Pixel from = horizontal ? Pixel{0, row} : Pixel{row, 0};
        const Pixel to = horizontal ? Pixel{length, row} : Pixel{row, length};
        drawPixelLine(dc, from, to, bright ? brighten(colour) : colour);
        ++row;
    }
}

} // namespace Ostrel::Wx
