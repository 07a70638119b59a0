#include "core/tasks/error_trail.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(RunRecords, ARunCountsByItsShareInTheTotalSize) {
    test_program p;
    p.files.add_file("/prog/run_time_rem.txt", "1000,10\r\n3000,90\r\n");
    read_run_records(p.form);
    EXPECT_NEAR(p.state.run_rate, 0.025, 1e-12);
    EXPECT_EQ(p.state.run_line_count, 2);
}

TEST(RunRecords, LinesWithoutSecondsDoNotCount) {
    test_program p;
    p.files.add_file("/prog/run_time_rem.txt", "1000,0\r\nrubbish\r\n500,5\r\n");
    read_run_records(p.form);
    EXPECT_NEAR(p.state.run_rate, 0.01, 1e-12);
}

TEST(RunRecords, TheFileStaysAtFiftyLines) {
    test_program p;
    std::string lines;
    for (int i = 1; i <= 50; ++i) lines.append(std::to_string(i)).append(",1\r\n");
    p.files.add_file("/prog/run_time_rem.txt", lines);
    read_run_records(p.form);
    write_run_record(p.form, 777, 3);
    const std::vector<std::string> kept = p.stored_lines("run_time_rem.txt");
    ASSERT_EQ(kept.size(), 50u);
    EXPECT_EQ(kept.front(), "2,1");
    EXPECT_EQ(kept.back(), "777,3");
}

TEST(RunRecords, OfEarlierRunsAreKeptByATaskThatHasNotReadThem) {
    test_program p;
    p.files.add_file("/prog/run_time_rem.txt", "1000,10\r\n3000,90\r\n");
    write_run_record(p.form, 777, 3);
    EXPECT_EQ(p.stored_lines("run_time_rem.txt"), (std::vector<std::string>{"1000,10", "3000,90", "777,3"}));
}

TEST(RunRecords, ARunOfZeroSecondsAddsNoLine) {
    test_program p;
    read_run_records(p.form);
    write_run_record(p.form, 777, 0);
    EXPECT_TRUE(p.stored_lines("run_time_rem.txt").empty());
}

TEST(ErrorTrail, NamesTheFileOnlyWhileItIsOn) {
    test_program p;
    note_in_trail(p.form, "/d/a");
    EXPECT_FALSE(p.files.has("/prog/err_rec.txt"));
    p.state.error_trail_on = -1;
    note_in_trail(p.form, "/d/a");
    note_in_trail(p.form, "/d/b");
    EXPECT_EQ(p.files.content_of("/prog/err_rec.txt"), "/d/b\r\n");
}

TEST(AvoidList, AMissingFileLeavesTheListAsItIs) {
    test_program p;
    p.files.add_file("/prog/avoid.txt", "/d/a\r\n/d/b\r\n");
    read_avoid_list(p.form);
    EXPECT_EQ(p.state.avoid_count, 2);
    p.files.erase("/prog/avoid.txt");
    read_avoid_list(p.form);
    EXPECT_EQ(p.state.avoid_count, 2);
}

}  // namespace
}  // namespace corvane
