#include "painting/PixelDrawing.h"

#include <wx/brush.h>
#include <wx/dc.h>
#include <wx/pen.h>

namespace Ostrel {

ScopedCrispDrawing::ScopedCrispDrawing(wxDC& dc)
    : _context(dc.GetGraphicsContext()) {
    if (_context != nullptr) {
        _formerMode = _context->GetAntialiasMode();
        _context->SetAntialiasMode(wxANTIALIAS_NONE);
    }
}

ScopedCrispDrawing::~ScopedCrispDrawing() {
    if (_context != nullptr) {
        _context->SetAntialiasMode(_formerMode);
    }
}

namespace {

wxPen pixelPen(const wxColour& colour) {
    wxPen pen(colour, 1, wxPENSTYLE_SOLID);
    pen.SetCap(wxCAP_BUTT); // the toolkit's round cap would reach beyond the last pixel
    return pen;
}

} // namespace

void drawPixelLine(wxDC& dc, Pixel from, Pixel to, const wxColour& colour) {
    const ScopedCrispDrawing crisp(dc);
    dc.SetPen(pixelPen(colour));
    dc.DrawLine(from.x, from.y, to.x, to.y);
}

void drawPixelFrame(wxDC& dc, const Bucket& rectangle, const wxColour& colour) {
    if (rectangle.isEmpty()) {
        return;
    }
    const ScopedCrispDrawing crisp(dc);
    dc.SetPen(pixelPen(colour));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(rectangle.min.x, rectangle.min.y, rectangle.width(), rectangle.height());
}

void fillPixels(wxDC& dc, const Bucket& rectangle, const wxColour& colour) {
    if (rectangle.isEmpty()) {
        return;
    }
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colour));
    dc.DrawRectangle(rectangle.min.x, rectangle.min.y, rectangle.width(), rectangle.height());
}

} // namespace Ostrel
