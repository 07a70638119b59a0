// The versions of the libraries that this process runs with, for the about box.
#pragma once

#include <string>

namespace corvane {

// Of GLib and GIO, as loaded.
std::string glib_version();
// Of the C library, as loaded.
std::string c_library_version();
// Of the C++ library: the release of the compiler that this program was built with.
std::string cpp_library_version();

}  // namespace corvane
