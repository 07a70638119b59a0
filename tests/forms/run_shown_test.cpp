// What the main window tells of a running task and of a result: the line above the bar, the page while files
// are searched, the share in the title, the summary and the line above the list.
#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "core/tasks/progress.h"
#include "forms/colours.h"
#include "forms/elided_label.h"
#include "forms/main_window.h"
#include "forms/start_page.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct run_shown : forms_program {
    elided_label* line(const char* name) { return static_cast<elided_label*>(widget(name)); }
    // The page of the three steps, which has no name of its own.
    QWidget* page() {
        for (QWidget* part : windows.main().findChildren<QWidget*>())
            if (dynamic_cast<start_page*>(part) != nullptr) return part;
        return nullptr;
    }
    void search(std::int32_t found) {
        lock_tasks(form);
        form.panel(7, "文件搜索");
        form.state.walk_count = found;
        windows.sync();
    }
    void compare(int percent) {
        lock_tasks(form);
        form.state.file_len.resize(0);
        for (int i = 0; i < 100; ++i) form.state.file_len.push_back(1'000'000);
        form.state.file_count = 100;
        offer_cancel(form, "查相同文件");
        form.pic_gressbar1.set_colours(255, 0xC080FF, 0xAAF0F0);
        form.pic_gressbar1.set_scale(100);
        form.pic_gressbar1.draw(percent + 1);
        windows.sync();
    }
};

