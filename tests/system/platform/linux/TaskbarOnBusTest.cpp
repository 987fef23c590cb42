#include <OstrelLibWx/TaskbarProgress.h>

#include "system/platform/linux/Environment.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include <gio/gio.h>

// What docks hear of the progress, on a message bus of this test's own. Linux: on Windows there is no bus.

namespace {

using namespace Ostrel;

using Heard = std::vector<std::string>;

void hear(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* parameters, void* heard) {
    char* const text = g_variant_print(parameters, FALSE);
    static_cast<Heard*>(heard)->push_back(text);
    g_free(text);
}

TEST(TaskbarOnBus, TellsDocksOfEachChangeAndEndsWithoutABar) {
    // A bus for tests takes these away from the whole process.
    const ScopedVariable display("DISPLAY");
    const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS");
    g_set_prgname("render");
    GTestDBus* const bus = g_test_dbus_new(G_TEST_DBUS_NONE);
    g_test_dbus_up(bus);
    // A dock: a connection of its own, which hears what the bus hands on.
    GDBusConnection* const dock = g_dbus_connection_new_for_address_sync(
        g_test_dbus_get_bus_address(bus),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    ASSERT_NE(dock, nullptr);
    Heard heard;
    g_dbus_connection_signal_subscribe(dock, nullptr, "com.canonical.Unity.LauncherEntry", "Update", nullptr, nullptr,
                                       G_DBUS_SIGNAL_FLAGS_NONE, hear, &heard, nullptr);
    // The bus has the subscription once it has answered a later call.
    g_variant_unref(g_dbus_connection_call_sync(dock, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                "org.freedesktop.DBus", "GetId", nullptr, nullptr,
                                                G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    {
        Wx::TaskbarProgress first{WindowHandle(1)};
        Wx::TaskbarProgress progress(std::move(first));
        progress.setProgress(0.25F);
        progress.setProgress(0.25F);
        progress.setIndeterminate();
        progress.setProgress(1.5F);
    }
    Heard expected;
    for (const char* const properties :
         {"'progress-visible': <false>", "'progress-visible': <true>", "'progress': <0.25>",
          "'progress': <0.0>, 'progress-visible': <true>", "'progress-visible': <true>", "'progress': <1.0>",
          "'progress-visible': <false>"}) {
        expected.push_back("('application://render.desktop', {" + std::string(properties) + "})");
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (heard.size() < expected.size() && std::chrono::steady_clock::now() < deadline) {
        g_main_context_iteration(nullptr, FALSE);
    }
    EXPECT_EQ(heard, expected);
    g_object_unref(dock);
    g_test_dbus_down(bus);
    g_object_unref(bus);

    g_setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", TRUE);
    Wx::TaskbarProgress withoutBus{WindowHandle()};
    withoutBus.setProgress(0.5F);
}

} // namespace
