#include "platform/ChoiceNative.h"

#include <gtk/gtk.h>
#include <wx/choice.h>

#include <string>

namespace Ostrel::Detail {

namespace {

/// A style sheet holds for the widget that it is given to and not for what is inside.
void addStyleSheet(GtkWidget* widget, gpointer provider) {
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(provider),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION + 1);
    if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), addStyleSheet, provider);
    }
}

std::string toCss(const wxColour& colour) {
    return colour.GetAsString(wxC2S_CSS_SYNTAX).ToStdString();
}

} // namespace

void dressChoice(wxChoice& choice, const wxColour& background, const wxColour& foreground, const wxColour& frame) {
    GtkCssProvider* const provider = gtk_css_provider_new();
    const std::string css = "button{background:" + toCss(background) + ";border:1px solid " + toCss(frame) +
                            ";border-radius:0;box-shadow:none;min-height:0;min-width:0;padding:1px 4px}"
                            "*{color:" +
                            toCss(foreground) +
                            ";text-shadow:none;-gtk-icon-shadow:none;transition:none}"
                            "cellview{background:none}arrow{min-width:12px}";
    gtk_css_provider_load_from_data(provider, css.c_str(), -1, nullptr);
    addStyleSheet(static_cast<GtkWidget*>(choice.GetHandle()), provider);
    g_object_unref(provider);
}

} // namespace Ostrel::Detail
