#include "platform/desktop/desktop_power.h"

#include <gio/gio.h>

#include <cstdlib>
#include <string>

#include "platform/desktop/buses.h"

namespace corvane {

namespace {

constexpr int longest_wait = 5000;  // milliseconds for a service that does not answer

struct bus_object {
    const char* service;
    const char* path;
    const char* interface;
};
constexpr bus_object login_manager{"org.freedesktop.login1", "/org/freedesktop/login1",
                                   "org.freedesktop.login1.Manager"};
constexpr bus_object gnome_session{"org.gnome.SessionManager", "/org/gnome/SessionManager",
                                   "org.gnome.SessionManager"};
constexpr bus_object kde_session{"org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown"};

// Null on failure; the caller releases the answer. `arguments` may float.
GVariant* call(GDBusConnection* bus, const bus_object& object, const char* method, GVariant* arguments,
               GError** error) {
    return g_dbus_connection_call_sync(bus, object.service, object.path, object.interface, method, arguments,
                                       nullptr, G_DBUS_CALL_FLAGS_NONE, longest_wait, nullptr, error);
}

bool succeeds(GDBusConnection* bus, const bus_object& object, const char* method, GVariant* arguments,
              GError** error) {
    GVariant* const answer = call(bus, object, method, arguments, error);
    if (answer == nullptr) return false;
    g_variant_unref(answer);
    return true;
}

constexpr char no_answer[] = "系统的电源服务没有回答。";
constexpr char refused[] = "系统拒绝了此操作。";

// One line: what the bus says of it means nothing to the user.
outcome failed(const char* what, GError* error) {
    g_clear_error(&error);
    return outcome::failure(what);
}

// What logind says to a question that begins with Can: "yes", "no", "na", "challenge".
std::string permission(GDBusConnection* bus, const char* question, GError** error) {
    GVariant* const answer = call(bus, login_manager, question, nullptr, error);
    if (answer == nullptr) return {};
    std::string words;
    if (g_variant_is_of_type(answer, G_VARIANT_TYPE("(s)"))) {
        const char* text = nullptr;
        g_variant_get(answer, "(&s)", &text);
        words = text;
    }
    g_variant_unref(answer);
    return words;
}

// Asks first, for a refusal that comes later may only be seen in the system's log.
outcome ask_logind(const char* question, const char* method) {
    GError* error = nullptr;
    const object_pointer<GDBusConnection> bus = system_bus(&error);
    if (!bus) return failed(no_answer, error);
    const std::string allowed = permission(bus.get(), question, &error);
    if (error != nullptr) return failed(no_answer, error);
    if (allowed == "na") return outcome::failure("这台计算机不支持此操作。");
    // "challenge" would ask for a password of a user who may not be there.
    if (allowed != "yes") return outcome::failure("系统不允许此操作。");
    if (succeeds(bus.get(), login_manager, method, g_variant_new("(b)", FALSE), &error))
        return outcome::success();
    return failed(refused, error);
}

}  // namespace

outcome desktop_power::log_off() {
    // The session's own manager lets programs save their work; logind ends the session without asking.
    if (const object_pointer<GDBusConnection> session = session_bus(nullptr)) {
        constexpr guint32 without_question = 1;
        if (succeeds(session.get(), gnome_session, "Logout", g_variant_new("(u)", without_question),
                     nullptr) ||
            succeeds(session.get(), kde_session, "logout", nullptr, nullptr))
            return outcome::success();
    }
    const char* const number = std::getenv("XDG_SESSION_ID");
    if (number == nullptr || *number == '\0') return outcome::failure("没有可以注销的会话。");
    GError* error = nullptr;
    const object_pointer<GDBusConnection> bus = system_bus(&error);
    if (!bus) return failed(no_answer, error);
    if (succeeds(bus.get(), login_manager, "TerminateSession", g_variant_new("(s)", number), &error))
        return outcome::success();
    return failed(refused, error);
}

outcome desktop_power::reboot() {
    return ask_logind("CanReboot", "Reboot");
}

outcome desktop_power::power_off() {
    return ask_logind("CanPowerOff", "PowerOff");
}

}  // namespace corvane
