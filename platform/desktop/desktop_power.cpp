#include "platform/desktop/desktop_power.h"

#include <gio/gio.h>

namespace corvane {

namespace {

constexpr char service[] = "org.freedesktop.login1";

// `arguments` may be floating and is taken over. The line stands in front of the system's words on failure.
shell_result ask_logind(const char* path, const char* interface, const char* method, GVariant* arguments,
                        const std::string& line) {
    g_variant_ref_sink(arguments);
    GError* error = nullptr;
    GVariant* answer = nullptr;
    if (GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, &error)) {
        constexpr int patience = 25000;  // milliseconds
        answer = g_dbus_connection_call_sync(bus, service, path, interface, method, arguments, nullptr,
                                             G_DBUS_CALL_FLAGS_ALLOW_INTERACTIVE_AUTHORIZATION, patience,
                                             nullptr, &error);
        g_object_unref(bus);
    }
    g_variant_unref(arguments);
    if (answer) {
        g_variant_unref(answer);
        return shell_result::success();
    }
    if (g_dbus_error_is_remote_error(error)) g_dbus_error_strip_remote_error(error);
    std::string words = line + "\r\n" + error->message;
    g_error_free(error);
    return shell_result::failure(std::move(words));
}

shell_result ask_manager(const char* method, GVariant* arguments, const std::string& line) {
    return ask_logind("/org/freedesktop/login1", "org.freedesktop.login1.Manager", method, arguments, line);
}

}  // namespace

shell_result desktop_power::log_off() {
    // "auto" is the caller's own session, or the one on its user's display.
    return ask_logind("/org/freedesktop/login1/session/auto", "org.freedesktop.login1.Session", "Terminate",
                      g_variant_new("()"), "不能注销");
}

shell_result desktop_power::reboot() {
    return ask_manager("Reboot", g_variant_new("(b)", FALSE), "不能重新启动计算机");
}

shell_result desktop_power::power_off() {
    return ask_manager("PowerOff", g_variant_new("(b)", FALSE), "不能关闭计算机");
}

}  // namespace corvane
