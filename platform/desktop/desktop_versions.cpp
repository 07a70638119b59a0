#include "platform/desktop/desktop_versions.h"

#include <glib.h>
#include <gnu/libc-version.h>

namespace corvane {

std::string glib_version() {
    return std::to_string(glib_major_version) + "." + std::to_string(glib_minor_version) + "." +
           std::to_string(glib_micro_version);
}

std::string c_library_version() {
    return gnu_get_libc_version();
}

std::string cpp_library_version() {
    return std::to_string(_GLIBCXX_RELEASE);
}

}  // namespace corvane
