#include "platform/PopupNative.h"

#include <gtk/gtk.h>

#include <wx/toplevel.h>

namespace Ostrel::Detail {

void letTakeInputBesideModalDialog(wxTopLevelWindow& window) {
    GtkWindowGroup* const group = gtk_window_group_new();
    gtk_window_group_add_window(group, GTK_WINDOW(window.GetHandle()));
    g_object_unref(group); // the window keeps it
}

} // namespace Ostrel::Detail
