#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include <wx/graphics.h>

class wxDC;

namespace Ostrel {

/// Smooth lines on a device context as long as this lives: the graphics context that it draws through anyway (GTK), as
/// it was afterwards, or one made for it. Lines of odd width lie in the middle of pixels, those of even width on their
/// edges. Nothing else may draw on the device context meanwhile.
///
/// There are device contexts that nothing smooth can be drawn on: on Windows that of the screen.
class SmoothDrawing {
public:
    /// @param clip nothing is drawn outside it
    SmoothDrawing(wxDC& dc, const Bucket& clip);
    ~SmoothDrawing();
    SmoothDrawing(const SmoothDrawing&) = delete;
    SmoothDrawing& operator=(const SmoothDrawing&) = delete;

    /// Whether the device context can be drawn on so; otherwise the other operators must not be used.
    explicit operator bool() const { return _context != nullptr; }

    wxGraphicsContext& operator*() const { return *_context; }
    wxGraphicsContext* operator->() const { return _context; }

private:
    AutoPtr<wxGraphicsContext> _own;
    wxGraphicsContext* _context;
    bool _formerOffset = false;
};

} // namespace Ostrel
