#include <OstrelLibWx/TaskbarProgress.h>

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gio/gio.h>

// What other programs hear of the progress, on a message bus of this test's own. Linux: on Windows there is no bus.

namespace {

using namespace Ostrel;
using testing::ElementsAre;

struct Release {
    void operator()(void* object) const { g_object_unref(object); }
};

class TaskbarOnBus : public testing::Test {
protected:
    void SetUp() override {
        _bus.reset(g_test_dbus_new(G_TEST_DBUS_NONE));
        g_test_dbus_up(_bus.get());
        // A dock: a connection of its own, which hears what the bus hands on.
        GError* error = nullptr;
        _dock.reset(g_dbus_connection_new_for_address_sync(
            g_test_dbus_get_bus_address(_bus.get()),
            static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, &error));
        ASSERT_TRUE(_dock) << error->message;
        g_dbus_connection_signal_subscribe(_dock.get(), nullptr, "com.canonical.Unity.LauncherEntry", "Update", nullptr,
                                           nullptr, G_DBUS_SIGNAL_FLAGS_NONE, hear, this, nullptr);
        // The bus has the subscription once it has answered a later call.
        g_variant_unref(g_dbus_connection_call_sync(_dock.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                    "org.freedesktop.DBus", "GetId", nullptr, nullptr,
                                                    G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &error));
    }
    void TearDown() override {
        _dock.reset();
        g_test_dbus_down(_bus.get());
    }

    bool hears(std::size_t count) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (heard.size() < count && std::chrono::steady_clock::now() < deadline) {
            g_main_context_iteration(nullptr, FALSE);
        }
        return heard.size() == count;
    }

    std::vector<std::string> heard;
    std::string application;

private:
    static void hear(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* parameters,
                     void* data) {
        auto& self = *static_cast<TaskbarOnBus*>(data);
        const char* application = nullptr;
        GVariant* properties = nullptr;
        g_variant_get(parameters, "(&s@a{sv})", &application, &properties);
        char* const text = g_variant_print(properties, FALSE);
        self.application = application;
        self.heard.push_back(text);
        g_free(text);
        g_variant_unref(properties);
    }

    std::unique_ptr<GTestDBus, Release> _bus;
    std::unique_ptr<GDBusConnection, Release> _dock;
};

TEST_F(TaskbarOnBus, TellsDocksOfEachChangeAndEndsWithoutABar) {
    g_set_prgname("render");
    {
        Wx::TaskbarProgress first{WindowHandle(1)};
        Wx::TaskbarProgress progress(std::move(first));
        progress.setProgress(0.25F);
        progress.setProgress(0.25F);
        progress.setIndeterminate();
        progress.setProgress(1.5F);
    }
    ASSERT_TRUE(hears(7));
    EXPECT_THAT(heard,
                ElementsAre("{'progress-visible': <false>}", "{'progress-visible': <true>}", "{'progress': <0.25>}",
                            "{'progress': <0.0>, 'progress-visible': <true>}", "{'progress-visible': <true>}",
                            "{'progress': <1.0>}", "{'progress-visible': <false>}"));
    EXPECT_EQ(application, "application://render.desktop");
}

TEST(TaskbarWithoutBus, IsTolerated) {
    g_setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", TRUE);
    Wx::TaskbarProgress progress{WindowHandle()};
    progress.setProgress(0.5F);
    progress.setIndeterminate();
    g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

} // namespace
