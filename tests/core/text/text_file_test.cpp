#include "core/text/text_file.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

std::vector<std::string> lines_of(const std::string& content) {
    memory_file_system files;
    files.add_file("/f", content);
    line_reader reader(files, "/f");
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.next(line)) lines.emplace_back(line);
    EXPECT_EQ(reader.position(), static_cast<std::int64_t>(content.size()));
    return lines;
}

using texts = std::vector<std::string>;

TEST(LineReader, TakesCrLfAndLf) {
    EXPECT_EQ(lines_of("a\r\nb\nc"), (texts{"a", "b", "c"}));
}
TEST(LineReader, KeepsEmptyLinesAndTakesNoneBehindTheLastEnd) {
    EXPECT_EQ(lines_of("\r\n\r\na\r\n"), (texts{"", "", "a"}));
    EXPECT_EQ(lines_of(""), texts{});
}
TEST(LineReader, KeepsACarriageReturnInsideALine) {
    EXPECT_EQ(lines_of("a\rb\r\n"), (texts{"a\rb"}));
}
TEST(LineReader, ByteTwentySixHasNoMeaning) {
    EXPECT_EQ(lines_of("a\x1A\r\nb\r\n"), (texts{"a\x1A", "b"}));
}
TEST(LineReader, ReadsALineLongerThanItsBlock) {
    const std::string longest(1'000'000, 'x');
    EXPECT_EQ(lines_of("a\n" + longest + "\r\nb"), (texts{"a", longest, "b"}));
}
TEST(LineReader, ReadsBinaryBytesAsTheyStand) {
    const std::string binary("\0\xFF\x01\n\0", 5);
    EXPECT_EQ(lines_of(binary), (texts{std::string("\0\xFF\x01", 3), std::string("\0", 1)}));
}
TEST(LineReader, IsNotOpenForAMissingFileOrADirectory) {
    memory_file_system files;
    files.add_directory("/d");
    EXPECT_FALSE(line_reader(files, "/none").is_open());
    EXPECT_FALSE(line_reader(files, "/d").is_open());
}

TEST(LineWriter, ReplacesTheFileOnlyAtFinish) {
    memory_file_system files;
    files.add_file("/f", "old");
    line_writer writer(files, "/f");
    writer.line("new");
    writer.number(7);
    EXPECT_EQ(files.content_of("/f"), "old");
    EXPECT_TRUE(writer.finish());
    EXPECT_EQ(files.content_of("/f"), "new\r\n 7 \r\n");
}

TEST(LineWriter, PatchesBytesThatWereWritten) {
    memory_file_system files;
    line_writer writer(files, "/f");
    writer.line("000000");
    writer.line("row");
    writer.patch(0, "12    ");
    EXPECT_TRUE(writer.finish());
    EXPECT_EQ(files.content_of("/f"), "12    \r\nrow\r\n");
}

TEST(LineWriter, TellsTheSystemsWordsAndLeavesTheOldFile) {
    memory_file_system files;
    files.add_file("/f", "old");
    files.write_failure_path = "/f";
    line_writer writer(files, "/f");
    for (int i = 0; i < 100'000; ++i) writer.line("a line that fills the buffer");
    EXPECT_FALSE(writer.finish());
    EXPECT_EQ(writer.error(), "disk full");
    EXPECT_EQ(files.content_of("/f"), "old");
}

TEST(LineReader, TellsAnEndThatIsNotThatOfTheFile) {
    memory_file_system files;
    files.add_file("/whole", "a\r\nb\r\n");
    files.add_file("/broken", "a\r\nb\r\n").read_failure = 0;
    files.add_file("/long", std::string(3 * line_reader::longest_line, 'x'));
    for (const auto& [path, fails] : {std::pair("/whole", false), {"/broken", true}, {"/long", true}}) {
        line_reader lines(files, path);
        for (std::string_view line; lines.next(line);) {
        }
        EXPECT_EQ(lines.failed(), fails) << path;
    }
}

}  // namespace
}  // namespace corvane
