// Paths of a command line: relative to where it is typed, and led up as the system leads.
#include "platform/typed_path.h"

#include <unistd.h>

#include <filesystem>

#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

struct typed_path_test : scratch_folder {
    typed_path_test() : before(std::filesystem::current_path()) {}
    ~typed_path_test() override { std::filesystem::current_path(before); }
    std::filesystem::path before;
};

TEST_F(typed_path_test, IsRelativeToTheWorkingDirectory) {
    std::filesystem::create_directory(root + "d");
    std::filesystem::current_path(root + "d");
    EXPECT_EQ(absolute_raw_path("x//y/"), root + "d/x/y");
    EXPECT_EQ(absolute_raw_path("."), root + "d");
    EXPECT_EQ(absolute_raw_path("/"), "/");
    EXPECT_EQ(absolute_raw_path("/a/./b/"), "/a/b");
}

TEST_F(typed_path_test, UpFromALinkIsUpFromWhereItLeadsTo) {
    std::filesystem::create_directories(root + "far/deep");
    std::filesystem::create_directory(root + "far/beside");
    std::filesystem::create_directory_symlink(root + "far/deep", root + "link");
    EXPECT_EQ(absolute_raw_path(root + "link/../beside"), root + "far/beside");
    EXPECT_EQ(absolute_raw_path(root + "link"), root + "link") << "a link stays one";
    EXPECT_EQ(absolute_raw_path("/gone/../d//e/"), "/d/e");
}

TEST_F(typed_path_test, HasNoneWhereTheWorkingDirectoryHasGone) {
    std::filesystem::create_directory(root + "d");
    std::filesystem::current_path(root + "d");
    std::filesystem::remove(root + "d");
    EXPECT_EQ(absolute_raw_path("x"), std::nullopt);
    EXPECT_EQ(absolute_raw_path("/x"), "/x");
}

}  // namespace
}  // namespace corvane
