#include "platform/desktop/desktop_failure.h"

namespace corvane {

outcome desktop_failure(const char* what, GError* error) {
    std::string reason = what;
    if (error != nullptr) {
        reason += std::string("\r\n") + error->message;
        g_error_free(error);
    }
    return outcome::failure(std::move(reason));
}

}  // namespace corvane
