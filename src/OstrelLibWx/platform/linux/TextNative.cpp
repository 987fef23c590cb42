#include "platform/TextNative.h"

#include <algorithm>
#include <string>

#include <gtk/gtk.h>

#include <wx/cursor.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/linux/StyleSheet.h"

namespace Ostrel::Detail {

namespace {

/// Between text and background in a dark and in a light skin; the themes' own would be the brightest thing on a page.
constexpr const char* FRAME_COLOUR = "rgb(110,110,110)";

/// The view of a text of several lines; null for a single line.
GtkTextView* getTextView(const wxTextCtrl& text) {
    GtkWidget* const widget = text.GetHandle();
    return GTK_IS_SCROLLED_WINDOW(widget) ? GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(widget))) : nullptr;
}

GtkWidget* getTextWidget(const wxWindow& window) {
    GtkWidget* const widget = window.GetHandle();
    return GTK_IS_SCROLLED_WINDOW(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget;
}

/// The native window that a single line hears the mouse with; null before there is one.
GdkWindow* findEntryWindow(GtkWidget* entry) {
    GdkWindow* const parent = gtk_widget_get_window(entry);
    if (parent == nullptr) {
        return nullptr;
    }
    for (const GList* node = gdk_window_peek_children(parent); node != nullptr; node = node->next) {
        auto* const child = static_cast<GdkWindow*>(node->data);
        gpointer owner = nullptr;
        gdk_window_get_user_data(child, &owner);
        if (owner == entry) {
            return child;
        }
    }
    return nullptr;
}

GdkWindow* findTextWindow(const wxTextCtrl& text) {
    GtkTextView* const view = getTextView(text);
    return view != nullptr ? gtk_text_view_get_window(view, GTK_TEXT_WINDOW_TEXT) : findEntryWindow(text.GetHandle());
}

/// Takes away the toolkit's own handler of the signal.
void disconnectToolkit(GtkWidget* widget, const char* signal, wxWindow& window) {
    g_signal_handlers_disconnect_matched(widget, static_cast<GSignalMatchType>(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_DATA),
                                         g_signal_lookup(signal, GTK_TYPE_WIDGET), 0, nullptr, nullptr,
                                         static_cast<wxWindowGTK*>(&window));
}

/// GTK 3 leaves a scrolling animation running when its view is taken off the screen, and with it a dead reference.
void onViewUnmap(GtkWidget* widget, gpointer) {
    for (GtkAdjustment* const adjustment : {gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(widget)),
                                            gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(widget))}) {
        gtk_adjustment_set_value(adjustment, gtk_adjustment_get_value(adjustment)); // at once: ends the animation
    }
}

void endScrollingWithView(const wxTextCtrl& text) {
    if (GtkTextView* const view = getTextView(text)) {
        g_signal_connect(view, "unmap", G_CALLBACK(onViewUnmap), nullptr);
    }
}

/// Another window took the mouse. That is a loss unless the other one is the control's too.
gboolean onGrabBroken(GtkWidget* widget, GdkEventGrabBroken* event, gpointer data) {
    auto* const text = static_cast<wxTextCtrl*>(static_cast<wxWindowGTK*>(data));
    const bool kept = event->grab_window != nullptr && (event->grab_window == findTextWindow(*text) ||
                                                        event->grab_window == gtk_widget_get_window(widget));
    if (event->keyboard == FALSE && !kept && wxWindow::GetCapture() == text) {
        wxWindowGTK::GTKHandleCaptureLost();
    }
    return FALSE;
}

/// The character at the point, and how many positions to its end the point is nearer to.
struct Hit {
    GtkTextIter character;
    int trailing;
};

