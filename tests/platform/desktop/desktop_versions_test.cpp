// The versions that the about box shows are those of the libraries as they run.
#include "platform/desktop/desktop_versions.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

TEST(DesktopVersions, AreThoseOfTheLoadedLibraries) {
    // Parted anew: what runs is at least what the headers were.
    int major = 0;
    int minor = 0;
    int micro = 0;
    ASSERT_EQ(std::sscanf(glib_version().c_str(), "%d.%d.%d", &major, &minor, &micro), 3);
    EXPECT_EQ(
        glib_check_version(static_cast<guint>(major), static_cast<guint>(minor), static_cast<guint>(micro)),
        nullptr);
    EXPECT_GE(minor, GLIB_MINOR_VERSION);
    const std::string c_library = c_library_version();
    EXPECT_EQ(std::count(c_library.begin(), c_library.end(), '.'), 1) << c_library;
    EXPECT_GE(std::stoi(cpp_library_version()), 12);
}

}  // namespace
}  // namespace corvane
