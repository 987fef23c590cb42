// X11 alone: dialogs in front of a window of another connection, as of another program.
#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <OstrelLibWx/MessageDialog.h>

#include <gtk/gtk.h>

#include <gdk/gdkx.h>

#include <future>

namespace {

using namespace Ostrel;
using Wx::MessageDialogIcon;

class MessageDialogOfForeignHost : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        _display = XOpenDisplay(nullptr);
        ASSERT_NE(_display, nullptr);
        _window = XCreateSimpleWindow(_display, DefaultRootWindow(_display), 0, 0, 300, 200, 0, 0, 0);
        _deleteWindow = XInternAtom(_display, "WM_DELETE_WINDOW", False);
        XSetWMProtocols(_display, _window, &_deleteWindow, 1);
        XMapWindow(_display, _window);
        XSync(_display, False);
        ASSERT_TRUE(pumpUntil([this] { return attributes().map_state == IsViewable; }));
    }
    void TearDown() override {
        // It is where it was, as it was, and nobody has asked it to close.
        EXPECT_EQ(attributes().map_state, IsViewable);
        EXPECT_EQ(attributes().width, 300);
        EXPECT_EQ(attributes().height, 200);
        XEvent event;
        EXPECT_FALSE(XCheckTypedWindowEvent(_display, _window, ClientMessage, &event));
        XCloseDisplay(_display);
        WidgetTest::TearDown();
    }
    XWindowAttributes attributes() const {
        XWindowAttributes result{};
        XGetWindowAttributes(_display, _window, &result);
        return result;
    }
    WindowHandle host() const { return WindowHandle(_window); }

    /// The toolkit's own box; null if there is none.
    static GtkWindow* findBox() {
        GList* const windows = gtk_window_list_toplevels();
        GtkWindow* found = nullptr;
        for (const GList* item = windows; item != nullptr; item = item->next) {
            if (GTK_IS_MESSAGE_DIALOG(item->data)) {
                found = GTK_WINDOW(item->data);
            }
        }
        g_list_free(windows);
        return found;
    }
    /// Has the box shown by another thread, looks at it once it waits for input, and presses Return. True if that was
    /// an affirmative answer.
    bool runBox(bool (*show)(WindowHandle, const String&, const String&, MessageDialogIcon), WindowHandle parent,
                const std::function<void(GtkWindow*)>& look) {
        std::future<bool> result = std::async(
            std::launch::async, [=] { return show(parent, "Worker", "Message", MessageDialogIcon::INFORMATION); });
        const auto answer = [&] {
            GtkWindow* const box = findBox();
            if (box == nullptr || !gtk_window_is_active(box)) {
                return false;
            }
            look(box);
            input().Char(WXK_RETURN);
            return true;
        };
        const auto end = [] {
            if (GtkWindow* const box = findBox()) {
                gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_CANCEL);
            }
        };
        const ModalDriver driver({answer}, end);
        EXPECT_TRUE(
            pumpUntil([&result] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
                      3 * DEADLINE_MS));
        return result.get();
    }
    static WindowHandle ownerOf(GtkWindow* box) {
        return Wx::getOwnerAsNativeHandle(WindowHandle(gdk_x11_window_get_xid(gtk_widget_get_window(GTK_WIDGET(box)))));
    }

    ::Display* _display{};
    ::Window _window{};
    Atom _deleteWindow{};
};

TEST_F(MessageDialogOfForeignHost, LiesOverItAndLeavesItAlone) {
    const auto answer = [this] {
        auto* const dialog = ModalDriver::findActive<Wx::MessageDialog>();
        if (dialog == nullptr) {
            return false;
        }
        EXPECT_EQ(Wx::getOwnerAsNativeHandle(Wx::getWindowNativeHandle(dialog)), host());
        input().Char(WXK_RETURN);
        return true;
    };
    const ModalDriver driver({answer});
    EXPECT_TRUE(Wx::showOkDialog(host(), "Title", "Message", MessageDialogIcon::WARNING));
}

TEST_F(MessageDialogOfForeignHost, IsTheParentOfTheToolkitsBoxOffTheMainThread) {
    EXPECT_TRUE(runBox(Wx::showOkDialog, host(), [this](GtkWindow* box) { EXPECT_EQ(ownerOf(box), host()); }));
}

TEST_F(MessageDialogOfForeignHost, OrNobodyIs) {
    // A window manager lets no window without a parent take the focus from another program.
    click(frame(), middle(frame()));
    ASSERT_TRUE(pumpUntil([this] { return frame().IsActive(); }));
    EXPECT_TRUE(runBox(Wx::showOkDialog, {}, [](GtkWindow* box) { EXPECT_EQ(ownerOf(box), WindowHandle()); }));
    ASSERT_TRUE(pumpUntil([this] { return frame().IsActive(); }));
    EXPECT_TRUE(runBox(Wx::showOkDialog, WindowHandle(0x7ffffff0), [](GtkWindow*) {})) << "no such window";
}

TEST_F(MessageDialogOfForeignHost, MayBeAWindowOfThisProgram) {
    click(frame(), middle(frame()));
    EXPECT_TRUE(runBox(Wx::showYesNoDialog, Wx::getWindowNativeHandle(&frame()), [this](GtkWindow* box) {
        EXPECT_EQ(GTK_WIDGET(gtk_window_get_transient_for(box)), frame().GetHandle());
        EXPECT_FALSE(gtk_widget_get_sensitive(frame().GetHandle()));
    }));
    EXPECT_TRUE(gtk_widget_get_sensitive(frame().GetHandle()));
}

} // namespace
