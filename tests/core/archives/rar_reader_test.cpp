#include <gtest/gtest.h>

#include "tests/support/archive_case.h"
#include "tests/support/archive_images.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

const rar_block text_file{.name = "docs\\a.txt", .crc = 0x1A2B3C4D, .size = 1024, .data = "packed data"};

TEST(RarReader, ListsNameChecksumAndLength) {
    archive_case c;
    EXPECT_EQ(c.members_of("books.Rar",
                           rar_image({text_file, {.name = "b", .crc = 0xC0FFEE, .size = 77, .data = "x"}})),
              (texts{"b*00C0FFEE*77", "docs\\a.txt*1A2B3C4D*1024"}));
    EXPECT_TRUE(c.problems().empty());
    EXPECT_EQ(c.state.archive_damaged, 0);
}

TEST(RarReader, AWrongMarkerIsDamage) {
    const std::string good = rar_image({text_file});
    std::string later = good, self_extracting = std::string("MZ") + good, other_size = good,
                other_flags = good, other_type = good;
    later.insert(6, 1, '\1');
    other_size[5] = 8;
    other_flags[4] = 0x1B;
    other_type[2] = 'R';
    for (const std::string& bytes : {later, self_extracting, other_size, other_flags, other_type,
                                     std::string(), std::string("Rar!"), std::string(500, 'x')}) {
        archive_case c;
        EXPECT_EQ(c.members_of("x.rar", bytes), texts{});
        EXPECT_EQ(c.problems(), texts{"/d/x.rar  已损坏,无法打开,请检查"});
        EXPECT_EQ(c.state.archive_error_count, 1);
        EXPECT_EQ(c.state.archive_damaged, -1);
        EXPECT_EQ(c.listed(), texts{"/d/x.rar"});
    }
}

TEST(RarReader, TheFirstTwoBytesOfTheMarkerAreNotLookedAt) {
    archive_case c;
    std::string bytes = rar_image({text_file});
    bytes[0] = bytes[1] = '?';
    EXPECT_EQ(c.members_of("a.rar", bytes), texts{"docs\\a.txt*1A2B3C4D*1024"});
}

TEST(RarReader, TheMainHeaderMayHoldAComment) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_marker() + rar_main_header(2, std::string(300, 'c')) +
                                        rar_file(text_file) + rar_end_block()),
              texts{"docs\\a.txt*1A2B3C4D*1024"});
}

TEST(RarReader, NoBlockStartsInTheLast27Bytes) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image({})), texts{});
    // An end block with 20 bytes behind it stays out, with 21 it is a block like any other.
    const std::string front = rar_marker() + rar_main_header() + rar_file(text_file);
    EXPECT_EQ(c.members_of("a.rar", front + rar_end_block() + std::string(20, '\0')).size(), 1u);
    EXPECT_EQ(c.members_of("a.rar", front + rar_end_block() + std::string(21, '\0')),
              (texts{"*00000000*0", "docs\\a.txt*1A2B3C4D*1024"}));
}

TEST(RarReader, ASubBlockIsNotListed) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar",
                           rar_image({{.name = "CMT", .crc = 5, .size = 9, .type = 0x7A, .data = "comment"},
                                      text_file,
                                      {.name = "RR", .crc = 6, .type = 0x7A, .data = "recovery"}})),
              texts{"docs\\a.txt*1A2B3C4D*1024"});
}

TEST(RarReader, AnyOtherBlockIsTakenForAFile) {
    archive_case c;
    EXPECT_EQ(
        c.members_of("a.rar", rar_image({{.name = "note", .crc = 5, .size = 9, .type = 0x75}, text_file})),
        (texts{"docs\\a.txt*1A2B3C4D*1024", "note*00000005*9"}));
}

TEST(RarReader, DirectoriesAreNotListedAndEmptyFilesAre) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image({{.name = "dirE", .flags = 0x80E0},
                                               {.name = "dirF", .flags = 0x90F4},
                                               {.name = "sumE", .crc = 1, .flags = 0x80E0},
                                               {.name = "none", .flags = 0x80D0},
                                               {.name = "odd", .flags = 0x8E0E}})),
              (texts{"none*00000000*0", "odd*00000000*0", "sumE*00000001*0"}));
}

