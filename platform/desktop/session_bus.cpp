#include "platform/desktop/session_bus.h"

namespace corvane {

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
    return object_pointer<GDBusConnection>(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error));
}

}  // namespace corvane
