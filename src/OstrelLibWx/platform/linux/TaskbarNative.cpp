#include "platform/TaskbarNative.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include <gio/gio.h>

namespace Ostrel::Detail {

namespace {

using Wx::TaskbarState;

/// The name of the desktop file that has started this process, or else the one that a program of this name has.
std::string getDesktopFileName() {
    const char* const file = std::getenv("GIO_LAUNCHED_DESKTOP_FILE");
    const char* const process = std::getenv("GIO_LAUNCHED_DESKTOP_FILE_PID");
    if (file != nullptr && process != nullptr && std::to_string(getpid()) == process) {
        return std::filesystem::path(file).filename();
    }
    const char* const program = g_get_prgname();
    return std::string(program == nullptr ? "unknown" : program) + ".desktop";
}

/// The "Update" signal of com.canonical.Unity.LauncherEntry: the application's address and the properties that change.
class LauncherTaskbar : public Wx::ITaskbar {
public:
    /// Takes over the connection.
    explicit LauncherTaskbar(GDBusConnection* bus)
        : _bus(bus)
        , _application("application://" + getDesktopFileName())
        , _path("/com/canonical/unity/launcherentry/" + std::to_string(g_str_hash(_application.c_str()))) {}
    LauncherTaskbar(const LauncherTaskbar&) = delete;
    LauncherTaskbar& operator=(const LauncherTaskbar&) = delete;
    ~LauncherTaskbar() override {
        // The process may end right after this, and the bar with what has been sent by then.
        g_dbus_connection_flush_sync(_bus, nullptr, nullptr);
        g_object_unref(_bus);
    }

    void setState(WindowHandle, TaskbarState state) override {
        GVariantBuilder properties;
        g_variant_builder_init(&properties, G_VARIANT_TYPE_VARDICT);
        if (state == TaskbarState::INDETERMINATE) {
            g_variant_builder_add(&properties, "{sv}", "progress", g_variant_new_double(0.0));
        }
        const gboolean isVisible = state == TaskbarState::NO_PROGRESS ? FALSE : TRUE;
        g_variant_builder_add(&properties, "{sv}", "progress-visible", g_variant_new_boolean(isVisible));
        send(properties);
    }
    void setValue(WindowHandle, std::int32_t completed, std::int32_t total) override {
        GVariantBuilder properties;
        g_variant_builder_init(&properties, G_VARIANT_TYPE_VARDICT);
        const double share = std::clamp(static_cast<double>(completed) / total, 0.0, 1.0);
        g_variant_builder_add(&properties, "{sv}", "progress", g_variant_new_double(share));
        send(properties);
    }

private:
    void send(GVariantBuilder& properties) {
        g_dbus_connection_emit_signal(_bus, nullptr, _path.c_str(), "com.canonical.Unity.LauncherEntry", "Update",
                                      g_variant_new("(sa{sv})", _application.c_str(), &properties), nullptr);
    }

    GDBusConnection* _bus;
    std::string _application;
    std::string _path;
};

} // namespace

AutoPtr<Wx::ITaskbar> createTaskbar() {
    char* const address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (address == nullptr) {
        return nullptr;
    }
    // A connection of its own: the one that a process shares ends the process with the bus.
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GDBusConnection* const bus = g_dbus_connection_new_for_address_sync(address, FLAGS, nullptr, nullptr, nullptr);
    g_free(address);
    return AutoPtr<Wx::ITaskbar>(bus == nullptr ? nullptr : new LauncherTaskbar(bus));
}

} // namespace Ostrel::Detail