Hit hitTest(GtkTextView* view, Pixel point) {
    // What a scroll bar covers of the control is not text.
    if (GdkWindow* const window = gtk_text_view_get_window(view, GTK_TEXT_WINDOW_TEXT)) {
        point = Wx::clampDragPoint(point, {gdk_window_get_width(window), gdk_window_get_height(window)});
    }
    int x = 0;
    int y = 0;
    gtk_text_view_window_to_buffer_coords(view, GTK_TEXT_WINDOW_TEXT, point.x, point.y, &x, &y);
    // Below the last line, it is the last line that counts.
    GtkTextIter end{};
    gtk_text_buffer_get_end_iter(gtk_text_view_get_buffer(view), &end);
    GdkRectangle last{};
    gtk_text_view_get_iter_location(view, &end, &last);
    y = std::min(y, last.y + last.height - 1);
    Hit hit{};
    gtk_text_view_get_iter_at_position(view, &hit.character, &hit.trailing, x, y);
    return hit;
}

int findEntryPosition(GtkEntry* entry, Pixel point) {
    PangoLayout* const layout = gtk_entry_get_layout(entry);
    int layoutX = 0;
    int layoutY = 0;
    gtk_entry_get_layout_offsets(entry, &layoutX, &layoutY);
    int windowX = 0;
    if (GdkWindow* const window = findEntryWindow(GTK_WIDGET(entry))) {
        GtkAllocation area{};
        gtk_widget_get_allocation(GTK_WIDGET(entry), &area);
        int windowY = 0;
        gdk_window_get_position(window, &windowX, &windowY);
        windowX -= area.x;
    }
    int index = 0;
    int trailing = 0;
    pango_layout_xy_to_index(layout, (point.x + windowX - layoutX) * PANGO_SCALE, 0, &index, &trailing);
    const char* const shown = pango_layout_get_text(layout);
    return static_cast<int>(g_utf8_pointer_to_offset(shown, shown + index)) + trailing;
}

GtkAdjustment* getAdjustment(const wxTextCtrl& text) {
    return gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(getTextView(text)));
}

void scrollToEnd(GtkTextView* view) {
    GtkAdjustment* const adjustment = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
    gtk_adjustment_set_value(adjustment,
                             gtk_adjustment_get_upper(adjustment) - gtk_adjustment_get_page_size(adjustment));
}

/// Set while the view is to show its end, whatever is still to be measured.
constexpr const char* AT_END = "ostrel-at-end";
/// The view measures new lines one priority above; one more is the toolkit, which scrolls by what it knew before.
constexpr int AFTER_LAYOUT = GTK_TEXT_VIEW_PRIORITY_VALIDATE + 2;

/// Shows the end, unless the caret or the view has been sent elsewhere in the meantime.
void keepAtEnd(GtkTextView* view) {
    GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
    if (g_object_get_data(G_OBJECT(view), AT_END) == nullptr) {
        return;
    }
    for (GtkTextMark* const mark :
         {gtk_text_buffer_get_insert(buffer), gtk_text_buffer_get_mark(buffer, "ShowPosition")}) {
        GtkTextIter place{};
        if (mark != nullptr) {
            gtk_text_buffer_get_iter_at_mark(buffer, &place, mark);
        }
        if (mark == nullptr || gtk_text_iter_is_end(&place) == FALSE) {
            return;
        }
    }
    scrollToEnd(view);
}

gboolean onTextLaidOut(gpointer view) {
    keepAtEnd(static_cast<GtkTextView*>(view));
    return G_SOURCE_REMOVE;
}

void onViewGrown(GtkAdjustment*, gpointer view) {
    keepAtEnd(static_cast<GtkTextView*>(view));
}

gboolean onWheel(GtkWidget* view, GdkEventScroll*, gpointer) {
    g_object_set_data(G_OBJECT(view), AT_END, nullptr);
    return FALSE;
}

gboolean onScrollBar(GtkRange*, GtkScrollType, double, gpointer view) {
    g_object_set_data(G_OBJECT(view), AT_END, nullptr);
    return FALSE;
}

