#include <gtest/gtest.h>

#include "tests/support/archive_case.h"
#include "tests/support/archive_images.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

const zip_member text_file{.name = "docs/a.txt", .crc = 0x1A2B3C4D, .size = 1024, .data = "packed"};

TEST(ZipReader, ListsNameChecksumAndLength) {
    archive_case c;
    EXPECT_EQ(c.members_of("books.ZIP",
                           zip_image({text_file, {.name = "docs/b.txt", .crc = 0xC0FFEE, .size = 77}})),
              (texts{"docs/a.txt*1A2B3C4D*1024", "docs/b.txt*00C0FFEE*77"}));
    EXPECT_EQ(c.listed()[0], "/d/books.ZIP");
    EXPECT_TRUE(c.problems().empty());
    EXPECT_EQ(c.state.archive_damaged, 0);
    EXPECT_EQ(c.state.archive_path, "/d/books.ZIP");
}

TEST(ZipReader, WithoutAnArchiveCommentNothingButTheEndIsRead) {
    archive_case c;
    zip_member large = text_file;
    large.data.assign(6'000'000, '\0');
    EXPECT_EQ(c.members_of("a.zip", zip_image({large})), texts{"docs/a.txt*1A2B3C4D*1024"});
    EXPECT_LE(c.files.bytes_read["/d/a.zip"], 128 * 1024);
    EXPECT_EQ(c.files.opened["/d/a.zip"], 1);
}

TEST(ZipReader, FindsTheEndRecordInFrontOfAnArchiveComment) {
    for (const std::size_t length : {1u, 3u, 18u, 100u, 65'535u}) {
        archive_case c;
        EXPECT_EQ(c.members_of("a.zip", zip_image({text_file}, std::string(length, 'P'))),
                  texts{"docs/a.txt*1A2B3C4D*1024"})
            << length;
        EXPECT_TRUE(c.problems().empty());
    }
}

TEST(ZipReader, FindsAnEndRecordWhereverItLiesInTheTail) {
    // Around the borders of the pieces in which the tail is read.
    for (const std::size_t length :
         {65'510u, 65'511u, 65'512u, 65'513u, 65'514u, 65'515u, 131'050u, 4'000'000u}) {
        archive_case c;
        EXPECT_EQ(c.members_of("a.zip", zip_image({text_file}) + std::string(length, 'K')),
                  texts{"docs/a.txt*1A2B3C4D*1024"})
            << length;
    }
}

TEST(ZipReader, SearchesNoFurtherThanTheLast5000000Bytes) {
    // The signature stands 22 bytes in front of what follows the archive.
    archive_case reached, missed;
    EXPECT_EQ(reached.members_of("a.zip", zip_image({text_file}) + std::string(5'000'000 - 22, 'x')),
              texts{"docs/a.txt*1A2B3C4D*1024"});
    EXPECT_EQ(missed.members_of("a.zip", zip_image({text_file}) + std::string(5'000'000 - 21, 'x')), texts{});
    EXPECT_EQ(missed.problems(), texts{"/d/a.zip  已损坏,请检查"});
}

TEST(ZipReader, AnEndRecordSixMillionBytesBeforeTheEndIsDamage) {
    archive_case c;
    zip_member large = text_file;
    large.data.assign(4'000'000, '\0');
    EXPECT_EQ(c.members_of("a.zip", zip_image({large}) + std::string(6'000'000, '\0')), texts{});
    EXPECT_EQ(c.problems(), texts{"/d/a.zip  已损坏,请检查"});
    EXPECT_EQ(c.state.archive_error_count, 1);
    EXPECT_EQ(c.state.archive_damaged, -1);
    EXPECT_EQ(c.listed(), texts{"/d/a.zip"});
    EXPECT_EQ(c.desktop.calls, texts{"open /prog/err.txt"});
}

TEST(ZipReader, TakesTheLastSignatureOfTheTail) {
    archive_case c;
    const std::string inner = zip_central_header({.name = "inner", .crc = 5, .size = 5});
    const std::string outer = zip_image({text_file}, inner);
    const auto offset = static_cast<std::uint32_t>(outer.size() - inner.size());
    EXPECT_EQ(c.members_of("a.zip", outer + zip_end_record(offset, 0, 1) + "tail"),
              texts{"inner*00000005*5"});
}

TEST(ZipReader, AFileThatIsNoArchiveIsReportedAndListedAsAFile) {
    archive_case c;
    EXPECT_EQ(c.members_of("x.zip", "this is no archive at all"), texts{});
    EXPECT_EQ(c.listed(), texts{"/d/x.zip"});
    EXPECT_EQ(c.stored_lines("err.txt"),
              (texts{"压缩包错误清单", "/d/x.zip  已损坏,请检查", "", "压缩包错误的验证方法",
                     "1.选中所列的一个文件", "2.复制", "3.放在地址栏,或者贴到 <开始\\运行>,回车,即可运行."}));
}

TEST(ZipReader, AFileBelow23BytesEndsTheReaderWithoutAWord) {
    for (const std::size_t length : {0u, 1u, 21u, 22u}) {
        archive_case c;
        EXPECT_EQ(c.members_of("x.zip", std::string(length, 'x')), texts{});
        EXPECT_TRUE(c.problems().empty()) << length;
        EXPECT_EQ(c.listed(), texts{"/d/x.zip"});
    }
    archive_case c;
    c.members_of("x.zip", std::string(23, 'x'));
    EXPECT_EQ(c.problems().size(), 1u);
}

TEST(ZipReader, AnEndRecordAtTheVeryStartIsNotFound) {
    archive_case c;
    c.members_of("x.zip", zip_image({}, "a comment"));
    EXPECT_EQ(c.problems(), texts{"/d/x.zip  已损坏,请检查"});
}

TEST(ZipReader, DirectoriesAreNotListedAndEmptyFilesAre) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip",
                           zip_image({{.name = "docs/"}, {.name = "docs/none"}, {.name = "odd/", .crc = 1}})),
              (texts{"docs/none*00000000*0", "odd/*00000001*0"}));
}

