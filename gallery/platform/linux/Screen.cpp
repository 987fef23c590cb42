#include "platform/Screen.h"

#include <cairo.h>
#include <wx/graphics.h>

namespace Ostrel::Gallery {

void discardScreenCache(wxScreenDC& screen) {
    // Cairo keeps what it has read from a surface until the surface is drawn on through Cairo itself; the screen's
    // lives as long as the process.
    cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(screen.GetGraphicsContext()->GetNativeContext())));
}

} // namespace Ostrel::Gallery
