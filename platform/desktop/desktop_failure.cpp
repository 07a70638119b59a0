#include "platform/desktop/desktop_failure.h"

namespace corvane {

outcome desktop_failure(const char* what, GError* error) {
    std::string reason = what;
    if (error != nullptr) {
        // Without the name of the error on the bus.
        g_dbus_error_strip_remote_error(error);
        reason += std::string("\r\n") + error->message;
        g_error_free(error);
    }
    return outcome::failure(std::move(reason));
}

}  // namespace corvane
