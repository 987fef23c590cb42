// X11 alone: a host whose window belongs to another connection to the server, as that of another toolkit does.
#include "widgets/DialogUser.h"

#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/WindowUtils.h>

#include <X11/Xlib.h>

namespace {

using namespace Ostrel;

class FileDialogsOnX11 : public WidgetTest {};

TEST_F(FileDialogsOnX11, BelongToAWindowOfAnyToolkit) {
    const std::unique_ptr<::Display, int (*)(::Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
    ASSERT_TRUE(display);
    const ::Window window =
        XCreateSimpleWindow(display.get(), DefaultRootWindow(display.get()), 300, 200, 150, 90, 0, 0, 0);
    XMapWindow(display.get(), window);
    XSync(display.get(), False);
    const WindowHandle host(window);
    XWindowAttributes before{};
    ASSERT_TRUE(pumpUntil(
        [&] { return XGetWindowAttributes(display.get(), window, &before) != 0 && before.map_state == IsViewable; }));

    const Function<bool()> asks[] = {
        [&] { return Wx::filenameOpenDlg(host, "Choose", "All|*", Path()).isEmpty(); },
        [&] { return Wx::filenameSaveDlg(host, "Choose", "All|*", {}, Path()).isEmpty(); },
        [&] { return Wx::multiFilenameOpenDlg(host, "Choose", "All|*", Path()).empty(); },
        [&] { return Wx::dirSelectDlg(host, "Choose", Path()).isEmpty(); },
    };
    for (const auto& ask : asks) {
        WindowHandle owner;
        const DialogUser user({{"the dialog", [] { return !FileDialogDriver::findDialog("Choose").isNull(); },
                                [&] {
                                    const WindowHandle dialog = FileDialogDriver::findDialog("Choose");
                                    owner = Wx::getOwnerAsNativeHandle(dialog);
                                    FileDialogDriver::cancel(dialog, input());
                                }}});
        EXPECT_TRUE(ask());
        EXPECT_EQ(owner, host);
        // The window is still there, shown, and its own master's.
        XWindowAttributes after{};
        ASSERT_NE(XGetWindowAttributes(display.get(), window, &after), 0);
        EXPECT_EQ(after.map_state, IsViewable);
        EXPECT_EQ(after.width, before.width);
        EXPECT_EQ(after.all_event_masks, before.all_event_masks) << "somebody listens to it still";
    }
}

} // namespace
