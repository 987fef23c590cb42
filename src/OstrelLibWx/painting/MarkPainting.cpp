#include "painting/MarkPainting.h"

#include "painting/PixelDrawing.h"

#include <wx/brush.h>
#include <wx/dc.h>
#include <wx/pen.h>

namespace Ostrel::Wx {

void paintTriangle(wxDC& dc, Pixel middle, int depth, TriangleDirection direction, const wxColour& colour) {
    const ScopedCrispDrawing crisp(dc);
    // The tip is as far from the middle as the side is, up to half a pixel.
    const int first = -(depth / 2);
    for (int i = 0; i < depth; ++i) {
        const int reach = depth - 1 - i;
        const Pixel from{first + i, -reach};
        const Pixel to{first + i + 1, reach + 1};
        fillPixels(dc,
                   direction == TriangleDirection::RIGHT
                       ? Bucket{middle + from, middle + to}
                       : Bucket{middle + Pixel{from.y, from.x}, middle + Pixel{to.y, to.x}},
                   colour);
    }
}

void paintFocusFrame(wxDC& dc, const Bucket& rectangle, const wxColour& colour) {
    if (rectangle.isEmpty()) {
        return;
    }
    const ScopedCrispDrawing crisp(dc);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colour));
    const auto [left, top] = rectangle.min;
    const Pixel last = rectangle.max - Pixel{1, 1};
    // As on a chessboard, so that the dots go round the corners.
    const auto dot = [&dc, left = left, top = top](int x, int y) {
        if ((x - left + y - top) % 2 == 0) {
            dc.DrawRectangle(x, y, 1, 1);
        }
    };
    for (int x = left; x <= last.x; ++x) {
        dot(x, top);
        dot(x, last.y);
    }
    for (int y = top + 1; y < last.y; ++y) {
        dot(left, y);
        dot(last.x, y);
    }
}

} // namespace Ostrel::Wx
