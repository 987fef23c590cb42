#include "support/ScreenPicture.h"

#include <cairo.h>
#include <wx/dc.h>
#include <wx/graphics.h>

void dropKeptScreenPicture(const wxDC& screen) {
    cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(screen.GetGraphicsContext()->GetNativeContext())));
}
