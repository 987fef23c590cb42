#include "DialogParentWrapper.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace Ostrel::Fallback {

namespace {

constexpr const char* FOREIGN_WINDOW_TYPE = "OstrelForeignWindow";
constexpr const char* FOREIGN_WINDOW_KEY = "ostrel-foreign-window";

GdkWindow* getForeignWindow(GtkWidget* widget) {
    return static_cast<GdkWindow*>(g_object_get_data(G_OBJECT(widget), FOREIGN_WINDOW_KEY));
}

/// A GTK window that stands for a window of another program or toolkit: dialogs can be made transient for it, and all
/// that would change the window itself does nothing.
void initForeignWindowClass(gpointer type, gpointer) {
    GtkWidgetClass* const widgetClass = GTK_WIDGET_CLASS(type);
    widgetClass->realize = [](GtkWidget* widget) {
        gtk_widget_set_realized(widget, TRUE);
        gtk_widget_set_window(widget, getForeignWindow(widget));
    };
    widgetClass->unrealize = [](GtkWidget* widget) {
        gtk_widget_set_window(widget, nullptr);
        gtk_widget_set_realized(widget, FALSE);
    };
    // GTK's own would give the window a size and a place.
    widgetClass->show = [](GtkWidget*) {};
}

GType getForeignWindowType() {
    static const GType type =
        g_type_register_static_simple(GTK_TYPE_WINDOW, FOREIGN_WINDOW_TYPE, sizeof(GtkWindowClass),
                                      initForeignWindowClass, sizeof(GtkWindow), nullptr, G_TYPE_FLAG_NONE);
    return type;
}

/// The GTK window that `window` is or is part of; null for windows of other programs or toolkits.
GtkWidget* findOwnWindow(GdkWindow* window) {
    gpointer widget = nullptr;
    gdk_window_get_user_data(window, &widget);
    GtkWidget* const top =
        widget != nullptr && GTK_IS_WIDGET(widget) ? gtk_widget_get_toplevel(GTK_WIDGET(widget)) : nullptr;
    return top != nullptr && GTK_IS_WINDOW(top) ? top : nullptr;
}

/// A reference to a GTK window for the native one; null if there is no such window.
GtkWidget* makeParent(WindowHandle window) {
    GdkDisplay* const display = gdk_display_get_default();
    if (!window || display == nullptr || !GDK_IS_X11_DISPLAY(display)) {
        return nullptr;
    }
    GdkWindow* const native =
        gdk_x11_window_foreign_new_for_display(display, static_cast<Window>(window.value())); // our reference
    if (native == nullptr) {
        return nullptr;
    }
    if (GtkWidget* const own = findOwnWindow(native)) {
        g_object_ref(own);
        g_object_unref(native);
        return own;
    }
    auto* const standIn = static_cast<GtkWidget*>(g_object_new(getForeignWindowType(), "type", GTK_WINDOW_TOPLEVEL,
                                                               nullptr)); // GTK's list of windows has the reference
    g_object_set_data_full(G_OBJECT(standIn), FOREIGN_WINDOW_KEY, native, g_object_unref);
    gtk_widget_realize(standIn);
    g_object_ref(standIn);
    return standIn;
}

} // namespace

DialogParentWrapper::DialogParentWrapper(WindowHandle window) {
    m_widget = makeParent(window);
}

DialogParentWrapper::~DialogParentWrapper() {
    GtkWidget* const widget = m_widget;
    m_widget = nullptr;
    if (widget == nullptr) {
        return;
    }
    if (G_TYPE_CHECK_INSTANCE_TYPE(widget, getForeignWindowType())) {
        gtk_widget_destroy(widget); // the stand-in alone
    }
    g_object_unref(widget);
}

} // namespace Ostrel::Fallback
