#include "painting/SmoothDrawing.h"

#include <wx/dc.h>

namespace Ostrel {

SmoothDrawing::SmoothDrawing(wxDC& dc, const Bucket& clip)
    : _own(dc.GetGraphicsContext() == nullptr ? wxGraphicsContext::CreateFromUnknownDC(dc) : nullptr)
    , _context(_own ? _own.get() : dc.GetGraphicsContext()) {
    if (_context == nullptr) {
        return;
    }
    _formerOffset = _context->OffsetEnabled();
    _context->PushState();
    _context->EnableOffset(true);
    _context->Clip(clip.min.x, clip.min.y, clip.width(), clip.height());
}

SmoothDrawing::~SmoothDrawing() {
    if (_context != nullptr) {
        _context->EnableOffset(_formerOffset);
        _context->PopState();
    }
}

} // namespace Ostrel
