#include "tests/platform/desktop/mock_service.h"

#include <gtest/gtest.h>

#include "tests/platform/desktop/own_session.h"

namespace corvane {

namespace {

constexpr char mock[] = "org.freedesktop.DBus.Mock";

// An argument as a reader would write it.
std::string words_of(GVariant* value) {
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT)) {
        GVariant* const inner = g_variant_get_variant(value);
        std::string words = words_of(inner);
        g_variant_unref(inner);
        return words;
    }
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) return g_variant_get_string(value, nullptr);
    char* const printed = g_variant_print(value, FALSE);
    std::string words = printed;
    g_free(printed);
    return words;
}

}  // namespace

mock_service::mock_service(const std::string& name, const std::string& path, const std::string& interface,
                           const std::vector<std::string>& arguments)
    : name_(name), path_(path), interface_(interface) {
    bus_ = g_dbus_connection_new_for_address_sync(
        own_session().bus_address(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    // The system's interpreter: another one would lack the module.
    std::vector<const char*> command = {"/usr/bin/python3", "-m", "dbusmock"};
    for (const std::string& argument : arguments) command.push_back(argument.c_str());
    command.push_back(nullptr);
    process_ = g_subprocess_newv(command.data(), G_SUBPROCESS_FLAGS_STDOUT_SILENCE, nullptr);
    bool there = false;
    const guint watch = g_bus_watch_name_on_connection(
        bus_, name_.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, void* flag) { *static_cast<bool*>(flag) = true; },
        nullptr, &there, nullptr);
    const gint64 deadline = g_get_monotonic_time() + gint64{20} * G_USEC_PER_SEC;
    while (!there && g_get_monotonic_time() < deadline) g_main_context_iteration(nullptr, FALSE);
    g_bus_unwatch_name(watch);
    if (!there) ADD_FAILURE() << "no mock of " << name;
}

mock_service::~mock_service() {
    g_subprocess_force_exit(process_);
    g_subprocess_wait(process_, nullptr, nullptr);
    g_object_unref(process_);
    g_dbus_connection_close_sync(bus_, nullptr, nullptr);
    g_object_unref(bus_);
}

GVariant* mock_service::call(const std::string& interface, const std::string& method, GVariant* arguments) {
    return g_dbus_connection_call_sync(bus_, name_.c_str(), path_.c_str(), interface.c_str(), method.c_str(),
                                       arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, nullptr);
}

void mock_service::answer(const std::string& method, const std::string& takes, const std::string& gives,
                          const std::string& code) {
    GVariant* const done = call(mock, "AddMethod",
                                g_variant_new("(sssss)", interface_.c_str(), method.c_str(), takes.c_str(),
                                              gives.c_str(), code.c_str()));
    ASSERT_NE(done, nullptr) << method;
    g_variant_unref(done);
}

std::vector<std::string> mock_service::calls() {
    std::vector<std::string> lines;
    GVariant* const answer = call(mock, "GetCalls", nullptr);
    if (answer == nullptr) return {"no answer"};
    GVariantIter* each = nullptr;
    g_variant_get(answer, "(a(tsav))", &each);
    const char* method = nullptr;
    GVariantIter* arguments = nullptr;
    while (g_variant_iter_next(each, "(t&sav)", nullptr, &method, &arguments)) {
        std::string line = method;
        GVariant* argument = nullptr;
        while (g_variant_iter_next(arguments, "v", &argument)) {
            line += " " + words_of(argument);
            g_variant_unref(argument);
        }
        g_variant_iter_free(arguments);
        lines.push_back(line);
    }
    g_variant_iter_free(each);
    g_variant_unref(answer);
    if (GVariant* const cleared = call(mock, "ClearCalls", nullptr)) g_variant_unref(cleared);
    return lines;
}

}  // namespace corvane