TEST(ZipReader, AMemberWithACommentIsSuspiciousAndListed) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip", zip_image({{.name = "a", .crc = 1, .size = 2, .comment = "note"},
                                               {.name = "b/", .comment = "x"},
                                               {.name = "c", .crc = 3, .size = 4}})),
              (texts{"a*00000001*2", "c*00000003*4"}));
    EXPECT_EQ(c.problems(), (texts{"/d/a.zip  *a   有附加的信息,可疑", "/d/a.zip  *b/   有附加的信息,可疑"}));
    EXPECT_EQ(c.state.archive_error_count, 2);
    EXPECT_EQ(c.state.archive_damaged, 0);
}

TEST(ZipReader, ANameOver512BytesEndsTheListingWithoutAWord) {
    const std::string longest(512, 'n');
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip",
                           zip_image({text_file, {.name = longest}, {.name = longest + "n"}, {.name = "z"}})),
              (texts{"docs/a.txt*1A2B3C4D*1024", longest + "*00000000*0"}));
    EXPECT_TRUE(c.problems().empty());
}

TEST(ZipReader, ABlockOf17BytesMayPrecedeAHeader) {
    const std::string block = std::string("SD").append(15, '\7');
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip",
                           zip_image({{.name = "a", .crc = 1, .size = 1},
                                      {.name = "b", .crc = 2, .size = 2, .extra = "extra", .before = block},
                                      {.name = "c", .crc = 3, .size = 3}})),
              (texts{"a*00000001*1", "b*00000002*2", "c*00000003*3"}));
}

TEST(ZipReader, TheSignatureOfAHeaderIsNotLookedAt) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip", zip_image({{.name = "a", .crc = 1, .size = 2, .signature = "junk"}})),
              texts{"a*00000001*2"});
}

TEST(ZipReader, TheEndRecordOfALargeArchiveEndsTheDirectory) {
    archive_case c;
    const std::string header = zip_central_header(text_file);
    const std::string long_end = std::string("PK\6\6") + low_bytes(44, 8) + std::string(44, '\1');
    EXPECT_EQ(c.members_of("a.zip", std::string(40, '-') + header + long_end + zip_end_record(40, 0, 0xFFFF)),
              texts{"docs/a.txt*1A2B3C4D*1024"});
}

