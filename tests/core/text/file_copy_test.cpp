#include "core/text/file_copy.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

TEST(CopyFile, CopiesEveryByteWhateverTheLength) {
    for (const std::size_t length : {0u, 1u, 65'535u, 65'536u, 65'537u, 200'000u}) {
        memory_file_system files;
        std::string content(length, 'a');
        for (std::size_t i = 0; i < length; ++i) content[i] = static_cast<char>(i * 31 % 251);
        files.add_file("/from", content);
        ASSERT_TRUE(copy_file(files, "/from", "/to"));
        EXPECT_EQ(files.content_of("/to"), content) << length;
        EXPECT_EQ(files.content_of("/from"), content) << length;
    }
}

TEST(CopyFile, WhatCannotBeReadOrWrittenLeavesTheOldFile) {
    memory_file_system files;
    files.add_file("/to", "old");
    EXPECT_FALSE(copy_file(files, "/missing", "/to"));
    files.add_file("/from", std::string(100'000, 'n')).read_failure = 70'000;
    const outcome unread = copy_file(files, "/from", "/to");
    EXPECT_FALSE(unread);
    EXPECT_EQ(unread.reason, "不能读出。");
    files.add_file("/whole", "new");
    files.write_failure_path = "/to";
    const outcome unwritten = copy_file(files, "/whole", "/to");
    EXPECT_FALSE(unwritten);
    EXPECT_EQ(unwritten.reason, files.write_failure_words);
    EXPECT_EQ(files.content_of("/to"), "old");
}

}  // namespace
}  // namespace corvane
