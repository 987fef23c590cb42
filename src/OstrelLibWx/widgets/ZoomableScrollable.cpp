#include <OstrelLibWx/widgets/ZoomableScrollable.h>

#include <wx/event.h>
#include <wx/window.h>

#include <utility>

namespace Ostrel {

ZoomableScrollable::~ZoomableScrollable() = default;

void ZoomableScrollable::bindScrollAndZoomEvents(wxWindow* window) {
    window->Bind(wxEVT_MOUSEWHEEL, &ZoomableScrollable::onWheel, this);
    window->Bind(wxEVT_MAGNIFY, &ZoomableScrollable::onMagnify, this);
}

void ZoomableScrollable::onWheel(wxMouseEvent& event) {
    onScrollOrZoom(event, event.GetWheelRotation());
}

void ZoomableScrollable::onMagnify(wxMouseEvent& event) {
    _magnifyAccumulator += event.GetMagnification();
    if (event.GetMagnification() != 0.0f) {
        return; // one gesture is one step, taken at its end
    }
    // The view may be gone after the call. A gesture that sums up to nothing counts as one inward; this is meant.
    const float magnified = std::exchange(_magnifyAccumulator, 0.0f);
    onScrollOrZoom(event, magnified > 0.0f ? 1 : -1);
}

} // namespace Ostrel
