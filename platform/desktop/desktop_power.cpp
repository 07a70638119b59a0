#include "platform/desktop/desktop_power.h"

#include <gio/gio.h>

#include "platform/desktop/desktop_failure.h"

namespace corvane {

namespace {

// One call to logind. A service that is missing is told in one line.
outcome ask_logind(const char* object, const char* interface, const char* method, GVariant* arguments) {
    GError* error = nullptr;
    GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, &error);
    GVariant* answer = nullptr;
    if (bus != nullptr) {
        answer =
            g_dbus_connection_call_sync(bus, "org.freedesktop.login1", object, interface, method, arguments,
                                        nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, &error);
        g_object_unref(bus);
    } else if (arguments != nullptr) {
        g_variant_unref(g_variant_ref_sink(arguments));
    }
    if (answer != nullptr) {
        g_variant_unref(answer);
        return outcome::success();
    }
    return desktop_failure("系统的电源服务没有回答。", error);
}

constexpr char manager_object[] = "/org/freedesktop/login1";
constexpr char manager[] = "org.freedesktop.login1.Manager";

}  // namespace

outcome desktop_power::log_off() {
    return ask_logind("/org/freedesktop/login1/session/auto", "org.freedesktop.login1.Session", "Terminate",
                      nullptr);
}

outcome desktop_power::reboot() {
    return ask_logind(manager_object, manager, "Reboot", g_variant_new("(b)", FALSE));
}

outcome desktop_power::power_off() {
    return ask_logind(manager_object, manager, "PowerOff", g_variant_new("(b)", FALSE));
}

}  // namespace corvane
