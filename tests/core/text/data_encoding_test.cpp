// Data files of a machine that writes texts otherwise than they are in memory.
#include <gtest/gtest.h>

#include "core/tasks/error_trail.h"
#include "core/text/text_file.h"
#include "tests/support/test_program.h"
#include "tests/support/turned_encoding.h"

namespace corvane {
namespace {

const turned_encoding turned;

TEST(DataEncoding, LinesAreWrittenAndReadInIt) {
    memory_file_system files;
    files.encoding = &turned;
    line_writer writer(files, "/f");
    writer.line("plain");
    writer.line("照片 é");
    writer.number(7);
    ASSERT_TRUE(writer.finish());
    const std::string bytes = "plain\r\n" + turned_encoding::of("照片 é") + "\r\n 7 \r\n";
    EXPECT_EQ(files.content_of("/f"), bytes);
    line_reader reader(files, "/f");
    std::string_view line;
    for (const char* expected : {"plain", "照片 é", " 7 "}) {
        ASSERT_TRUE(reader.next(line));
        EXPECT_EQ(line, expected);
    }
    EXPECT_FALSE(reader.next(line));
    // Places are those of the file.
    EXPECT_EQ(reader.position(), static_cast<std::int64_t>(bytes.size()));
}

TEST(DataEncoding, ALastLineWithoutAnEndIsReadInItToo) {
    memory_file_system files;
    files.encoding = &turned;
    files.add_file("/f", "a\n" + turned_encoding::of("乙"));
    line_reader reader(files, "/f");
    std::string_view line;
    ASSERT_TRUE(reader.next(line) && reader.next(line));
    EXPECT_EQ(line, "乙");
}

TEST(DataEncoding, AWriterOfSomethingElseWritesWhatItIsGiven) {
    memory_file_system files;
    files.encoding = &turned;
    line_writer writer(files.replace_file("/f"));
    writer.line("照片");
    ASSERT_TRUE(writer.finish());
    EXPECT_EQ(files.content_of("/f"), "照片\r\n");
}

TEST(DataEncoding, AWholeRunIsStoredAndReadBackInIt) {
    test_program p;
    p.files.encoding = &turned;
    p.add_used_folder();
    p.files.add_file("/d/甲", "same");
    p.files.add_file("/d/乙", "same");
    p.compare({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/文件清单.txt"), turned_encoding::of("/d/乙\r\n/d/甲\r\n"));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt").find("/d/甲"), std::string::npos);
    p.form.run("Picture4_Click");
    ASSERT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.form.ListView1.cell(1, 3), "/d/乙");
    EXPECT_EQ(p.form.ListView1.cell(1, 4), "/d/甲");
}

TEST(DataEncoding, TheErrorTrailAndTheErrorListStandInIt) {
    test_program p;
    p.files.encoding = &turned;
    p.state.error_trail_on = -1;
    note_in_trail(p.form, "/d/甲");
    EXPECT_EQ(p.files.content_of("/prog/err_rec.txt"), turned_encoding::of("/d/甲\r\n"));
    p.state.error_trail_on = 0;
    p.files.add_file("/d/f", "1");
    p.state.scan_archives = 1;
    p.search({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/err.txt"), turned_encoding::of("压缩包错误清单\r\n"));
}

TEST(DataEncoding, APageSaysItselfThatItIsUtf8) {
    test_program p;
    p.files.encoding = &turned;
    p.add_used_folder();
    p.files.add_file("/d/甲", "same");
    p.files.add_file("/d/乙", "same");
    p.compare({"/d"});
    p.form.run("报告网页_M");
    EXPECT_NE(p.files.content_of("/prog/相同文件报告.html").find("甲"), std::string::npos);
}

}  // namespace
}  // namespace corvane
