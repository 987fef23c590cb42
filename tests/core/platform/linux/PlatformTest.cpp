#include <OstrelLib/Application.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/Streams.h>
#include <OstrelLib/TextSerializer.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include <gtk/gtk.h>
// Last: its macros (None, Status, Bool) break other headers.
#include <gdk/gdkx.h>

using namespace Ostrel;

namespace {

gboolean countAndRemove(gpointer count) {
    ++*static_cast<int*>(count);
    return G_SOURCE_REMOVE;
}

/// Runs the main loop until nothing waits in it.
void drain() {
    while (Lib::runSingleEventLoopIteration(true)) {
    }
}

TEST(EventLoopIteration, DispatchesAWaitingSourceOnce) {
    drain();
    int count = 0;
    g_idle_add(countAndRemove, &count);
    EXPECT_TRUE(Lib::runSingleEventLoopIteration(true));
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(Lib::runSingleEventLoopIteration(true));
    EXPECT_EQ(count, 1);
    g_timeout_add(1, countAndRemove, &count);
    while (count == 1) {
        EXPECT_TRUE(Lib::runSingleEventLoopIteration(false)) << "waits for the timer";
    }
}

/// GTK windows; their tests need an X11 display.
class GtkWindows : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(gtk_init_check(nullptr, nullptr)) << "no display"; }

    GtkWidget* makeWindow() {
        GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        gtk_widget_show(window);
        return window;
    }

    static WindowHandle handleOf(GtkWidget* window) {
        return WindowHandle(gdk_x11_window_get_xid(gtk_widget_get_window(window)));
    }
};

TEST_F(GtkWindows, AreDisabledAndRestoredAsFound) {
    GtkWidget* window = makeWindow();
    {
        const WindowDisabler disabler(handleOf(window));
        EXPECT_FALSE(gtk_widget_get_sensitive(window));
        { const WindowDisabler nested(handleOf(window)); }
        EXPECT_FALSE(gtk_widget_get_sensitive(window));
    }
    EXPECT_TRUE(gtk_widget_get_sensitive(window));
    gtk_widget_set_sensitive(window, FALSE);
    { const WindowDisabler disabler(handleOf(window)); }
    EXPECT_FALSE(gtk_widget_get_sensitive(window)) << "the host had disabled it itself";
    gtk_widget_destroy(window);
}

TEST_F(GtkWindows, MayVanishWhileDisabled) {
    GtkWidget* window = makeWindow();
    const WindowHandle root(gdk_x11_get_default_root_xwindow());
    const WindowDisabler ofAnotherProgram(root);
    {
        const WindowDisabler disabler(handleOf(window));
        gpointer alive = window;
        g_object_add_weak_pointer(G_OBJECT(window), &alive);
        gtk_widget_destroy(window);
        drain();
        EXPECT_EQ(alive, nullptr) << "the disabler keeps nothing alive";
    }
}

TEST_F(GtkWindows, AreDisabledFromOtherThreadsByTheMainLoop) {
    GtkWidget* window = makeWindow();
    const WindowHandle handle = handleOf(window);
    AutoPtr<WindowDisabler> disabler;
    std::thread([&] { disabler = std::make_unique<WindowDisabler>(handle); }).join();
    EXPECT_TRUE(gtk_widget_get_sensitive(window)) << "only the main thread may touch it";
    drain();
    EXPECT_FALSE(gtk_widget_get_sensitive(window));
    std::thread([&] {
        disabler.reset();
        const WindowDisabler overBeforeItBegins(handle);
    }).join();
    drain();
    EXPECT_TRUE(gtk_widget_get_sensitive(window));
    gtk_widget_destroy(window);
}

TEST_F(GtkWindows, TellTheFontScale) {
    GtkSettings* settings = gtk_settings_get_default();
    gint found = 0;
    g_object_get(settings, "gtk-xft-dpi", &found, nullptr);
    const std::pair<int, float> cases[] = {{96 * 1024, 1.0f}, {144 * 1024, 1.5f}, {-1, 1.0f}};
    for (const auto& [dpi, scale] : cases) {
        g_object_set(settings, "gtk-xft-dpi", dpi, nullptr);
        EXPECT_EQ(getFontScale(), scale) << dpi;
    }
    g_object_set(settings, "gtk-xft-dpi", found, nullptr);
}

TEST(DecimalPoint, FollowsTheHostsLocale) {
    EXPECT_EQ(decimalPointCharacter(), L'.');
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("ostrel-locales-" + std::to_string(g_random_int()));
    fs::create_directories(folder);
    const auto compile = [&folder](const std::string& name) {
        const std::string target = (folder / (name + ".UTF-8")).string();
        return std::system(("localedef -c -i " + name + " -f UTF-8 '" + target + "' 2>/dev/null").c_str());
    };
    ASSERT_EQ(compile("de_DE") | compile("ps_AF"), 0) << "needs the C library's locale definitions";
    setenv("LOCPATH", folder.c_str(), 1);
    struct Case {
        int category;
        const char* locale;
        wchar_t expected;
    };
    // The Arabic separator has two bytes, which the C locale's own conversion does not know.
    const Case cases[] = {{LC_ALL, "de_DE.UTF-8", L','},
                          {LC_ALL, "ps_AF.UTF-8", L'\x66B'},
                          {LC_ALL, "C", L'.'},
                          {LC_NUMERIC, "ps_AF.UTF-8", L'\x66B'},
                          {LC_NUMERIC, "de_DE.UTF-8", L','}};
    for (const Case& c : cases) {
        EXPECT_NE(std::setlocale(c.category, c.locale), nullptr) << c.locale;
        EXPECT_EQ(decimalPointCharacter(), c.expected) << c.locale;
        EXPECT_EQ(SimpleTextSerializer().write(0.5).writeFixed(1.5, 1).getText().toUtf8(), "0.51.5");
    }
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    fs::remove_all(folder);
}

TEST(FileFailures, AreNoticedWhereTheSystemHasThem) {
    // Only the system's own special files fail on demand.
    Io::FileOutputStream full("/dev/full");
    full.write("x", 1);
    EXPECT_THROW(full.close(), Io::StreamException) << "a full disk shows when the buffer is written";
    Io::FileOutputStream fullAtOnce("/dev/full");
    const std::string bytes(std::size_t{3} << 20, 'x');
    EXPECT_THROW(fullAtOnce.write(bytes.data(), bytes.size()), Io::StreamException);
    Io::FileInputStream unreadable("/proc/self/mem");
    char byte = 0;
    EXPECT_THROW((void)unreadable.read(&byte, 1), Io::StreamException);
}

TEST(PathNames, KeepBytesThatAreNoUtf8) {
    const Path path(std::filesystem::path("/tmp/a\xFF"));
    EXPECT_EQ(path.fileName(), L"a\xFFFD");
    EXPECT_EQ(path.native().native(), "/tmp/a\xFF");
}

} // namespace
