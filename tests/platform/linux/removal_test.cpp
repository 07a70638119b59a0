// What is removed for good: the file that was looked at, and nothing that has come into its place.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/linux_file_system.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace disk = std::filesystem;

class Removal : public scratch_folder {
  protected:
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(root + name, std::ios::binary) << content;
        return root + name;
    }
    linux_file_system files;
};

TEST_F(Removal, TakesTheFileThatStandsAsItWasLookedAt) {
    const std::string path = write("f", "content");
    EXPECT_TRUE(files.remove_file(path, files.facts(path)));
    EXPECT_FALSE(disk::exists(path));
}

TEST_F(Removal, AFileThatHasChangedStays) {
    const std::string path = write("f", "content");
    const file_facts looked_at = files.facts(path);
    std::ofstream(path, std::ios::app) << " and more";
    const outcome removed = files.remove_file(path, looked_at);
    EXPECT_FALSE(removed);
    EXPECT_NE(removed.reason, "");
    EXPECT_TRUE(disk::exists(path));
}

TEST_F(Removal, AnotherFileUnderTheNameStays) {
    const std::string path = write("f", "content");
    const file_facts looked_at = files.facts(path);
    disk::rename(path, root + "moved");
    write("f", "content");
    EXPECT_FALSE(files.remove_file(path, looked_at));
    EXPECT_TRUE(disk::exists(path));
    EXPECT_TRUE(disk::exists(root + "moved"));
}

TEST_F(Removal, AFolderThatLeadsElsewhereMeanwhileLosesNothing) {
    disk::create_directory(root + "a");
    disk::create_directory(root + "c");
    const std::string path = write("a/f", "content");
    write("c/f", "content");
    const file_facts looked_at = files.facts(path);
    disk::rename(root + "a", root + "b");
    disk::create_directory_symlink(root + "c", root + "a");
    EXPECT_FALSE(files.remove_file(path, looked_at));
    EXPECT_TRUE(disk::exists(root + "b/f"));
    EXPECT_TRUE(disk::exists(root + "c/f"));
}

TEST_F(Removal, DirectoriesLinksAndWhatIsNotThereAreNoFiles) {
    disk::create_directory(root + "d");
    const std::string target = write("f", "content");
    disk::create_symlink(target, root + "link");
    for (const char* name : {"d", "d/", "link", "none", "f/", "none/f"}) {
        EXPECT_FALSE(files.remove_file(root + name, files.facts(target))) << name;
        EXPECT_FALSE(files.remove_file(root + name, files.facts(root + name))) << name;
    }
    EXPECT_TRUE(disk::is_directory(root + "d"));
    EXPECT_TRUE(disk::is_symlink(root + "link"));
    EXPECT_TRUE(disk::exists(target));
}

}  // namespace
}  // namespace corvane
