// Marks survive a restart, and fall where they fit no longer.
#include "browser/mark_store.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

constexpr char store[] =
    "内容相同文件清单            \r\n 2 \r\n 3 \r\n/d/a\r\n/d/b\r\n 4 \r\n/e/a\r\n/e/b\r\n";

// A program that has just been started over what another one has left.
struct restarted : deleting {
    explicit restarted(const std::string& marks, const std::string& result = store) {
        for (const char* path : {"/d/a", "/d/b"}) files.add_file(path, "xxx");
        for (const char* path : {"/e/a", "/e/b"}) files.add_file(path, "xxxx");
        files.add_file(program_dir + "相同文件.txt", result);
        if (!marks.empty()) files.add_file(program_dir + "标记.txt", marks);
    }
    void open() { form.run("Picture4_Click"); }
};

// As the first run leaves it: row 1 column 4, row 2 column 3.
std::string stored_marks() {
    restarted p("");
    p.open();
    p.double_click(1, 4);
    p.double_click(2, 3);
    p.corvane.close();
    return p.files.content_of("/prog/标记.txt");
}

TEST(StoredMarks, AreTakenUpWithTheFirstViewAfterAStart) {
    const std::string marks = stored_marks();
    EXPECT_NE(marks.find(" 4 \r\n 3 \r\n/d/a\r\n/d/b\r\n"), std::string::npos) << marks;
    restarted p(marks);
    p.open();
    EXPECT_EQ(p.colours(3), (colour_row{black, red}));
    EXPECT_EQ(p.colours(4), (colour_row{red, black}));
    EXPECT_TRUE(p.screen.messages.empty());
    // Once: a refresh drops marks as it always has.
    p.form.run("result_refresh");
    EXPECT_EQ(p.list().marked_cells(), 0);
}

TEST(StoredMarks, GoWhenNothingIsMarkedAndStayWhileTheListIsNotShown) {
    const std::string marks = stored_marks();
    restarted looked_at_nothing(marks);
    looked_at_nothing.corvane.close();
    EXPECT_EQ(looked_at_nothing.files.content_of("/prog/标记.txt"), marks);
    restarted cleared(marks);
    cleared.open();
    cleared.form.run("clear_marks");
    cleared.corvane.close();
    EXPECT_FALSE(cleared.files.has("/prog/标记.txt"));
}

TEST(StoredMarks, FallWithTheStoreThatTheyBelongTo) {
    const std::string marks = stored_marks();
    restarted p(marks, std::string(store) + " 3 \r\n/d/a\r\n/d/c\r\n");
    p.open();
    EXPECT_EQ(p.list().marked_cells(), 0);
    restarted compared(marks);
    compared.state.same_fresh_flag = -1;  // a comparison has just written it
    compared.open();
    EXPECT_EQ(compared.list().marked_cells(), 0);
}

TEST(StoredMarks, OfARowThatHasGoneFallAlone) {
    restarted p(stored_marks());
    p.files.erase("/d/a");
    p.open();
    EXPECT_EQ(p.cells(3), texts{"/e/a"});
    EXPECT_EQ(p.colours(3), colour_row{red});
}

TEST(StoredMarks, OnAProtectedPathAreNotTaken) {
    restarted p(stored_marks());
    p.state.protected_folders = {"/d/"};
    ++p.state.protection_revision;
    p.open();
    EXPECT_EQ(p.colours(4), (colour_row{black, black}));
    EXPECT_EQ(p.colours(3), (colour_row{black, red}));
}

TEST(StoredMarks, ACutFileIsToldAndWhatIsWholeIsTaken) {
    std::string marks = stored_marks();
    marks.resize(marks.size() - 8);
    restarted p(marks);
    p.open();
    EXPECT_EQ(p.last_message(), "/prog/标记.txt\r\n标记文件不完整,只取了前 1 个。");
    EXPECT_EQ(p.list().marked_cells(), 1);
}

TEST(StoredMarks, AnotherVersionIsToldLeftAloneAndNotLost) {
    const std::string other = "Corvane marks 2\r\nsomething\r\n";
    restarted p(other);
    p.open();
    EXPECT_EQ(p.last_message(), "/prog/标记.txt\r\n不认识的标记文件,没有采用。");
    p.corvane.close();
    EXPECT_EQ(p.files.content_of("/prog/标记.txt"), other) << "nothing is marked";
    restarted marked(other);
    marked.open();
    marked.double_click(1, 4);
    marked.corvane.close();
    EXPECT_EQ(marked.files.content_of("/prog/标记.旧.txt"), other);
    EXPECT_NE(marked.files.content_of("/prog/标记.txt").find("Corvane marks 1"), std::string::npos);
}

