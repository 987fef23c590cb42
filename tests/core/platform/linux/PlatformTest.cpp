#include <OstrelLib/Application.h>
#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/Streams.h>
#include <OstrelLib/TextSerializer.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
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
    g_timeout_add(1, countAndRemove, &count);
    while (count == 1) {
        EXPECT_TRUE(Lib::runSingleEventLoopIteration(false)) << "waits for the timer";
    }
}

/// A GTK window; its tests need an X11 display.
class GtkWindows : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(gtk_init_check(nullptr, nullptr)) << "no display";
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        g_object_add_weak_pointer(G_OBJECT(window), reinterpret_cast<gpointer*>(&window));
        gtk_widget_show(window);
        handle = WindowHandle(gdk_x11_window_get_xid(gtk_widget_get_window(window)));
    }
    void TearDown() override {
        if (window != nullptr) {
            gtk_widget_destroy(window);
        }
    }

    GtkWidget* window = nullptr; ///< null once nothing keeps it alive
    WindowHandle handle;
};

TEST_F(GtkWindows, AreDisabledAndRestoredAsFound) {
    {
        const WindowDisabler disabler(handle);
        EXPECT_FALSE(gtk_widget_get_sensitive(window));
        { const WindowDisabler nested(handle); }
        EXPECT_FALSE(gtk_widget_get_sensitive(window));
    }
    EXPECT_TRUE(gtk_widget_get_sensitive(window));
    gtk_widget_set_sensitive(window, FALSE);
    { const WindowDisabler disabler(handle); }
    EXPECT_FALSE(gtk_widget_get_sensitive(window)) << "the host had disabled it itself";
}

TEST_F(GtkWindows, MayVanishWhileDisabled) {
    const WindowDisabler ofAnotherProgram{WindowHandle(gdk_x11_get_default_root_xwindow())};
    const WindowDisabler disabler(handle);
    gtk_widget_destroy(window);
    drain();
    EXPECT_EQ(window, nullptr) << "the disabler keeps nothing alive";
}

TEST_F(GtkWindows, AreDisabledFromOtherThreadsByTheMainLoop) {
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
}

TEST_F(GtkWindows, TellTheFontScale) {
    GtkSettings* settings = gtk_settings_get_default();
    gint found = 0;
    g_object_get(settings, "gtk-xft-dpi", &found, nullptr);
    for (const auto& [dpi, scale] : {std::pair{96 * 1024, 1.0f}, {144 * 1024, 1.5f}, {-1, 1.0f}}) {
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
    setenv("LOCPATH", folder.c_str(), 1);
    // The Arabic separator has two bytes, which the C locale's own conversion does not know.
    for (const auto& [name, expected] : {std::pair<std::string, wchar_t>{"de_DE", L','}, {"ps_AF", L'\x66B'}}) {
        const std::string locale = name + ".UTF-8";
        const std::string compile = "localedef -c -i " + name + " -f UTF-8 '" + (folder / locale).string() + "'";
        ASSERT_EQ(std::system(compile.c_str()), 0) << "needs the C library's locale definitions";
        for (const int category : {LC_ALL, LC_NUMERIC}) {
            EXPECT_NE(std::setlocale(category, locale.c_str()), nullptr) << locale;
            EXPECT_EQ(decimalPointCharacter(), expected) << locale;
            EXPECT_EQ(SimpleTextSerializer().write(0.5).writeFixed(1.5, 1).getText().toUtf8(), "0.51.5");
            std::setlocale(LC_ALL, "C");
        }
    }
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

TEST(PixelMemory, OfLargePicturesConsistsOfLargePages) {
    constexpr std::size_t LARGE_PAGE = std::size_t{2} << 20;
    for (const int size : {700, 1500}) {
        const BitmapImpl<Rgb> bitmap(size, size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bitmap.data()) % LARGE_PAGE, 0U) << size;
    }
}

TEST(PathNames, KeepBytesThatAreNoUtf8) {
    const Path path(std::filesystem::path("/tmp/a\xFF"));
    EXPECT_EQ(path.fileName(), L"a\xFFFD");
    EXPECT_EQ(path.native().native(), "/tmp/a\xFF");
}

} // namespace
