#include "FirstPaint.h"

#include <gtk/gtk.h>
#include <wx/window.h>

namespace {

void onPainted(GdkFrameClock*, gpointer painted) {
    *static_cast<bool*>(painted) = true;
}

} // namespace

void awaitFirstPaint(const wxWindow& shown) {
    bool painted = false;
    GdkFrameClock* const clock = gtk_widget_get_frame_clock(shown.GetHandle());
    const gulong handler = g_signal_connect(clock, "after-paint", G_CALLBACK(onPainted), &painted);
    while (!painted) {
        gtk_main_iteration();
    }
    g_signal_handler_disconnect(clock, handler);
}
