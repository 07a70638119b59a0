// The line above the list, and why a list without rows has none.
#include "browser/list_hint.h"

#include <gtest/gtest.h>

#include "tests/browser/stored_rows.h"

namespace corvane {
namespace {

struct shown_rows {
    shown_rows() {
        for (const char* path : {"/d/a.jpg", "/d/b.jpg", "/d/c.txt", "/d/d.txt"})
            p.files.add_file(path, "12345");
        store(p, {{5, "/d/a.jpg", "/d/b.jpg"}, {5, "/d/c.txt", "/d/d.txt"}});
        p.form.run("Picture4_Click");
    }
    void sort_by_first_path() {
        p.form.list_event = {};
        p.form.list_event.column = 3;
        p.form.run("ListView1_ColumnClick");
    }
    void filter(const char* types) {
        p.screen.texts.push_back(types);
        p.form.run("only_disp");
    }
    std::string hint(const std::string& marked = "") { return list_hint(p.form, marked); }
    test_program p;
};

TEST(list_hint, says_how_to_mark_and_then_what_is_marked) {
    shown_rows shown;
    EXPECT_NE(shown.hint().find("双击"), std::string::npos);
    EXPECT_EQ(shown.hint("标记 1 个, 5 字节, 2 组"), "标记 1 个, 5 字节, 2 组");
}

TEST(list_hint, each_view_has_its_own) {
    shown_rows shown;
    const std::string pairs = shown.hint();
    shown.p.state.list_mode = 1;
    EXPECT_NE(shown.hint().find("空目录"), std::string::npos);
    EXPECT_NE(shown.hint("标记 1 个, 5 字节, 2 组").find("空目录"), std::string::npos)
        << "what was marked in the view of copies is not marked here";
    shown.p.form.ListView1.set_colour(1, 3, cell_colour::mark_red);
    EXPECT_EQ(shown.hint(), "标记 1 个");
    shown.p.form.ListView1.set_colour(1, 3, cell_colour::colour_text);
    shown.p.state.list_mode = 3;
    EXPECT_NE(shown.hint().find("不能标记"), std::string::npos);
    EXPECT_NE(shown.hint(), pairs);
}

TEST(list_hint, a_sort_tells_what_it_has_cleared_until_something_is_marked_again) {
    shown_rows shown;
    list_view& list = shown.p.form.ListView1;
    list.set_colour(1, 3, cell_colour::mark_red);
    list.set_colour(2, 4, cell_colour::mark_red);
    shown.sort_by_first_path();
    EXPECT_EQ(list.marked_cells(), 1) << "the other column keeps its mark";
    EXPECT_EQ(shown.hint("标记 1 个"), "排序 取消了 1 个标记, Ctrl+Z 恢复。");
    list.set_colour(1, 4, cell_colour::mark_red);
    EXPECT_EQ(shown.hint("标记 2 个"), "标记 2 个");
}

TEST(list_hint, a_sort_without_marks_tells_nothing) {
    shown_rows shown;
    const std::string before = shown.hint();
    shown.sort_by_first_path();
    EXPECT_EQ(shown.hint(), before);
}

TEST(list_hint, a_filter_tells_what_it_shows_and_what_it_has_cleared) {
    shown_rows shown;
    shown.filter("*.jpg");
    ASSERT_EQ(shown.p.form.ListView1.row_count(), 1);
    EXPECT_EQ(shown.hint(), "仅显示 *.jpg: 1 / 2 对, [刷新]显示全部");
    shown.p.form.ListView1.set_colour(1, 4, cell_colour::mark_red);
    EXPECT_EQ(shown.hint("标记 1 个"), "仅显示 *.jpg: 1 / 2 对, [刷新]显示全部; 标记 1 个");
    shown.filter("*.txt");
    EXPECT_EQ(shown.hint(), "筛选 取消了 1 个标记, Ctrl+Z 恢复。");
    shown.p.form.run("result_refresh");
    EXPECT_EQ(shown.hint().find("仅显示"), std::string::npos) << "all rows again";
}

TEST(list_hint, an_empty_filtered_list_says_why) {
    shown_rows shown;
    EXPECT_EQ(empty_list_words(shown.p.form), "");
    shown.filter("*.mp3");
    ASSERT_EQ(shown.p.form.ListView1.row_count(), 0);
    EXPECT_EQ(empty_list_words(shown.p.form),
              "仅显示 *.mp3: 2 对里一对也没有。右键点列表, 选[刷新]显示全部。");
    EXPECT_EQ(shown.hint(), empty_list_words(shown.p.form));
}

TEST(list_hint, the_words_of_one_view_do_not_stay_in_another) {
    shown_rows shown;
    shown.filter("*.mp3");
    shown.p.form.ListView1.clear_rows();  // another view begins
    EXPECT_EQ(empty_list_words(shown.p.form), "");
}

}  // namespace
}  // namespace corvane
