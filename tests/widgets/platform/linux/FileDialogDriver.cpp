#include "widgets/FileDialogDriver.h"

#include <string>

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/uiaction.h>

namespace FileDialogDriver {

namespace {

using namespace Ostrel;

Array<GtkWindow*> getShownWindows() {
    Array<GtkWindow*> windows;
    GList* const list = gtk_window_list_toplevels();
    for (const GList* node = list; node != nullptr; node = node->next) {
        if (gtk_widget_get_visible(GTK_WIDGET(node->data)) != FALSE) {
            windows.push_back(GTK_WINDOW(node->data));
        }
    }
    g_list_free(list);
    return windows;
}

WindowHandle getHandle(GtkWindow* window) {
    GdkWindow* const native = gtk_widget_get_window(GTK_WIDGET(window));
    return native == nullptr ? WindowHandle() : WindowHandle(gdk_x11_window_get_xid(native));
}

GtkFileChooser* getChooser(WindowHandle dialog) {
    for (GtkWindow* const window : getShownWindows()) {
        if (GTK_IS_FILE_CHOOSER(window) && getHandle(window) == dialog) {
            return GTK_FILE_CHOOSER(window);
        }
    }
    return nullptr;
}

GtkWidget* getFocus(WindowHandle dialog) {
    GtkFileChooser* const chooser = getChooser(dialog);
    return chooser == nullptr ? nullptr : gtk_window_get_focus(GTK_WINDOW(chooser));
}

void findList(GtkWidget* widget, gpointer found) {
    if (GTK_IS_TREE_VIEW(widget)) {
        *static_cast<GtkWidget**>(found) = widget;
    } else if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), findList, found);
    }
}

GtkWidget* getList(WindowHandle dialog) {
    GtkWidget* list = nullptr;
    if (GtkFileChooser* const chooser = getChooser(dialog)) {
        findList(GTK_WIDGET(chooser), &list);
    }
    return list;
}

String takeText(char* text) {
    const String result = text == nullptr ? String() : String::fromUtf8(text);
    g_free(text);
    return result;
}

} // namespace

struct Host::Impl {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* field = gtk_entry_new();
};

Host::Host()
    : _impl(std::make_unique<Impl>()) {
    gtk_container_add(GTK_CONTAINER(_impl->window), _impl->field);
    gtk_window_set_title(GTK_WINDOW(_impl->window), "Host");
    gtk_widget_show_all(_impl->window);
    gtk_window_present(GTK_WINDOW(_impl->window));
}

Host::~Host() {
    gtk_widget_destroy(_impl->window);
}

WindowHandle Host::handle() const {
    return getHandle(GTK_WINDOW(_impl->window));
}

bool Host::isEnabled() const {
    return gtk_widget_is_sensitive(_impl->field) != FALSE;
}

bool Host::isActive() const {
    return gtk_widget_has_focus(_impl->field) != FALSE;
}

String Host::getText() const {
    return String::fromUtf8(gtk_entry_get_text(GTK_ENTRY(_impl->field)));
}

WindowHandle findDialog(const String& title) {
    for (GtkWindow* const window : getShownWindows()) {
        if (GTK_IS_FILE_CHOOSER(window) && gtk_window_is_active(window) != FALSE &&
            String::fromUtf8(gtk_window_get_title(window)) == title) {
            return getHandle(window);
        }
    }
    return {};
}

int countListed(WindowHandle dialog) {
    GtkWidget* const list = getList(dialog);
    GtkTreeModel* const files = list == nullptr ? nullptr : gtk_tree_view_get_model(GTK_TREE_VIEW(list));
    return files == nullptr ? 0 : gtk_tree_model_iter_n_children(files, nullptr);
}

String getName(WindowHandle dialog) {
    GtkWidget* const focus = getFocus(dialog);
    if (focus != nullptr && GTK_IS_ENTRY(focus)) {
        const String text = String::fromUtf8(gtk_entry_get_text(GTK_ENTRY(focus)));
        // A folder's name is completed to its end.
        return text.endsWith("/") ? text.getSubstr(0, text.length() - 1) : text;
    }
    GtkFileChooser* const chooser = getChooser(dialog);
    const std::string file = chooser == nullptr ? "" : takeText(gtk_file_chooser_get_filename(chooser)).toUtf8();
    return String::fromUtf8(file.substr(file.rfind('/') + 1));
}

void enterNameField(WindowHandle dialog, wxUIActionSimulator& input) {
    if (!isInNameField(dialog)) {
        input.Char('L', wxMOD_CONTROL);
    }
}

bool isInNameField(WindowHandle dialog) {
    GtkWidget* const focus = getFocus(dialog);
    return focus != nullptr && GTK_IS_ENTRY(focus);
}

Function<bool()> pickAll(WindowHandle dialog, const Array<String>& names, wxUIActionSimulator& input) {
    input.Char('A', wxMOD_CONTROL); // the list has the focus
    return [dialog, count = names.size()] {
        GtkFileChooser* const chooser = getChooser(dialog);
        GSList* const files = chooser == nullptr ? nullptr : gtk_file_chooser_get_filenames(chooser);
        const std::size_t picked = g_slist_length(files);
        g_slist_free_full(files, g_free);
        return picked == count;
    };
}

bool canAccept(WindowHandle dialog) {
    GtkFileChooser* const chooser = getChooser(dialog);
    return chooser != nullptr &&
           gtk_widget_is_sensitive(gtk_dialog_get_widget_for_response(GTK_DIALOG(chooser), GTK_RESPONSE_ACCEPT)) !=
               FALSE;
}

void cancel(WindowHandle dialog, wxUIActionSimulator& input) {
    GtkFileChooser* const chooser = getChooser(dialog);
    if (isInNameField(dialog) && gtk_file_chooser_get_action(chooser) != GTK_FILE_CHOOSER_ACTION_SAVE) {
        input.Char(WXK_ESCAPE); // leaves the field, which is there only while it is used
    }
    input.Char(WXK_ESCAPE);
}

bool hasMessage(WindowHandle dialog) {
    for (GtkWindow* const window : getShownWindows()) {
        if (GTK_IS_MESSAGE_DIALOG(window) && gtk_window_is_active(window) != FALSE &&
            gtk_window_get_transient_for(window) == GTK_WINDOW(getChooser(dialog))) {
            return true;
        }
    }
    return false;
}

void refuseMessage(wxUIActionSimulator& input) {
    input.Char(WXK_ESCAPE);
}

void closeAll() {
    for (GtkWindow* const window : getShownWindows()) {
        if (GTK_IS_DIALOG(window)) {
            gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
        }
    }
}

} // namespace FileDialogDriver
