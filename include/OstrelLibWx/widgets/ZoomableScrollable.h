#pragma once

#include <OstrelLibWx/Export.h>

class wxMouseEvent;
class wxWindow;

namespace Ostrel {

/// Base of views that zoom with the mouse wheel and with a pinch of the touchpad: both reach one operation of the
/// derived class. It is no window itself; a view derives from it besides its window class.
///
/// The toolkit reports pinches as `wxEVT_MAGNIFY` where the system tells it of them in that way, which neither Windows
/// nor GTK does. There a view enables touch events for `wxEVT_GESTURE_ZOOM`, and sends its window a magnify event for
/// each change of the factor and one of 0 at the end.
class OSTREL_WX_API ZoomableScrollable {
public:
    ZoomableScrollable() = default;
    ZoomableScrollable(const ZoomableScrollable&) = delete;
    ZoomableScrollable& operator=(const ZoomableScrollable&) = delete;
    virtual ~ZoomableScrollable();

protected:
    /// A turn of the wheel, or the end of a pinch. The view may be destroyed in it.
    /// @param event where it happened, in client coordinates of the window that got it
    /// @param amount for the wheel its raw rotation, a signed multiple of the event's wheel delta as a rule; for a
    ///     pinch 1 when it was outward in all, else -1, so also when its parts cancel each other out
    virtual void onScrollOrZoom(const wxMouseEvent& event, int amount) = 0;

    /// Takes the wheel and the pinches of `window`, which get no further. The object has to outlive the window, or at
    /// least its input.
    void bindScrollAndZoomEvents(wxWindow* window);

private:
    void onWheel(wxMouseEvent& event);
    void onMagnify(wxMouseEvent& event);

    float _magnifyAccumulator = 0.0f; ///< of the pinch in progress
};

} // namespace Ostrel