TEST(RarReader, SolidEncryptedAndSaltedFilesAreListed) {
    archive_case c;
    EXPECT_EQ(
        c.members_of(
            "a.rar",
            rar_image({{.name = "solid", .crc = 1, .size = 1, .flags = 0x8010, .data = "d"},
                       {.name = "secret", .crc = 2, .size = 2, .flags = 0x8004, .data = "dd"},
                       {.name = "salt12345678", .crc = 3, .size = 3, .flags = 0x8404, .name_size = 4}})),
        (texts{"salt*00000003*3", "secret*00000002*2", "solid*00000001*1"}));
}

TEST(RarReader, TheNameEndsInFrontOfItsUnicodeForm) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image({{.name = std::string("\xD6\xD0\xCE\xC4.txt\0\4N-e\x87", 14),
                                                .crc = 1,
                                                .size = 2,
                                                .flags = 0x8200},
                                               text_file})),
              (texts{"docs\\a.txt*1A2B3C4D*1024", "中文.txt*00000001*2"}));
}

TEST(RarReader, WithTheFlagForLargeFilesAloneTheHighWordsAreRead) {
    archive_case c;
    EXPECT_EQ(
        c.members_of(
            "a.rar",
            rar_image(
                {{.name = "large",
                  .crc = 1,
                  .size = 5,
                  .flags = 0x0100,
                  .data = "xyz",
                  .sizes_high = low_bytes(0, 4) + low_bytes(1, 4)},
                 {.name = "small", .crc = 2, .size = 6, .flags = 0x0100, .sizes_high = low_bytes(0, 8)}})),
        (texts{"large*00000001*4294967301", "small*00000002*6"}));
}

TEST(RarReader, WithAnotherFlagBesideItTheHighWordsAreTakenForTheName) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image({{.name = "lost",
                                                .crc = 1,
                                                .size = 5,
                                                .flags = 0x8100,
                                                .data = "xyz",
                                                .sizes_high = "HIGHWORD"},
                                               text_file})),
              (texts{"HIGH*00000001*5", "docs\\a.txt*1A2B3C4D*1024"}));
}

TEST(RarReader, AHeadSizeOf0EndsTheListingBehindItsBlockWithoutAWord) {
    archive_case c;
    EXPECT_EQ(
        c.members_of("a.rar",
                     rar_image({text_file, {.name = "last", .crc = 9, .head_size = 0}, {.name = "never"}})),
        (texts{"docs\\a.txt*1A2B3C4D*1024", "last*00000009*0"}));
    EXPECT_TRUE(c.problems().empty());
    EXPECT_EQ(c.state.archive_damaged, -1);
}

TEST(RarReader, ABlockThatLeadsPastTheEndIsTheLast) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image({{.name = "far", .crc = 1, .size = 2, .pack_size = 0xFFFFFFFE},
                                               {.name = "never"}})),
              texts{"far*00000001*2"});
    EXPECT_EQ(
        c.members_of(
            "b.rar",
            rar_image(
                {{.name = "far", .crc = 1, .size = 2, .flags = 0x0100, .sizes_high = std::string(8, '\xFF')},
                 {.name = "never"}})),
        texts{"far*00000001*18446744069414584322"});
}

TEST(RarReader, LengthsAndPlacesBeyondTwoGigabytesAreExact) {
    archive_case c;
    memory_file& file = c.files.add_file("/d/a.rar");
    const rar_block first{.name = "1", .crc = 1, .size = 3'000'000'000, .pack_size = 3'000'000'000};
    const rar_block second{.name = "2", .crc = 2, .size = 7, .flags = 0x0100, .sizes_high = low_bytes(0, 8)};
    file.content = rar_marker() + rar_main_header() + rar_file(first);
    file.hole_at = static_cast<std::int64_t>(file.content.size());
    file.hole = 3'000'000'000;
    file.content += rar_file(second) + rar_end_block();
    c.search({"/d"});
    EXPECT_EQ(c.members("/d/a.rar"), (texts{"1*00000001*3000000000", "2*00000002*7"}));
}