/// For a label or a single line. Without a colour, the toolkit's own style sheet is all.
template <class T>
bool setSharedTextColour(T& window, const wxColour& colour) {
    // Named, so that what is selected inside keeps the theme's colours.
    setStyleSheet(window.GetHandle(), "ostrel-colour",
                  colour.IsOk() ? "label,entry{color:" + toCss(colour) + ";caret-color:" + toCss(colour) + "}" : "",
                  TOOLKITS_PRIORITY);
    return colour.IsOk() ? window.wxWindowBase::SetForegroundColour(colour) : window.T::SetForegroundColour(colour);
}

/// A window that shows nothing, over a widget that has none: it notices the mouse's coming and going, and has a cursor.
/// All else about the mouse is left to the window below, as it is without it.
struct MouseWindow {
    static constexpr const char* NAME = "ostrel-mouse-window";

    static MouseWindow& of(GtkWidget* widget) {
        return *static_cast<MouseWindow*>(g_object_get_data(G_OBJECT(widget), NAME));
    }

    static void onRealize(GtkWidget* widget, gpointer) {
        GtkAllocation area{};
        gtk_widget_get_allocation(widget, &area);
        GdkWindowAttr attributes{};
        attributes.window_type = GDK_WINDOW_CHILD;
        attributes.wclass = GDK_INPUT_ONLY;
        attributes.x = area.x;
        attributes.y = area.y;
        attributes.width = std::max(1, area.width);
        attributes.height = std::max(1, area.height);
        attributes.event_mask = GDK_ENTER_NOTIFY_MASK | GDK_LEAVE_NOTIFY_MASK;
        MouseWindow& self = of(widget);
        self.window = gdk_window_new(gtk_widget_get_window(widget), &attributes, GDK_WA_X | GDK_WA_Y);
        gtk_widget_register_window(widget, self.window);
        self.showCursor();
        if (gtk_widget_get_mapped(widget) != FALSE) {
            gdk_window_show(self.window);
        }
    }

    static void onUnrealize(GtkWidget* widget, gpointer) {
        MouseWindow& self = of(widget);
        if (self.window != nullptr) {
            gtk_widget_unregister_window(widget, self.window);
            gdk_window_destroy(self.window);
            self.window = nullptr;
        }
    }

    static void onMap(GtkWidget* widget, gpointer) {
        if (GdkWindow* const window = of(widget).window) {
            gdk_window_show(window);
        }
    }

    static void onUnmap(GtkWidget* widget, gpointer) {
        if (GdkWindow* const window = of(widget).window) {
            gdk_window_hide(window);
        }
    }

    static void onSizeAllocate(GtkWidget* widget, GdkRectangle* area, gpointer) {
        if (GdkWindow* const window = of(widget).window) {
            gdk_window_move_resize(window, area->x, area->y, std::max(1, area->width), std::max(1, area->height));
        }
    }

    /// The toolkit takes no event from a window that is not its own.
    static gboolean onCrossing(GtkWidget* widget, GdkEventCrossing* crossing, gpointer data) {
        if (crossing->window != of(widget).window || crossing->mode != GDK_CROSSING_NORMAL) {
            return FALSE;
        }
        auto* const label = static_cast<wxWindowGTK*>(data);
        wxMouseEvent event(crossing->type == GDK_ENTER_NOTIFY ? wxEVT_ENTER_WINDOW : wxEVT_LEAVE_WINDOW);
        event.SetEventObject(label);
        event.SetId(label->GetId());
        event.SetTimestamp(static_cast<long>(crossing->time));
        event.SetPosition(wxPoint(static_cast<int>(crossing->x), static_cast<int>(crossing->y)));
        event.SetLeftDown((crossing->state & GDK_BUTTON1_MASK) != 0);
        event.SetMiddleDown((crossing->state & GDK_BUTTON2_MASK) != 0);
        event.SetRightDown((crossing->state & GDK_BUTTON3_MASK) != 0);
        event.SetShiftDown((crossing->state & GDK_SHIFT_MASK) != 0);
        event.SetControlDown((crossing->state & GDK_CONTROL_MASK) != 0);
        event.SetAltDown((crossing->state & GDK_MOD1_MASK) != 0);
        label->HandleWindowEvent(event);
        return FALSE;
    }