TEST(run_shown, a_search_shows_its_count_in_place_of_the_steps) {
    run_shown shown;
    int& tasks = shown.count_runs("Picture1_Click");
    const QImage before = shown.page()->grab().toImage();
    shown.search(12'480);
    ASSERT_TRUE(shown.line("run_words")->isVisible());
    EXPECT_TRUE(shown.line("run_words")->text().startsWith(QStringLiteral("已找到 12,480 个文件")));
    EXPECT_NE(shown.page()->grab().toImage(), before);
    // Where a step was there is none to click.
    for (int y = 0; y < shown.page()->height(); y += 20)
        QTest::mouseClick(shown.page(), Qt::LeftButton, {}, QPoint(shown.page()->width() / 2, y));
    EXPECT_EQ(tasks, 0);
    unlock_tasks(shown.form);
    shown.windows.sync();
    shown.settle();
    EXPECT_FALSE(shown.line("run_words")->isVisible());
    EXPECT_EQ(shown.page()->grab().toImage(), before) << "the steps are back";
}

TEST(run_shown, the_bar_of_a_search_moves) {
    run_shown shown;
    shown.search(1);
    const QImage first = shown.page()->grab().toImage();
    QTest::qWait(60);
    shown.windows.sync();
    EXPECT_NE(shown.page()->grab().toImage(), first);
}

TEST(run_shown, a_comparison_has_a_line_of_its_own_and_a_share_in_the_title) {
    run_shown shown;
    const QString title = shown.windows.main().windowTitle();
    shown.compare(62);
    ASSERT_TRUE(shown.line("run_words")->isVisible());
    EXPECT_EQ(shown.line("run_words")->text(), QStringLiteral("比对 62%, 59.1 MB / 95.4 MB"));
    EXPECT_EQ(shown.windows.main().windowTitle(), QStringLiteral("62%  ") + title);
    EXPECT_EQ(shown.form.StatusBar1.panel(5), "") << "the panels are the task's own";
    shown.form.Command28.visible = false;
    shown.form.pic_gressbar1.visible = false;
    unlock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_EQ(shown.windows.main().windowTitle(), title);
}

TEST(run_shown, the_name_of_the_file_has_the_whole_row_from_the_first_moment) {
    run_shown shown;
    shown.form.Label4.visible = true;
    shown.form.Label4.caption = "/home/li/照片/2023/夏天/海边_第一天_上午.jpg";
    shown.compare(3);
    shown.settle();
    EXPECT_EQ(shown.line("Label4")->text(), QStringLiteral("/home/li/照片/2023/夏天/海边_第一天_上午.jpg"));
    EXPECT_FALSE(shown.line("Label4")->is_cut());
}

TEST(run_shown, what_is_not_done_yet_is_no_alarm_in_either_palette) {
    for (const QPalette& palette : {light_palette(), dark_palette()}) {
        const QColor window = palette.color(QPalette::Window);
        for (const QColor stated : {QColor(255, 0, 0), QColor(0xC0, 0xC0, 0xC0), QColor(0, 0, 128)}) {
            const QColor shown = muted_bar(stated, palette);
            const auto apart = [](const QColor& a, const QColor& b) {
                return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                       std::abs(a.blue() - b.blue());
            };
            EXPECT_LT(apart(shown, window) * 3, apart(shown, stated));
        }
    }
}

TEST(run_shown, the_page_offers_the_result_of_the_last_run) {
    run_shown shown;
    int& runs = shown.count_runs("Picture4_Click");
    for (const char* step : {"Picture1_Click", "Picture2_Click", "Picture3_Click"}) shown.count_runs(step);
    const auto click_below = [&shown] {
        for (int y = shown.page()->height() - 1; y > 0; y -= 8)
            QTest::mouseClick(shown.page(), Qt::LeftButton, {}, QPoint(shown.page()->width() / 2, y));
    };
    click_below();
    EXPECT_EQ(runs, 0) << "there is none";
    shown.form.state.stored_pairs = 1326;
    shown.windows.sync();
    click_below();
    EXPECT_GT(runs, 0);
}

TEST(run_shown, the_start_reads_how_many_pairs_are_stored) {
    run_shown shown;
    shown.add_used_folder();
    shown.files.add_file("/prog/相同文件.txt", "内容相同文件清单            \r\n 1326 \r\n");
    ASSERT_TRUE(shown.windows.start());
    EXPECT_EQ(shown.form.state.stored_pairs, 1326);
    EXPECT_FALSE(shown.form.ListView1.visible) << "offered, not loaded";
}

TEST(run_shown, the_line_above_the_list_says_how_to_mark_and_what_is_marked) {
    run_shown shown;
    shown.show_pairs(5);
    elided_label* hint = shown.line("list_hint");
    ASSERT_TRUE(hint->isVisible());
    EXPECT_LT(hint->mapToGlobal(QPoint()).y(), shown.widget("ListView1")->mapToGlobal(QPoint()).y());
    EXPECT_TRUE(hint->text().startsWith(QStringLiteral("双击或按空格标记")));
    shown.form.ListView1.set_colour(2, 4, cell_colour::mark_red);
    shown.windows.sync();
    EXPECT_EQ(hint->text(), QStringLiteral("标记 1 个, 15.5 KB, 5 组"));
    shown.form.state.cancelled_at = 9482;
    shown.form.state.cancelled_of = 100'000;
    shown.windows.sync();
    EXPECT_TRUE(hint->text().startsWith(QStringLiteral("已取消, 9,482 / 100,000")));
    shown.form.state.list_mode = 1;
    shown.windows.sync();
    EXPECT_FALSE(hint->text().contains(QStringLiteral("已取消"))) << "of the comparison's result alone";
}

TEST(run_shown, a_line_that_is_cut_stands_in_its_tip) {
    run_shown shown;
    shown.show_pairs(5);
    shown.windows.main().resize(500, 400);
    shown.settle();
    elided_label* hint = shown.line("list_hint");
    ASSERT_TRUE(hint->is_cut());
    EXPECT_EQ(hint->toolTip(), hint->text());
}

TEST(run_shown, the_summary_stands_above_the_list_until_it_is_closed) {
    run_shown shown;
    shown.form.state.summary_words = "找到 3 个多余的文件, 分 2 组; 每组留一个, 可以释放 5.7 MB。\r\n第二行";
    shown.show_pairs(5);
    QWidget* summary = shown.widget("result_summary");
    ASSERT_TRUE(summary->isVisible());
    EXPECT_EQ(shown.line("result_summary_2")->text(), QStringLiteral("第二行"));
    shown.form.state.list_mode = 3;
    shown.windows.sync();
    EXPECT_FALSE(summary->isVisible()) << "it tells of another view";
    shown.form.state.list_mode = 0;
    shown.windows.sync();
    const int height = shown.widget("ListView1")->height();
    QTest::mouseClick(shown.widget("result_summary_Close"), Qt::LeftButton);
    shown.settle();
    EXPECT_FALSE(summary->isVisible());
    EXPECT_GT(shown.widget("ListView1")->height(), height) << "the list has its room";
    EXPECT_EQ(shown.form.state.summary_words, "");
}

}  // namespace
}  // namespace corvane
