// When two paths are one file. Numbers of devices and indexes are made up; what counts is which are equal.
#include "core/archives/physical_file.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

class PhysicalFile : public testing::Test {
  protected:
    memory_file& add(const std::string& path, std::uint64_t device, std::uint64_t index) {
        memory_file& file = files.add_file(path, "content");
        file.device = device;
        file.index = index;
        file.modified_ns = 5'000'000'007;
        file.changed_ns = 6'000'000'009;
        return file;
    }
    bool same(const char* a, const char* b) {
        EXPECT_EQ(same_physical_file(files, a, b), same_physical_file(files, b, a));
        return same_physical_file(files, a, b);
    }

    memory_file_system files;
};

TEST_F(PhysicalFile, TwoPathsOfAFileWithOneLinkAreOneFile) {
    add("/a/f", 1, 70);
    add("/b/f", 1, 70);
    add("/b/g", 1, 71);
    add("/c/f", 2, 70);
    EXPECT_TRUE(same("/a/f", "/b/f"));
    EXPECT_TRUE(same("/a/f", "/a/f"));
    EXPECT_FALSE(same("/a/f", "/b/g"));
    EXPECT_FALSE(same("/a/f", "/c/f")) << "an index counts on its device alone";
}

TEST_F(PhysicalFile, TwoLinksAreTwoFilesAndTwoRoadsToOneOfThemAreOne) {
    add("/a/f", 1, 70).link_count = 2;
    add("/a/g", 1, 70).link_count = 2;
    add("/b/f", 1, 70).link_count = 2;
    EXPECT_FALSE(same("/a/f", "/a/g"));
    EXPECT_FALSE(same("/a/f", "/b/f")) << "another directory";
    files.add_directory("/seen");
    add("/seen/f", 1, 70).link_count = 2;
    files.add_directory("/seen").index = files.add_directory("/a").index;
    EXPECT_TRUE(same("/a/f", "/seen/f")) << "the same directory under another name";
}

TEST_F(PhysicalFile, AFileSeenThroughAStackIsOneFile) {
    add("/upper/f", 1, 70);
    memory_file& merged = add("/merged/f", 9, 70);
    merged.stacked = true;
    EXPECT_TRUE(same("/upper/f", "/merged/f"));
    merged.changed_ns += 1;
    EXPECT_FALSE(same("/upper/f", "/merged/f")) << "a copy";
    merged.changed_ns -= 1;
    merged.modified_ns += 1;
    EXPECT_FALSE(same("/upper/f", "/merged/f"));
    merged.modified_ns -= 1;
    merged.content += "x";
    EXPECT_FALSE(same("/upper/f", "/merged/f"));
    merged.content.pop_back();
    merged.stacked = false;
    EXPECT_FALSE(same("/upper/f", "/merged/f")) << "no stack: a snapshot keeps index and times of its source";
}

TEST_F(PhysicalFile, APoolThatGivesIndexesOfItsOwnIsKnownByTheTimes) {
    add("/disk/f", 1, 70);
    add("/pool/f", 9, 123456789).stacked = true;
    EXPECT_TRUE(same("/disk/f", "/pool/f"));
    // Whole seconds: the mount has no change time of its own, and copies share the other time.
    memory_file& disk = add("/disk/g", 1, 71);
    memory_file& pool = add("/pool/g", 9, 1234);
    pool.stacked = true;
    disk.changed_ns = pool.changed_ns = 6'000'000'000;
    EXPECT_FALSE(same("/disk/g", "/pool/g"));
    // Two remote places with the same times.
    add("/pool2/f", 10, 5).stacked = true;
    EXPECT_FALSE(same("/pool/f", "/pool2/f"));
}

TEST_F(PhysicalFile, AShareMayTellTimesInUnitsOf100Nanoseconds) {
    memory_file& local = add("/disk/f", 1, 70);
    local.modified_ns = 5'000'000'367;
    local.changed_ns = 6'000'000'999;
    memory_file& remote = add("/share/f", 9, 123456789);
    remote.stacked = true;
    remote.modified_ns = 5'000'000'300;
    remote.changed_ns = 6'000'000'900;
    EXPECT_TRUE(same("/disk/f", "/share/f"));
    remote.changed_ns = 6'000'001'000;
    EXPECT_FALSE(same("/disk/f", "/share/f")) << "the next unit";
    remote.changed_ns = 6'000'000'990;
    EXPECT_FALSE(same("/disk/f", "/share/f")) << "that is a finer time, and another";
}

TEST_F(PhysicalFile, FilesOfOneStackAreToldApartByTheirIndex) {
    add("/merged/f", 9, 70).stacked = true;
    add("/merged/g", 9, 71).stacked = true;
    EXPECT_FALSE(same("/merged/f", "/merged/g"));
}

TEST_F(PhysicalFile, EntriesOfOneArchiveByTwoPathsAreOne) {
    add("/a/x.zip", 1, 70);
    add("/b/x.zip", 1, 70);
    add("/c/x.zip", 1, 71);
    EXPECT_TRUE(same("/a/x.zip*in", "/b/x.zip*in"));
    EXPECT_TRUE(same("/a/x.zip*in", "/b/x.zip*other"));
    EXPECT_FALSE(same("/a/x.zip*in", "/c/x.zip*in"));
    EXPECT_FALSE(same("/a/x.zip*in", "/a/x.zip*other")) << "two members";
    EXPECT_FALSE(same("/a/x.zip*in", "/b/x.zip")) << "a member and its archive";
}

TEST_F(PhysicalFile, WhatIsNotThereIsNobodysFile) {
    add("/a/f", 1, 70);
    EXPECT_FALSE(same("/a/f", "/a/gone"));
    EXPECT_FALSE(same("/gone.zip*in", "/gone2.zip*in"));
}

}  // namespace
}  // namespace corvane
