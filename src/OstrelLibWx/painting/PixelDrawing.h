#pragma once

#include <OstrelLib/Geometry.h>

#include <wx/graphics.h>

class wxColour;
class wxDC;

namespace Ostrel {

/// While it lives, outlines cover whole pixels: it switches off smoothing where the device context draws through a
/// graphics context (GTK), so that lines end at the same pixel on every platform. Restores the former mode.
class ScopedCrispDrawing {
public:
    explicit ScopedCrispDrawing(wxDC& dc);
    ~ScopedCrispDrawing();
    ScopedCrispDrawing(const ScopedCrispDrawing&) = delete;
    ScopedCrispDrawing& operator=(const ScopedCrispDrawing&) = delete;

private:
    wxGraphicsContext* _context;
    wxAntialiasMode _formerMode = wxANTIALIAS_DEFAULT;
};

/// A line one pixel wide; `to` is not part of it. Leaves its pen in the device context.
void drawPixelLine(wxDC& dc, Pixel from, Pixel to, const wxColour& colour);

/// The outermost pixels of `rectangle`; an empty one draws nothing. Leaves its pen and the transparent brush in the
/// device context.
void drawPixelFrame(wxDC& dc, const Bucket& rectangle, const wxColour& colour);

/// All pixels of `rectangle`. Leaves the transparent pen and its brush in the device context.
void fillPixels(wxDC& dc, const Bucket& rectangle, const wxColour& colour);

} // namespace Ostrel