    void showCursor() const {
        if (window != nullptr && cursor.IsOk()) {
            gdk_window_set_cursor(window, cursor.GetCursor());
        }
    }

    GdkWindow* window = nullptr;
    wxCursor cursor;
};

/// A label refuses the focus unless its text can be selected; what all widgets do by default takes it.
void grabLabelFocus(GtkWidget* widget) {
    static_cast<GtkWidgetClass*>(g_type_class_peek(GTK_TYPE_WIDGET))->grab_focus(widget);
}

gboolean onLabelFocus(GtkWidget* widget, GtkDirectionType, gpointer) {
    if (gtk_widget_is_focus(widget) != FALSE || gtk_widget_get_can_focus(widget) == FALSE) {
        g_signal_stop_emission_by_name(widget, "focus");
        return FALSE; // on to the next one
    }
    grabLabelFocus(widget);
    return TRUE;
}

gboolean onLabelDraw(GtkWidget* widget, cairo_t* cairo, gpointer) {
    if (gtk_widget_has_visible_focus(widget) != FALSE) {
        gtk_render_focus(gtk_widget_get_style_context(widget), cairo, 0, 0, gtk_widget_get_allocated_width(widget),
                         gtk_widget_get_allocated_height(widget));
    }
    return FALSE;
}

gboolean onWindowFocus(GtkWidget* widget, GtkDirectionType, gpointer window) {
    if (!static_cast<wxWindow*>(window)->AcceptsFocusFromKeyboard()) {
        g_signal_stop_emission_by_name(widget, "focus");
    }
    return FALSE;
}

} // namespace

int findTextPosition(const wxTextCtrl& text, Pixel point) {
    GtkTextView* const view = getTextView(text);
    if (view == nullptr) {
        return findEntryPosition(GTK_ENTRY(text.GetHandle()), point);
    }
    const Hit hit = hitTest(view, point);
    return gtk_text_iter_get_offset(&hit.character) + hit.trailing;
}

Wx::TextLine findTextLine(const wxTextCtrl& text, Pixel point) {
    GtkTextView* const view = getTextView(text);
    if (view == nullptr) {
        return {};
    }
    GtkTextIter first = hitTest(view, point).character;
    if (gtk_text_view_starts_display_line(view, &first) == FALSE) {
        gtk_text_view_backward_display_line_start(view, &first);
    }
    GtkTextIter next = first;
    gtk_text_view_forward_display_line(view, &next);
    Wx::TextLine line{gtk_text_iter_get_offset(&first), {}};
    // From the last line it goes to the text's end, which is a line only after a line break.
    if (gtk_text_iter_compare(&next, &first) > 0 &&
        (gtk_text_iter_is_end(&next) == FALSE || gtk_text_iter_starts_line(&next) != FALSE)) {
        line.next = gtk_text_iter_get_offset(&next);
    }
    return line;
}

void captureTextMouse(wxTextCtrl& text) {
    text.CaptureMouse();
    // The toolkit takes the mouse for a window around the text, and then does not know the events for the control's.
    if (GdkWindow* const window = findTextWindow(text)) {
        gdk_seat_grab(gdk_display_get_default_seat(gdk_window_get_display(window)), window, GDK_SEAT_CAPABILITY_POINTER,
                      FALSE, nullptr, nullptr, nullptr, nullptr);
    }
}

