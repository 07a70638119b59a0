// The columns before the first file is compared.
#include "compare/preparation.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

struct preparation_case {
    memory_file_system disk;
    file_columns files;
    result_state result;
    bool members = false;

    void list(const std::vector<std::string>& entries) {
        for (const std::string& entry : entries) files.file_list.push_back(entry);
        files.file_count = files.file_list.size();
        size_columns(files, result);
    }
    bool refresh(std::int32_t last = 1'000) {
        return refresh_attributes(disk, files, result, members, [last](std::int32_t i) { return i < last; });
    }
};

TEST(Preparation, LengthsAndTimesComeFromTheDiskAndAreSummedUp) {
    preparation_case c;
    c.disk.add_file("/a", "12345").date_low = 9;
    c.disk.add_file("/b", "123");
    c.list({"/a", "/b", "/gone"});
    ASSERT_TRUE(c.refresh());
    EXPECT_EQ(c.files.file_len, (column<std::int64_t>{5, 3, 0}));
    EXPECT_EQ(c.files.file_date_lo[1], 9);
    EXPECT_EQ(c.files.file_ok, (column<std::uint8_t>{1, 1, 0}));
    EXPECT_EQ(c.result.total_bytes, 8);
    EXPECT_FALSE(c.members);
}

TEST(Preparation, AMemberGivesItsLengthAndSignatureAndLosesBothFields) {
    preparation_case c;
    c.list({"/z.zip*in.txt*0000ABCD*77"});
    ASSERT_TRUE(c.refresh());
    EXPECT_TRUE(c.members);
    EXPECT_EQ(c.files.file_len[1], 77);
    take_member_signatures(c.files);
    EXPECT_EQ(c.files.file_list[1], "/z.zip*in.txt");
    EXPECT_EQ(c.files.file_crc[1], 0xABCD);
    EXPECT_EQ(c.files.file_in_archive[1], 1);
}

TEST(Preparation, TheRefreshEndsWhereItIsToldTo) {
    preparation_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.disk.add_file(path, "1");
    c.list({"/a", "/b", "/c"});
    EXPECT_FALSE(c.refresh(2));
    EXPECT_EQ(c.files.file_len, (column<std::int64_t>{1, 1, 0}));
}

TEST(Preparation, AnEntryWithoutANameTakesNoPart) {
    preparation_case c;
    c.list({"", "/a"});
    c.disk.add_file("/a", "1");
    ASSERT_TRUE(c.refresh());
    EXPECT_EQ(c.files.file_ok, (column<std::uint8_t>{0, 1}));
}

TEST(Preparation, SuffixesAreNumberedByTheirTextInEitherCase) {
    preparation_case c;
    c.list({"/a.txt", "/b.TXT", "/c.jpg", "/plain"});
    fill_suffix_column(c.files);
    EXPECT_EQ(c.files.file_ext[1], c.files.file_ext[2]);
    EXPECT_NE(c.files.file_ext[1], c.files.file_ext[3]);
    EXPECT_EQ(c.files.file_ext[4], 0);
    EXPECT_EQ(c.files.suffix_texts[static_cast<std::size_t>(c.files.file_ext[3])], "JPG");
}

TEST(Preparation, AvoidedFilesLoseTheirEntry) {
    preparation_case c;
    c.list({"/a", "/b", "/c"});
    trail_state trail;
    trail.avoid_files.push_back("/b");
    trail.avoid_count = 1;
    blank_avoided_files(c.files, trail);
    EXPECT_EQ(c.files.file_list[1], "/a");
    EXPECT_EQ(c.files.file_list[2], "");
    EXPECT_EQ(c.files.file_list[3], "/c");
}

TEST(Preparation, TheAvoidListIsTakenWholeInAnyOrder) {
    preparation_case c;
    // The one in the middle first: a search by halves would go astray at its blank.
    c.list({"/z", "/a", "/b", "/c", "/d", "/e", "/x.zip*in*0000ABCD*77", "/x.zip*on*0000ABCD*77"});
    trail_state trail;
    for (const char* path : {"/c", "/b", "/z", "/e", "/gone", "/x.zip*in"}) trail.avoid_files.push_back(path);
    trail.avoid_count = 6;
    blank_avoided_files(c.files, trail);
    std::vector<std::string> left;
    for (std::int32_t i = 1; i <= 8; ++i) left.emplace_back(c.files.file_list[i]);
    EXPECT_EQ(left, (std::vector<std::string>{"", "/a", "", "", "/d", "", "", "/x.zip*on*0000ABCD*77"}));
}

TEST(Preparation, AFileIsAsListedWhileNothingOfItHasChanged) {
    preparation_case c;
    memory_file& file = c.disk.add_file("/a", "12345");
    c.list({"/a"});
    ASSERT_TRUE(c.refresh());
    EXPECT_TRUE(is_as_listed(c.files, 1, c.disk.facts("/a")));
    const memory_file before = file;
    for (const auto& change : std::vector<std::function<void()>>{
             [&] { file.content = "1234"; }, [&] { ++file.date_low; }, [&] { ++file.date_high; },
             [&] { ++file.changed_ns; }, [&] { file.index += 7; }, [&] { ++file.device; },
             [&] { file.kind = entry_kind::directory; }}) {
        change();
        EXPECT_FALSE(is_as_listed(c.files, 1, c.disk.facts("/a")));
        file = before;
    }
    EXPECT_TRUE(is_as_listed(c.files, 1, c.disk.facts("/a")));
}

}  // namespace
}  // namespace corvane