TEST(RarReader, PackedDataAboveFourGigabytesIsSteppedOver) {
    archive_case c;
    memory_file& file = c.files.add_file("/d/a.rar");
    const std::string high_words = low_bytes(1, 4) + low_bytes(1, 4);
    file.content =
        rar_marker() + rar_main_header() +
        rar_file({.name = "1", .crc = 1, .flags = 0x0100, .sizes_high = high_words, .pack_size = 5});
    file.hole_at = static_cast<std::int64_t>(file.content.size());
    file.hole = 4'294'967'301;
    file.content += rar_file({.name = "2", .crc = 2}) + rar_end_block();
    c.search({"/d"});
    EXPECT_EQ(c.members("/d/a.rar"), (texts{"1*00000001*4294967296", "2*00000002*0"}));
}

TEST(RarReader, ANameThatLeavesTheBufferEndsTheReader) {
    archive_case c;
    // Index 33 to 4096 of the buffer can hold a name.
    const std::string longest(4064, 'n');
    EXPECT_EQ(
        c.members_of("a.rar",
                     rar_image({{.name = longest, .crc = 1}, {.name = longest + "n", .crc = 2}, text_file})),
        texts{longest + "*00000001*0"});
    EXPECT_TRUE(c.problems().empty());
    // A character of two bytes must lie in it as a whole.
    EXPECT_EQ(c.members_of("b.rar",
                           rar_image({{.name = std::string(4063, 'n') + "\xD6\xD0", .crc = 1}, text_file})),
              texts{});
    // Where a zero byte ends the name in time, its stated length is of no account.
    EXPECT_EQ(c.members_of(
                  "c.rar",
                  rar_image({{.name = std::string("short\0", 6), .crc = 1, .name_size = 65'535}, text_file})),
              (texts{"docs\\a.txt*1A2B3C4D*1024", "short*00000001*0"}));
}

TEST(RarReader, SkipsPackedDataWithoutReadingIt) {
    archive_case c;
    std::vector<rar_block> blocks;
    for (int i = 0; i < 10; ++i)
        blocks.push_back({.name = std::to_string(i), .crc = 1, .data = std::string(1'000'000, 'd')});
    EXPECT_EQ(c.members_of("a.rar", rar_image(blocks)).size(), 10u);
    EXPECT_LE(c.files.bytes_read["/d/a.rar"], 200'000);
    EXPECT_EQ(c.files.opened["/d/a.rar"], 1);
}

TEST(RarReader, AFailingReadEndsTheReaderAndNotTheWalk) {
    archive_case c;
    c.files
        .add_file("/d/a.rar",
                  rar_image({text_file, {.name = "b", .data = std::string(300'000, 'd')}, text_file}))
        .read_failure = 300'000;
    c.files.add_file("/d/c.rar", rar_image({text_file}));
    c.search({"/d"});
    EXPECT_EQ(c.files.open_now, 0);
    EXPECT_EQ(c.members("/d/a.rar"), (texts{"b*00000000*0", "docs\\a.txt*1A2B3C4D*1024"}));
    EXPECT_EQ(c.members("/d/c.rar"), texts{"docs\\a.txt*1A2B3C4D*1024"});
    EXPECT_TRUE(c.problems().empty());
}

TEST(RarReader, ListsEveryMemberOfALargeArchive) {
    std::vector<rar_block> blocks;
    texts expected;
    for (int i = 0; i < 20'000; ++i) {
        const std::string name = numbered('n', i);
        blocks.push_back(
            {.name = name, .crc = 1, .size = 2, .data = std::string(static_cast<std::size_t>(i % 90), 'd')});
        expected.push_back(name + "*00000001*2");
    }
    archive_case c;
    EXPECT_EQ(c.members_of("a.rar", rar_image(blocks)), expected);
}

TEST(RarReader, StopsAtTheLimitOfTheListWhichIsSaidOnce) {
    archive_case c;
    c.state.limits.files = 2;
    c.members_of("a.rar", rar_image({{.name = "1"}, {.name = "2"}, {.name = "3"}, {.name = "4"}}));
    EXPECT_EQ(c.state.file_count, 2);
    EXPECT_EQ(c.screen.messages.size(), 1u);
}

}  // namespace
}  // namespace corvane
