// Places of windows: stored ones are taken, moves are followed, the close keeps them; the frame of the last
// failure.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include "forms/directory_window.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"
#include "tests/support/settings_file.h"

namespace corvane {
namespace {

struct placed : forms_program {
    void open_directories() {
        form.run("Picture1_Click");
        windows.sync();
        settle();
    }
    // Lets the follow timer see the move and the rest after it.
    void follow() {
        form.run("Timer2_Timer");
        windows.sync();
        settle();
    }
};

TEST(place, the_stored_place_of_the_main_form_is_taken) {
    placed shown;
    std::vector<std::string> lines = fresh_settings_lines();
    lines[1] = " 450 ";
    lines[2] = " 300 ";
    lines[3] = " 11250 ";
    lines[4] = " 8250 ";
    shown.add_used_folder(lines);
    ASSERT_TRUE(shown.windows.start());
    shown.settle();
    EXPECT_EQ(shown.windows.main().pos(), QPoint(30, 20));
    EXPECT_EQ(shown.windows.main().size(), QSize(750, 550));
}

TEST(place, a_place_without_a_size_or_off_the_screen_leaves_the_form_where_it_is) {
    for (const auto& [left, width] : {std::pair(" 450 ", " 0 "), std::pair("-32000 ", " 9000 ")}) {
        placed shown;
        const QPoint before = shown.windows.main().pos();
        std::vector<std::string> lines = fresh_settings_lines();
        lines[1] = left;
        lines[3] = width;
        lines[4] = " 8250 ";
        shown.add_used_folder(lines);
        ASSERT_TRUE(shown.windows.start());
        shown.settle();
        EXPECT_EQ(shown.windows.main().pos(), before);
    }
}

TEST(place, the_open_child_window_follows_the_main_form) {
    placed shown;
    shown.open_directories();
    directory_window& window = shown.windows.directory();
    window.move(300, 200);
    shown.settle();
    QTest::qWait(260);
    const QPoint before = window.pos();
    shown.windows.main().move(shown.windows.main().pos() + QPoint(-20, 14));
    shown.settle();
    shown.follow();
    EXPECT_EQ(window.pos(), before + QPoint(-20, 14));
    // Wider by 40: the window keeps its distance to the right edge.
    shown.windows.main().resize(shown.windows.main().size() + QSize(40, 0));
    shown.settle();
    shown.follow();
    EXPECT_EQ(window.pos(), before + QPoint(20, 14));
}

TEST(place, the_timer_of_the_front_end_follows_by_itself) {
    placed shown;
    shown.open_directories();
    directory_window& window = shown.windows.directory();
    const QPoint before = window.pos();
    shown.windows.main().move(shown.windows.main().pos() + QPoint(10, 10));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.pos() == before + QPoint(10, 10); }, 3000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.form.Timer2.interval == 100; }, 4000))
        << "rest after the move";
}

TEST(place, a_child_window_opens_again_where_it_was_left) {
    placed shown;
    shown.open_directories();
    directory_window& window = shown.windows.directory();
    window.move(321, 123);
    window.resize(700, 480);
    shown.settle();
    QTest::qWait(260);
    window.close();
    shown.settle();
    shown.open_directories();
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(window.pos(), QPoint(321, 123));
    EXPECT_EQ(window.size(), QSize(700, 480));
}

TEST(place, the_close_keeps_the_places_of_both_windows) {
    placed shown;
    shown.add_used_folder(fresh_settings_lines());
    ASSERT_TRUE(shown.windows.start());
    shown.open_directories();
    shown.windows.main().move(12, 34);
    shown.windows.main().resize(1000, 640);
    shown.windows.directory().move(200, 210);
    shown.windows.directory().resize(700, 500);
    shown.settle();
    QTest::qWait(260);
    shown.windows.close();
    const run_state& state = shown.form.state;
    EXPECT_EQ(state.main_left, 12 * 15);
    EXPECT_EQ(state.main_top, 34 * 15);
    EXPECT_EQ(state.main_width, 1000 * 15);
    EXPECT_EQ(state.main_height, 640 * 15);
    EXPECT_EQ(state.dirpos_width, 700 * 15);
    EXPECT_EQ(state.dirpos_height, 500 * 15);
}

TEST(error_frame, shows_the_file_and_puts_it_on_the_avoid_list) {
    placed shown;
    shown.files.add_file("/prog/err_rec.txt", "/home/li/坏文件.dat\r\n");
    shown.form.run("debug_err_anly");
    shown.windows.sync();
    QWidget* frame = shown.widget("Frame_err");
    ASSERT_TRUE(frame->isVisible());
    EXPECT_EQ(static_cast<QLineEdit*>(shown.widget("txt_disp_err_file"))->text(),
              QStringLiteral("/home/li/坏文件.dat"));
    EXPECT_TRUE(static_cast<QCheckBox*>(shown.widget("Check1"))->isChecked());
    QTest::mouseClick(shown.widget("Command47"), Qt::LeftButton);
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(shown.files.content_of("/prog/avoid.txt"), "/home/li/坏文件.dat\r\n");
}

TEST(error_frame, an_unchecked_box_only_closes) {
    placed shown;
    shown.files.add_file("/prog/err_rec.txt", "/x\r\n");
    shown.form.run("debug_err_anly");
    shown.windows.sync();
    QTest::keyClick(shown.widget("Check1"), Qt::Key_Space);
    EXPECT_EQ(shown.form.Check1.value, 0);
    QTest::mouseClick(shown.widget("Command47"), Qt::LeftButton);
    EXPECT_FALSE(shown.files.has("/prog/avoid.txt"));
}

TEST(number_frame, opens_by_its_menu_and_closes_by_button_double_click_and_escape) {
    placed shown;
    QWidget* frame = shown.widget("Frame1");
    const auto open = [&] {
        shown.action("按序号删除_m")->trigger();
        shown.settle();
        EXPECT_TRUE(frame->isVisible());
    };
    open();
    EXPECT_FALSE(shown.widget("Command7")->isEnabled());
    QTest::mouseClick(shown.widget("Command26"), Qt::LeftButton);
    EXPECT_FALSE(frame->isVisible());
    open();
    QTest::mouseDClick(frame, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_FALSE(frame->isVisible());
    open();
    QTest::keyClick(frame, Qt::Key_Escape);
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(shown.form.StatusBar1.panel(7), "帮助");
}

TEST(menu, the_trail_carries_a_check_mark) {
    placed shown;
    QAction* trail = shown.action("debug_err");
    ASSERT_NE(trail, nullptr);
    trail->trigger();
    EXPECT_TRUE(trail->isChecked());
    EXPECT_EQ(shown.form.state.error_trail_on, -1);
    trail->trigger();
    EXPECT_FALSE(trail->isChecked());
    EXPECT_EQ(shown.form.state.error_trail_on, 0);
}

}  // namespace
}  // namespace corvane
