// Attributes of a path and their clearing, on a real temporary folder and on the disk in memory.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/linux/linux_file_system.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace disk = std::filesystem;

class Attributes : public scratch_folder {
  protected:
    std::string make_directory(const std::string& name) {
        disk::create_directory(root + name);
        return root + name;
    }
    mode_t mode(const std::string& path) const {
        struct stat facts {};
        lstat(path.c_str(), &facts);
        return facts.st_mode & 07777;
    }

    linux_file_system files;
};

TEST_F(Attributes, ClearingGivesTheOwnerWritePermissionAndNothingElse) {
    const std::string path = make_directory("locked");
    chmod(path.c_str(), 0550);
    EXPECT_TRUE(files.attributes(path + "/").read_only);
    EXPECT_TRUE(files.clear_attributes(path + "/"));
    EXPECT_EQ(mode(path), 0750u);
    EXPECT_FALSE(files.attributes(path + "/").read_only);
    EXPECT_FALSE(files.attributes(path).hidden);
}

TEST_F(Attributes, AClearedNameNoLongerCountsAsHiddenInThisRun) {
    const std::string path = make_directory(".hidden");
    std::ofstream(root + ".other") << "x";
    EXPECT_TRUE(files.attributes(path + "/").hidden);
    EXPECT_TRUE(files.clear_attributes(path + "/"));
    EXPECT_FALSE(files.attributes(path + "/").hidden);
    EXPECT_FALSE(files.attributes(path).hidden);
    EXPECT_TRUE(files.attributes(root + ".other").hidden);
    EXPECT_TRUE(disk::exists(path));
    EXPECT_TRUE(linux_file_system().attributes(path).hidden);
}

TEST_F(Attributes, BothAreClearedAtOnce) {
    const std::string path = root + ".both";
    std::ofstream(path) << "x";
    chmod(path.c_str(), 0400);
    EXPECT_TRUE(files.clear_attributes(path));
    const path_attributes after = files.attributes(path);
    EXPECT_TRUE(after.exists);
    EXPECT_FALSE(after.hidden);
    EXPECT_FALSE(after.read_only);
}

TEST_F(Attributes, WhatIsGoneCannotBeCleared) {
    const outcome cleared = files.clear_attributes(root + ".gone");
    EXPECT_FALSE(cleared);
    EXPECT_FALSE(cleared.reason.empty());
    make_directory(".gone");
    EXPECT_TRUE(files.attributes(root + ".gone").hidden);
}

TEST_F(Attributes, ALinkIsToldFromADirectoryWithAndWithoutSeparator) {
    const std::string target = make_directory("target");
    disk::create_symlink(target, root + "link");
    disk::create_symlink(root + "gone", root + "dangling");
    for (const char* path : {"link", "link/"}) {
        const path_attributes link = files.attributes(root + path);
        EXPECT_TRUE(link.exists && link.directory && link.link) << path;
    }
    EXPECT_FALSE(files.attributes(target + "/").link);
    EXPECT_TRUE(files.attributes(root + "dangling").link);
    EXPECT_FALSE(files.attributes(root + "dangling").directory);
    EXPECT_FALSE(files.attributes(root + "dangling/").exists);
}

TEST_F(Attributes, AFileDoesNotExistUnderADirectorysPath) {
    std::ofstream(root + "file") << "x";
    EXPECT_TRUE(files.attributes(root + "file").exists);
    EXPECT_FALSE(files.attributes(root + "file/").exists);
}

TEST_F(Attributes, ClearingALinkLeavesItsTargetAlone) {
    const std::string target = make_directory("target");
    chmod(target.c_str(), 0500);
    disk::create_symlink(target, root + ".link");
    EXPECT_TRUE(files.clear_attributes(root + ".link"));
    EXPECT_EQ(mode(target), 0500u);
    EXPECT_FALSE(files.attributes(root + ".link").hidden);
}

TEST_F(Attributes, MappedNamesAreCleared) {
    make_directory(".star*");
    const std::string text = root + ".star\xEF\x80\xAA";
    EXPECT_TRUE(files.attributes(text).hidden);
    EXPECT_TRUE(files.clear_attributes(text));
    EXPECT_FALSE(files.attributes(text).hidden);
}

TEST(MemoryAttributes, ClearingWorksAsOnTheDisk) {
    memory_file_system files;
    files.add_directory("/d/.h").hidden = true;
    files.add_file("/d/locked").read_only = true;
    files.add_link("/d/link", "/d/.h");
    EXPECT_TRUE(files.attributes("/d/.h/").hidden);
    EXPECT_TRUE(files.attributes("/d/locked").read_only);
    EXPECT_TRUE(files.attributes("/d/link/").link);
    EXPECT_FALSE(files.attributes("/d/locked/").exists);
    EXPECT_TRUE(files.clear_attributes("/d/.h/"));
    EXPECT_TRUE(files.clear_attributes("/d/locked"));
    EXPECT_FALSE(files.attributes("/d/.h").hidden);
    EXPECT_FALSE(files.attributes("/d/locked").read_only);
    EXPECT_FALSE(files.clear_attributes("/d/gone"));
    memory_file& fixed = files.add_file("/d/fixed");
    fixed.read_only = fixed.keeps_attributes = true;
    EXPECT_FALSE(files.clear_attributes("/d/fixed"));
    EXPECT_TRUE(files.attributes("/d/fixed").read_only);
}

TEST_F(Attributes, AFileWrittenAnewGetsTheAccessBackThatItHad) {
    const std::string path = root + "file";
    std::ofstream(path) << "old";
    chmod(path.c_str(), 0640);
    const bool is_administrator = chown(path.c_str(), 1234, 1235) == 0;
    const file_access access = files.access(path);
    ASSERT_TRUE(access.known);
    disk::remove(path);
    std::ofstream(path) << "new";
    chmod(path.c_str(), 0666);
    files.restore_access(path, access);
    EXPECT_EQ(mode(path), 0640u);
    struct stat facts {};
    lstat(path.c_str(), &facts);
    EXPECT_EQ(facts.st_uid == 1234 && facts.st_gid == 1235, is_administrator);
}

TEST_F(Attributes, OnlyAFileThatIsThereHasAnAccessThatIsKnown) {
    const std::string path = root + "file";
    std::ofstream(path) << "x";
    disk::create_symlink(path, root + "link");
    chmod(path.c_str(), 0600);
    EXPECT_FALSE(files.access(root + "gone").known);
    EXPECT_FALSE(files.access(make_directory("folder")).known);
    EXPECT_FALSE(files.access(root + "link").known);
    file_access open{true, 0666, 0, 0};
    files.restore_access(root + "link", open);
    files.restore_access(path, {});
    EXPECT_EQ(mode(path), 0600u) << "neither through the link nor with what is not known";
}

}  // namespace
}  // namespace corvane