TEST(StoredMarks, AHostileFileMarksNeitherAllCopiesNorGrayCellsNorOtherRows) {
    std::string marks = stored_marks();
    const std::size_t count = marks.find(" 2 \r\n");
    ASSERT_NE(count, std::string::npos);
    marks =
        marks.substr(0, count) +
        " 9 \r\n 3 \r\n 3 \r\n/d/a\r\n/d/b\r\n 4 \r\n 3 \r\n/d/a\r\n/d/b\r\n 1 \r\n 3 \r\n/d/a\r\n/d/b\r\n";
    restarted p(marks);
    p.open();
    EXPECT_EQ(p.list().marked_cells(), 1) << "one of two copies";
    EXPECT_EQ(p.last_message(), "/prog/标记.txt\r\n标记文件不完整,只取了前 2 个。");
    for (const char* text : {"", "Corvane marks 1", "Corvane marks 1\r\n", "\xff\xfe\n\n\n"}) {
        restarted bad(text);
        bad.files.add_file("/prog/标记.txt", text);
        bad.open();
        EXPECT_EQ(bad.list().marked_cells(), 0) << text;
        EXPECT_EQ(bad.list().row_count(), 2) << text;
    }
}

TEST(StoredMarks, AreNotWrittenInTheMiddleOfATask) {
    restarted p("");
    p.open();
    p.double_click(1, 4);
    p.screen.acts[p.screen.yields + 2] = [&] { p.corvane.close(); };
    p.run_recycle();
    EXPECT_FALSE(p.files.has("/prog/标记.txt"));
}

TEST(StoredMarks, WaitUntilTheRowsAreSortedAndStayWhereTheProgramClosesMeanwhile) {
    const std::string marks = stored_marks();
    for (int moment = 1; moment < 40; ++moment) {
        restarted p(marks);
        p.state.remembered.set("sort.0", "2");
        p.screen.acts[p.screen.yields + moment] = [&] { p.corvane.close(); };
        p.open();
        p.corvane.close();
        EXPECT_EQ(p.files.content_of("/prog/标记.txt"), marks) << moment;
    }
}

TEST(StoredMarks, OfAViewThatIsNoMoreDoNotComeBack) {
    for (const char* handler : {"picture2_Click", "search_check_m"}) {
        restarted p(stored_marks());
        p.select({"/d", "/e"});
        p.open();
        ASSERT_EQ(p.list().marked_cells(), 2);
        p.form.run(handler);
        p.corvane.close();
        EXPECT_FALSE(p.files.has("/prog/标记.txt")) << handler;
    }
}

TEST(StoredMarks, OfAnotherVersionStayWhenTheViewIsNoMore) {
    const std::string other = "Corvane marks 2\r\nsomething\r\n";
    restarted p(other);
    p.select({"/d", "/e"});
    p.open();
    p.form.run("picture2_Click");
    p.corvane.close();
    EXPECT_EQ(p.files.content_of("/prog/标记.txt"), other);
}

TEST(StoredMarks, AreOnTheDiskBeforeTheMachineGoesDown) {
    const auto goes_down = [](restarted& p) {
        for (const auto& each : p.desktop.calls)
            if (each.find("power_off") != std::string::npos) return true;
        return false;
    };
    for (const bool fails : {false, true}) {
        restarted p("");
        p.open();
        p.double_click(1, 4);
        p.state.shut_action = 4;
        if (fails) p.files.write_failure_path = "/prog/标记.txt";
        p.form.run("shout_close");
        EXPECT_EQ(goes_down(p), !fails);
        EXPECT_EQ(p.files.has("/prog/标记.txt"), !fails);
    }
}

TEST(StoredMarks, AFailureToWriteIsTold) {
    restarted p("");
    p.open();
    p.double_click(1, 4);
    p.files.write_failure_path = "/prog/标记.txt";
    p.corvane.close();
    bool told = false;
    for (const message& each : p.screen.messages)
        told |= each.text == "/prog/标记.txt\r\ndisk full\r\n标记没有保存。";
    EXPECT_TRUE(told);
}

}  // namespace
}  // namespace corvane
