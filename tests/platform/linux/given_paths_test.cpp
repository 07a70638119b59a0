// Paths that were handed over as a text, on the disk of this system.
#include "search/given_paths.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/linux/linux_file_system.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(GivenPaths, NamesWithLineBreaksAndStarsAreMappedWhereTheDiskMapsThem) {
    linux_file_system disk;
    const given_paths given = read_given_paths(disk, "file:///a%0Ab%2Ac\n/d*e\n/plain");
    EXPECT_EQ(given.paths, (texts{"/a\uF00Ab\uF02Ac", "/d\uF02Ae", "/plain"}));
    // As the program itself writes such a name: copied out of it, it is that name again.
    EXPECT_EQ(read_given_paths(disk, "/a\uF00Ab").paths, texts{"/a\uF00Ab"});
}

}  // namespace
}  // namespace corvane