TEST(ZipReader, LengthsBeyondTwoGigabytesAreExact) {
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip", zip_image({{.name = "a", .crc = 1, .size = 3'000'000'000},
                                               {.name = "b", .crc = 2, .size = 3'000'000'000},
                                               {.name = "c", .crc = 3, .size = 4'294'967'295}})),
              (texts{"a*00000001*3000000000", "b*00000002*3000000000", "c*00000003*4294967295"}));
}

TEST(ZipReader, ALengthThatDoesNotFitItsFieldStandsInTheExtraField) {
    const std::string other = low_bytes(0x5455, 2) + low_bytes(5, 2) + "times";
    const std::string sizes =
        low_bytes(1, 2) + low_bytes(16, 2) + low_bytes(5'000'000'000, 8) + low_bytes(9, 8);
    const std::string too_short = low_bytes(1, 2) + low_bytes(4, 2) + low_bytes(7, 4);
    const std::uint32_t full = 0xFFFFFFFF;
    archive_case c;
    EXPECT_EQ(
        c.members_of("a.zip",
                     zip_image({{.name = "a", .crc = 1, .size = full, .extra = other + sizes},
                                {.name = "b", .crc = 2, .size = 12, .extra = sizes},
                                {.name = "c", .crc = 3, .size = full, .extra = too_short},
                                {.name = "d", .crc = 4, .size = full, .extra = sizes.substr(0, 11)}})),
        (texts{"a*00000001*5000000000", "b*00000002*12", "c*00000003*4294967295", "d*00000004*4294967295"}));
}

TEST(ZipReader, ADirectoryBeyondTwoGigabytesIsRead) {
    archive_case c;
    memory_file& file = c.files.add_file("/d/a.zip");
    file.hole = 3'000'000'000;
    file.content = zip_central_header(text_file) + zip_end_record(3'000'000'000, 56, 1);
    c.search({"/d"});
    EXPECT_EQ(c.members("/d/a.zip"), texts{"docs/a.txt*1A2B3C4D*1024"});
    EXPECT_EQ(c.state.archive_length, 3'000'000'000 + 56 + 22);
}

TEST(ZipReader, ADirectoryThatIsKeptElsewhereEndsTheReader) {
    archive_case c;
    memory_file& file = c.files.add_file("/d/a.zip");
    file.hole = 0xFFFFFFFF;
    file.content = zip_central_header(text_file) + zip_end_record(0xFFFFFFFF, 56, 1);
    c.search({"/d"});
    EXPECT_EQ(c.listed(), texts{"/d/a.zip"});
    EXPECT_TRUE(c.problems().empty());
}

TEST(ZipReader, ADirectoryAtTheStartOrBehindTheEndEndsTheReader) {
    for (const std::uint32_t offset : {0u, 60u, 61u, 1'000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu}) {
        archive_case c;
        EXPECT_EQ(c.members_of("a.zip", std::string(78, 'x') + zip_end_record(offset, 0, 1)), texts{})
            << offset;
        EXPECT_TRUE(c.problems().empty());
    }
}

TEST(ZipReader, NoHeaderStartsInTheLast40Bytes) {
    // 19 bytes of a header whose other fields lie in the end record: name and extra length are its counts.
    const auto cut_archive = [](std::uint32_t directory) {
        std::string end = zip_end_record(directory, 0, 0);
        end[9] = 5;
        return std::string(41, '-') + std::string(19, '\1') + end;
    };
    archive_case taken, passed;
    taken.files.add_file("/d/1.zip", zip_image({{.name = "earlier", .crc = 1}}));
    // Behind the file's end the buffer still holds what the header before had there.
    EXPECT_EQ(taken.members_of("2.zip", cut_archive(41)), texts{"earli*50010101*0"});
    EXPECT_EQ(passed.members_of("2.zip", cut_archive(42)), texts{});
}

TEST(ZipReader, AFailingReadEndsTheReaderAndNotTheWalk) {
    archive_case c;
    std::vector<zip_member> members;
    for (int i = 0; i < 40'000; ++i) members.push_back({.name = numbered('a', i), .crc = 1});
    c.files.add_file("/d/a.zip", zip_image(members)).read_failure = 0;
    const std::string bytes = zip_image(members);
    c.files.add_file("/d/b.zip", bytes).unreadable = true;
    c.files.add_file("/d/c.zip", zip_image({text_file}));
    c.search({"/d"});
    EXPECT_EQ(c.files.open_now, 0);
    EXPECT_EQ(c.listed(), (texts{"/d/a.zip", "/d/b.zip", "/d/c.zip", "/d/c.zip*docs/a.txt*1A2B3C4D*1024"}));
    EXPECT_TRUE(c.problems().empty());
}

TEST(ZipReader, ListsEveryMemberOfALargeDirectory) {
    std::vector<zip_member> members;
    texts expected;
    for (int i = 0; i < 40'000; ++i) {
        const std::string name = numbered('a', i);
        members.push_back({.name = name, .crc = 1, .size = 2});
        expected.push_back(name + "*00000001*2");
    }
    archive_case c;
    EXPECT_EQ(c.members_of("a.zip", zip_image(members)), expected);
}

TEST(ZipReader, StopsAtTheLimitOfTheListWhichIsSaidOnce) {
    archive_case c;
    c.state.limits.files = 3;
    c.members_of("a.zip",
                 zip_image({{.name = "1"}, {.name = "2"}, {.name = "3"}, {.name = "4"}, {.name = "5"}}));
    EXPECT_EQ(c.state.file_count, 3);
    EXPECT_EQ(c.screen.messages.size(), 1u);
}

TEST(ZipReader, MembersAreNotFilteredByType) {
    archive_case c;
    c.state.only_type_text = ".GIF ";
    c.state.only_type_length = 5;
    EXPECT_EQ(c.members_of("a.zip", zip_image({text_file})), texts{"docs/a.txt*1A2B3C4D*1024"});
    EXPECT_EQ(c.state.file_count, 1);
}

TEST(ZipReader, TheReportIsSeenWhileTheWalkGoesOn) {
    archive_case c;
    c.files.add_file("/d/a.zip", std::string(30, 'x'));
    for (int i = 0; i < 600; ++i) c.files.add_file(std::string("/d/") + numbered('b', i));
    std::string seen;
    c.screen.acts[3] = [&] { seen = c.files.content_of("/prog/err.txt"); };
    c.search({"/d"});
    EXPECT_EQ(seen, "压缩包错误清单\r\n/d/a.zip  已损坏,请检查\r\n");
}

}  // namespace
}  // namespace corvane
