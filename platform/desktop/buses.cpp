#include "platform/desktop/buses.h"

namespace corvane {

namespace {

object_pointer<GDBusConnection> connected(GBusType type, GError** error) {
    object_pointer<GDBusConnection> bus(g_bus_get_sync(type, nullptr, error));
    if (bus) g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return bus;
}

}  // namespace

object_pointer<GDBusConnection> session_bus(GError** error) {
    const char* const address = g_getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address == nullptr || *address == '\0') {
        // The place where a user's session has its bus; without it the library would start one of its own.
        char* const usual = g_build_filename(g_get_user_runtime_dir(), "bus", nullptr);
        const bool there = g_file_test(usual, G_FILE_TEST_EXISTS);
        g_free(usual);
        if (!there) {
            g_set_error_literal(error, G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED, "no session bus");
            return nullptr;
        }
    }
    return connected(G_BUS_TYPE_SESSION, error);
}

object_pointer<GDBusConnection> system_bus(GError** error) {
    return connected(G_BUS_TYPE_SYSTEM, error);
}

}  // namespace corvane