void prepareTextView(wxTextCtrl& text) {
    GtkWidget* const widget = getTextWidget(text);
    disconnectToolkit(widget, "grab-broken-event", text);
    g_signal_connect(widget, "grab-broken-event", G_CALLBACK(onGrabBroken), static_cast<wxWindowGTK*>(&text));
    endScrollingWithView(text);
    if (GtkTextView* const view = getTextView(text)) {
        g_signal_connect_object(getAdjustment(text), "changed", G_CALLBACK(onViewGrown), view, G_CONNECT_AFTER);
        g_signal_connect(view, "scroll-event", G_CALLBACK(onWheel), nullptr);
        g_signal_connect(gtk_scrolled_window_get_vscrollbar(GTK_SCROLLED_WINDOW(text.GetHandle())), "change-value",
                         G_CALLBACK(onScrollBar), view);
    }
    setStyleSheet(widget, "ostrel-view", "*{transition:none}");
    setStyleSheet(text.GetHandle(), "ostrel-frame", "*{border-color:" + std::string(FRAME_COLOUR) + "}");
}

void focusText(wxTextCtrl& text) {
    if (getTextView(text) == nullptr) {
        gtk_entry_grab_focus_without_selecting(GTK_ENTRY(text.GetHandle()));
    } else {
        text.SetFocus();
    }
}

void scrollTextToBottom(wxTextCtrl& text) {
    GtkTextView* const view = getTextView(text);
    if (view == nullptr) {
        return;
    }
    text.ShowPosition(text.GetLastPosition());
    scrollToEnd(view);
    g_object_set_data(G_OBJECT(view), AT_END, view);
    // Lines are measured when there is time; only then is it known where the end is.
    g_idle_add_full(AFTER_LAYOUT, onTextLaidOut, g_object_ref(view), g_object_unref);
}

TextUpdate::TextUpdate(wxTextCtrl& text)
    : _text(text)
    , _scrollPosition(0) {
    if (GtkTextView* const view = getTextView(_text)) {
        _scrollPosition = gtk_adjustment_get_value(getAdjustment(_text));
        GdkRectangle shown{};
        gtk_text_view_get_visible_rect(view, &shown);
        GtkTextIter middle{};
        gtk_text_view_get_iter_at_location(view, &middle, shown.x, shown.y + shown.height / 2);
        _shownPosition = gtk_text_iter_get_offset(&middle);
    }
}

TextUpdate::~TextUpdate() {
    _text.Refresh(); // with the next frame, once the text is laid out
}

void TextUpdate::restoreView() {
    if (_text.IsMultiLine()) {
        g_object_set_data(G_OBJECT(getTextView(_text)), AT_END, nullptr);
        // The toolkit puts off scrolling until the new text is laid out; it is told to stay where it is.
        _text.ShowPosition(_shownPosition);
        gtk_adjustment_set_value(getAdjustment(_text), _scrollPosition);
    }
}

bool looksEnabled(const wxWindow& window) {
    return gtk_widget_is_sensitive(window.GetHandle()) != FALSE;
}

bool showLabelVerbatim(wxStaticText& label, const String& text) {
    GtkLabel* const widget = GTK_LABEL(label.GetHandle());
    const long style = label.GetWindowStyle();
    if ((style & wxALIGN_CENTRE_VERTICAL) != 0) {
        gtk_label_set_yalign(widget, 0.5f);
    } else if ((style & wxALIGN_BOTTOM) != 0) {
        gtk_label_set_yalign(widget, 1.0f);
    }
    gtk_label_set_text(widget, String(Wx::replaceUnshowable(text.toWide())).toUtf8().c_str());
    return true;
}

void setDisabledTextColour(wxWindow& window, const wxColour& colour) {
    setStyleSheet(getTextWidget(window), "ostrel-disabled-colour",
                  "*:disabled{color:" + toCss(colour) + ";text-shadow:none;transition:none}");
}

bool setTextColour(wxStaticText& label, const wxColour& colour) {
    return setSharedTextColour(label, colour);
}

bool setTextColour(wxTextCtrl& text, const wxColour& colour) {
    return text.IsMultiLine() ? text.wxTextCtrl::SetForegroundColour(colour) : setSharedTextColour(text, colour);
}

