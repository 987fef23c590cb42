#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include <wx/graphics.h>

class wxDC;

namespace Ostrel {

/// Smooth lines on a device context as long as this lives: the graphics context that it draws through anyway (GTK), as
/// it was afterwards, or one made for it. Lines of odd width lie in the middle of pixels, those of even width on their
/// edges. Nothing else may draw on the device context meanwhile.
class SmoothDrawing {
public:
    /// @param clip nothing is drawn outside it
    SmoothDrawing(wxDC& dc, const Bucket& clip);
    ~SmoothDrawing();
    SmoothDrawing(const SmoothDrawing&) = delete;
    SmoothDrawing& operator=(const SmoothDrawing&) = delete;

    wxGraphicsContext& operator*() const { return *_context; }
    wxGraphicsContext* operator->() const { return _context; }

private:
    AutoPtr<wxGraphicsContext> _own;
    wxGraphicsContext* _context;
    bool _formerOffset;
};

} // namespace Ostrel
