// Files of a Windows drive: read, written, replaced, removed.
#include <gtest/gtest.h>

#include <array>

#include "platform/windows/windows_file_system.h"
#include "tests/platform/windows/scratch_drive.h"

namespace corvane {
namespace {

using WindowsFiles = scratch_drive;

TEST_F(WindowsFiles, AReadOnlyFileStays) {
    make_file(L"f");
    set_attributes(L"f", FILE_ATTRIBUTE_READONLY);
    const outcome removed = files.remove_file(root + "f", files.facts(root + "f"));
    EXPECT_FALSE(removed);
    EXPECT_NE(removed.reason, "");
    EXPECT_TRUE(is_there(L"f"));
}

TEST_F(WindowsFiles, OnlyFilesAreRemoved) {
    make_directory(L"d");
    make_file(L"f");
    EXPECT_FALSE(files.remove_file(root + "d", files.facts(root + "d")));
    EXPECT_FALSE(files.remove_file(root + "d\\", files.facts(root + "d\\")));
    EXPECT_FALSE(files.remove_file(root + "missing", files.facts(root + "missing")));
    EXPECT_FALSE(files.remove_file(root + "*", files.facts(root + "*")));
    EXPECT_FALSE(files.remove_file(root + "?", files.facts(root + "?")));
    EXPECT_TRUE(is_there(L"d"));
    EXPECT_TRUE(is_there(L"f"));
    EXPECT_TRUE(files.remove_file(root + "f", files.facts(root + "f")));
    EXPECT_FALSE(is_there(L"f"));
    EXPECT_TRUE(files.remove_data_file(root + "f"));
}

TEST_F(WindowsFiles, WhatIsAnotherFileThanWasLookedAtStays) {
    make_file(L"f", "one");
    make_file(L"g", "two");
    const file_facts looked_at = files.facts(root + "f");
    EXPECT_FALSE(files.remove_file(root + "g", looked_at));
    append(L"f", " and more");
    EXPECT_FALSE(files.remove_file(root + "f", looked_at));
    EXPECT_TRUE(is_there(L"f"));
    EXPECT_TRUE(is_there(L"g"));
    EXPECT_TRUE(files.remove_file(root + "f", files.facts(root + "f")));
}

TEST_F(WindowsFiles, AFileThatSomebodyHoldsStaysAndIsStillThere) {
    make_file(L"f", "held");
    const HANDLE held =
        CreateFileW((wide_root + L"f").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(files.remove_file(root + "f", files.facts(root + "f")));
    EXPECT_TRUE(files.attributes(root + "f").exists);
    EXPECT_EQ(start_of(root + "f"), "no file");
    CloseHandle(held);
    EXPECT_EQ(start_of(root + "f"), "held");
}

TEST_F(WindowsFiles, AReplacedFileIsTheOldOneUntilTheCommit) {
    make_file(L"清单.txt", "old");
    {
        const outcome_with<file_writer> writer = files.replace_file(root + "清单.txt");
        ASSERT_TRUE(writer);
        EXPECT_TRUE(writer->write("new text"));
        EXPECT_TRUE(writer->write_at(0, "N"));
        EXPECT_EQ(content_of(L"清单.txt"), "old");
        writer->settle();
        EXPECT_TRUE(writer->commit());
        EXPECT_EQ(content_of(L"清单.txt"), "New text");
    }
    {
        const outcome_with<file_writer> dropped = files.replace_file(root + "清单.txt");
        ASSERT_TRUE(dropped);
        EXPECT_TRUE(dropped->write("lost"));
    }
    EXPECT_EQ(content_of(L"清单.txt"), "New text");
    EXPECT_EQ(count_entries(), 1u);
}

TEST_F(WindowsFiles, AHiddenFileStaysHiddenAndAReadOnlyOneIsNotReplaced) {
    make_file(L"h", "old");
    make_file(L"r", "old");
    set_attributes(L"h", FILE_ATTRIBUTE_HIDDEN);
    set_attributes(L"r", FILE_ATTRIBUTE_READONLY);
    const outcome_with<file_writer> hidden = files.replace_file(root + "h");
    ASSERT_TRUE(hidden && hidden->write("new") && hidden->commit());
    EXPECT_TRUE(files.attributes(root + "h").hidden);
    EXPECT_EQ(content_of(L"h"), "new");
    const outcome_with<file_writer> kept = files.replace_file(root + "r");
    EXPECT_FALSE(kept && kept->write("new") && kept->commit());
    EXPECT_EQ(content_of(L"r"), "old");
    EXPECT_EQ(count_entries(), 2u);
}

TEST_F(WindowsFiles, AnOverwrittenFileIsSeenWhileItGrows) {
    make_file(L"f", "a longer old text");
    const outcome_with<file_writer> writer = files.overwrite_file(root + "f");
    ASSERT_TRUE(writer);
    EXPECT_EQ(content_of(L"f"), "");
    EXPECT_TRUE(writer->write("one "));
    EXPECT_EQ(content_of(L"f"), "one ");
    EXPECT_TRUE(writer->write("two"));
    EXPECT_TRUE(writer->commit());
    EXPECT_EQ(content_of(L"f"), "one two");
    EXPECT_FALSE(files.overwrite_file(root));
}

TEST_F(WindowsFiles, ASmallTextTakesThePlaceOfALongerOne) {
    EXPECT_TRUE(files.put_text(root + "t", "a long text"));
    EXPECT_TRUE(files.put_text(root + "t", "short"));
    EXPECT_EQ(content_of(L"t"), "short");
    EXPECT_FALSE(files.put_text(root + "missing\\t", "x"));
}

TEST_F(WindowsFiles, ReadsAtAnyPlaceAndLessOnlyAtTheEnd) {
    make_file(L"f", "0123456789");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 4> buffer;
    EXPECT_EQ(reader->read_at(2, buffer), 4);
    EXPECT_EQ(buffer[0], std::byte{'2'});
    EXPECT_EQ(reader->read_at(8, buffer), 2);
    EXPECT_EQ(reader->read_at(10, buffer), 0);
    EXPECT_EQ(reader->read_at(std::int64_t{1} << 40, buffer), 0);
}

TEST_F(WindowsFiles, ReadsOneAfterTheOtherAreWhereEachOfThemSays) {
    make_file(L"f", "0123456789");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 3> buffer;
    const auto text_at = [&](std::int64_t offset) {
        return bytes_text(buffer, reader->read_at(offset, buffer));
    };
    EXPECT_EQ(text_at(0), "012");
    EXPECT_EQ(text_at(3), "345");
    EXPECT_EQ(text_at(3), "345");
    EXPECT_EQ(text_at(0), "012");
    EXPECT_EQ(text_at(6), "678");
    EXPECT_EQ(text_at(9), "9");
    EXPECT_EQ(text_at(10), "");
    EXPECT_EQ(text_at(1), "123");
    EXPECT_EQ(text_at(100), "");
    EXPECT_EQ(text_at(4), "456");
}

TEST_F(WindowsFiles, WhatComesToAFileIsReadBehindItsOldEnd) {
    make_file(L"f", "old");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 8> buffer;
    EXPECT_EQ(reader->read_at(0, buffer), 3);
    EXPECT_EQ(reader->read_at(3, buffer), 0);
    append(L"f", "new");
    EXPECT_EQ(reader->read_at(3, buffer), 3);
    EXPECT_EQ(buffer[0], std::byte{'n'});
}

TEST_F(WindowsFiles, AStartIsReadToItsEndOrToWhatIsExpected) {
    make_file(L"f", "0123456789");
    std::array<std::byte, 16> wide;
    std::array<std::byte, 4> narrow;
    EXPECT_EQ(files.read_start(root + "f", wide, 10), 10);
    EXPECT_EQ(files.read_start(root + "f", wide, 9), 10);
    EXPECT_EQ(files.read_start(root + "f", wide, 16), 10);
    EXPECT_EQ(wide[9], std::byte{'9'});
    EXPECT_EQ(files.read_start(root + "f", narrow, 4), 4);
    make_file(L"empty");
    EXPECT_EQ(files.read_start(root + "empty", wide, 1), 0);
}

}  // namespace
}  // namespace corvane