bool setTextBackground(wxTextCtrl& text, const wxColour& colour) {
    if (text.IsMultiLine()) {
        return text.wxTextCtrl::SetBackgroundColour(colour);
    }
    setStyleSheet(text.GetHandle(), "ostrel-background",
                  colour.IsOk() ? "entry{background:" + toCss(colour) + "}undershoot{background:transparent}" : "",
                  TOOLKITS_PRIORITY);
    return colour.IsOk() ? text.wxWindowBase::SetBackgroundColour(colour)
                         : text.wxTextCtrl::SetBackgroundColour(colour);
}

bool setTextFont(wxStaticText& label, const wxFont& font) {
    if (!isWrittenInCss(font) || !isWrittenInCss(label.GetFont())) {
        setStyleSheet(label.GetHandle(), "ostrel-font", "", TOOLKITS_PRIORITY);
        return label.wxStaticText::SetFont(font);
    }
    setStyleSheet(label.GetHandle(), "ostrel-font", "label{font:" + toCss(font) + "}", TOOLKITS_PRIORITY);
    return label.wxWindowBase::SetFont(font);
}

void makeTextFieldCompact(wxTextCtrl& text) {
    endScrollingWithView(text);
    const bool hasBorder = !text.HasFlag(wxBORDER_NONE);
    setStyleSheet(getTextWidget(text), "ostrel-compact",
                  hasBorder
                      ? "*{min-height:0;padding:2px;transition:none;border-color:" + std::string(FRAME_COLOUR) + "}"
                      : "*{min-height:0;padding:0 3px;border-width:0;border-radius:0;box-shadow:none;transition:none}");
}

void makeLabelHearMouse(wxStaticText& label) {
    GtkWidget* const widget = label.GetHandle();
    if (g_object_get_data(G_OBJECT(widget), MouseWindow::NAME) != nullptr) {
        return;
    }
    g_object_set_data_full(G_OBJECT(widget), MouseWindow::NAME, new MouseWindow,
                           [](gpointer window) { delete static_cast<MouseWindow*>(window); });
    g_signal_connect_after(widget, "realize", G_CALLBACK(MouseWindow::onRealize), nullptr);
    g_signal_connect(widget, "unrealize", G_CALLBACK(MouseWindow::onUnrealize), nullptr);
    g_signal_connect_after(widget, "map", G_CALLBACK(MouseWindow::onMap), nullptr);
    g_signal_connect(widget, "unmap", G_CALLBACK(MouseWindow::onUnmap), nullptr);
    g_signal_connect_after(widget, "size-allocate", G_CALLBACK(MouseWindow::onSizeAllocate), nullptr);
    for (const char* const signal : {"enter-notify-event", "leave-notify-event"}) {
        g_signal_connect(widget, signal, G_CALLBACK(MouseWindow::onCrossing), static_cast<wxWindowGTK*>(&label));
    }
    if (gtk_widget_get_realized(widget) != FALSE) {
        MouseWindow::onRealize(widget, nullptr);
    }
}

void setLabelCursor(wxStaticText& label, const wxCursor& cursor) {
    MouseWindow& window = MouseWindow::of(label.GetHandle());
    window.cursor = cursor;
    window.showCursor();
}

void makeLabelFocusable(wxStaticText& label) {
    GtkWidget* const widget = label.GetHandle();
    // The toolkit keeps the focus away from what did not accept it while it was created.
    disconnectToolkit(widget, "focus", label);
    gtk_widget_set_can_focus(widget, TRUE);
    g_signal_connect(widget, "focus", G_CALLBACK(onLabelFocus), nullptr);
    g_signal_connect_after(widget, "draw", G_CALLBACK(onLabelDraw), nullptr);
}

void focusLabel(wxStaticText& label) {
    grabLabelFocus(label.GetHandle());
}

void makeTabAskWindow(wxWindow& window) {
    g_signal_connect(window.GetHandle(), "focus", G_CALLBACK(onWindowFocus), &window);
}

} // namespace Ostrel::Detail
