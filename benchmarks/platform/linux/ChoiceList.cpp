#include "ChoiceList.h"

#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>
#include <wx/choice.h>

void openChoiceList(wxChoice& choice) {
    auto* const box = GTK_COMBO_BOX(choice.GetHandle());
    gtk_combo_box_popup(box);
    GtkWidget* const list = gtk_accessible_get_widget(GTK_ACCESSIBLE(gtk_combo_box_get_popup_accessible(box)));
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // it is what the toolkit's Update() calls
        gdk_window_process_updates(gtk_widget_get_window(gtk_widget_get_toplevel(list)), TRUE);
    G_GNUC_END_IGNORE_DEPRECATIONS
    gdk_display_flush(gtk_widget_get_display(list));
}

void closeChoiceList(wxChoice& choice) {
    gtk_combo_box_popdown(GTK_COMBO_BOX(choice.GetHandle()));
}
