// The main window: task pictures, menus, panels, the colour bar, locked states.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QTest>

#include "browser/list_views.h"
#include "core/model/task_table.h"
#include "core/tasks/progress.h"
#include "forms/about_window.h"
#include "forms/main_window.h"
#include "forms/panel_bar.h"
#include "forms/task_button.h"
#include "forms/task_column.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

TEST(main_window, a_click_on_each_picture_runs_its_task) {
    forms_program shown;
    for (const task_entry& task : task_table()) {
        if (!*task.picture) continue;
        SCOPED_TRACE(task.picture);
        int& runs = shown.count_runs(std::string(task.picture) + "_Click");
        shown.form.find(task.picture)->enabled = true;
        shown.windows.sync();
        QTest::mouseClick(shown.widget(task.picture), Qt::LeftButton);
        EXPECT_EQ(runs, 1);
    }
}

TEST(main_window, a_picture_answers_to_the_keyboard) {
    forms_program shown;
    int& runs = shown.count_runs("Picture2_Click");
    shown.widget("Picture2")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(shown.widget("Picture2"), Qt::Key_Return);
    QTest::keyClick(shown.widget("Picture2"), Qt::Key_Space);
    EXPECT_EQ(runs, 2);
}

TEST(main_window, a_disabled_picture_does_nothing) {
    forms_program shown;
    int& runs = shown.count_runs("Picture3_Click");
    shown.form.pictures[3]->enabled = false;
    shown.windows.sync();
    EXPECT_FALSE(shown.widget("Picture3")->isEnabled());
    QTest::mouseClick(shown.widget("Picture3"), Qt::LeftButton);
    EXPECT_EQ(runs, 0);
}

TEST(main_window, pictures_show_their_labels) {
    forms_program shown;
    const auto* picture = static_cast<QAbstractButton*>(shown.widget("Picture3"));
    EXPECT_EQ(picture->text(), QStringLiteral("查相同文件"));
    EXPECT_EQ(picture->toolTip(), QString()) << "the tip box shows it";
    shown.form.labels[2]->caption = "另一个名字";
    shown.windows.sync();
    EXPECT_EQ(picture->text(), QStringLiteral("另一个名字"));
}

TEST(main_window, the_next_step_follows_what_is_there_already) {
    forms_program shown;
    run_state& state = shown.form.state;
    EXPECT_EQ(next_step(shown.form), "Picture1");
    state.selected_dir_count = 1;
    EXPECT_EQ(next_step(shown.form), "Picture2");
    state.file_count = 5;
    state.file_list_loaded = -1;
    EXPECT_EQ(next_step(shown.form), "Picture3");
}

TEST(main_window, deleting_is_the_next_step_only_when_something_is_marked) {
    forms_program shown;
    shown.show_pairs(2);
    const auto accents = [&shown](const char* picture) {
        shown.windows.sync();
        return static_cast<task_button*>(shown.widget(picture))->is_next_step();
    };
    EXPECT_EQ(next_step(shown.form), "") << "the user marks first";
    EXPECT_FALSE(accents("Picture5"));
    shown.form.ListView1.set_colour(2, 4, cell_colour::mark_red);
    EXPECT_EQ(next_step(shown.form), "Picture5");
    EXPECT_TRUE(accents("Picture5"));
    shown.form.ListView1.set_text(2, 4, "");
    EXPECT_EQ(next_step(shown.form), "") << "what was marked has gone";
}

TEST(main_window, the_next_step_of_a_view_is_what_it_leads_to) {
    forms_program shown;
    shown.show_pairs(2);
    shown.form.ListView1.set_colour(2, 4, cell_colour::mark_red);
    shown.form.state.list_mode = list_modes::empty_directories;
    EXPECT_EQ(next_step(shown.form), "Picture8");
    shown.form.ListView1.set_colour(2, 4, cell_colour::colour_text);
    EXPECT_EQ(next_step(shown.form), "");
    shown.form.state.list_mode = list_modes::different_files;
    EXPECT_EQ(next_step(shown.form), "Picture4");
    shown.form.state.list_mode = list_modes::same_file_names;
    EXPECT_EQ(next_step(shown.form), "Picture3");
    // Directories of one name say nothing about the list of files.
    shown.form.state.list_mode = list_modes::same_directory_names;
    EXPECT_EQ(next_step(shown.form), "Picture1");
}

TEST(main_window, a_right_click_on_the_side_list_reaches_its_handler_and_the_tip_says_so) {
    forms_program shown;
    shown.form.List1.add("/d/a   -1");
    shown.form.List1.visible = true;
    shown.windows.sync();
    auto* list = qobject_cast<QAbstractScrollArea*>(shown.widget("List1"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->toolTip(), QStringLiteral("右键存为文件temp.txt"));
    QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), list->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(list->viewport(), &click);
    EXPECT_EQ(shown.files.content_of(shown.form.data_path("temp.txt")), "/d/a   -1\r\n");
}

TEST(main_window, the_tip_below_the_title_and_the_about_box_name_the_program_folder) {
    forms_program shown;
    EXPECT_EQ(shown.windows.main().menuBar()->toolTip(), QStringLiteral("程序目录: /prog/"));
    EXPECT_EQ(shown.windows.main().toolTip(), QString()) << "it would stand over every part without a tip";
    shown.windows.act("关于_M");
    const auto* place = shown.widget("lblPlace", &shown.windows.about());
    ASSERT_NE(place, nullptr);
    EXPECT_EQ(static_cast<const QLabel*>(place)->text(), QStringLiteral("程序目录: /prog/"));
    EXPECT_TRUE(place->isVisible());
    EXPECT_EQ(place->toolTip(), QStringLiteral("程序目录: /prog/"));
}

TEST(main_window, a_long_program_folder_does_not_widen_the_about_box) {
    const std::string folder = "/" + std::string(400, 'p') + "/";
    memory_file_system files;
    recording_shell desktop;
    dated_interface screen;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    program corvane({files, desktop, desktop, screen, encodings}, folder);
    front_end windows(corvane, screen);
    windows.sync();
    forms_program usual;
    EXPECT_EQ(windows.about().minimumSizeHint().width(), usual.windows.about().minimumSizeHint().width());
}

TEST(main_window, a_menu_entry_without_a_handler_is_disabled) {
    forms_program shown;
    for (const char* name : {"对象目录_M", "目录搜索_M", "notes_m", "exit_sub"}) {
        QAction* entry = shown.action(name);
        ASSERT_TRUE(entry) << name;
        EXPECT_EQ(entry->isEnabled(), shown.form.has_handler(name)) << name;
    }
}

TEST(main_window, a_menu_entry_runs_its_handler) {
    forms_program shown;
    int& runs = shown.count_runs("prog_dir");
    shown.action("prog_dir")->trigger();
    EXPECT_EQ(runs, 1);
}

TEST(main_window, hidden_top_menus_are_not_in_the_bar) {
    forms_program shown;
    QStringList captions;
    for (const QAction* top : shown.windows.main().menuBar()->actions()) captions.append(top->text());
    EXPECT_TRUE(captions.contains(QStringLiteral("文件(&F)")));
    EXPECT_TRUE(captions.contains(QStringLiteral("帮助(&H)")));
    EXPECT_FALSE(captions.contains(QStringLiteral("显示选择")));
}

TEST(main_window, a_value_is_a_check_mark) {
    forms_program shown;
    shown.form.find("debug_err")->value = -1;
    shown.windows.sync();
    EXPECT_TRUE(shown.action("debug_err")->isChecked());
    shown.form.find("debug_err")->value = 0;
    shown.windows.sync();
    EXPECT_FALSE(shown.action("debug_err")->isChecked());
}

TEST(main_window, locked_tasks_are_dim_and_cannot_be_started_from_menus) {
    forms_program shown;
    lock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_TRUE(tasks_locked(shown.form));
    for (const char* picture : {"Picture1", "Picture2", "Picture3", "Picture4"})
        EXPECT_FALSE(shown.widget(picture)->isEnabled()) << picture;
    EXPECT_FALSE(shown.action("目录搜索_M")->isEnabled());
    EXPECT_FALSE(shown.action("文件操作_m")->isEnabled());
    EXPECT_TRUE(shown.action("exit_sub")->isEnabled());
    unlock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_TRUE(shown.widget("Picture2")->isEnabled());
    EXPECT_TRUE(shown.action("目录搜索_M")->isEnabled());
}

TEST(main_window, the_panels_show_their_texts_and_answer_to_a_click) {
    forms_program shown;
    int& runs = shown.count_runs("StatusBar1_PanelClick");
    for (int number = 1; number <= 7; ++number)
        shown.form.panel(number, "第" + std::to_string(number) + "格");
    shown.windows.sync();
    auto* bar = static_cast<panel_bar*>(shown.widget("StatusBar1"));
    for (int number = 1; number <= 7; ++number) {
        EXPECT_EQ(bar->panel_text(number), QStringLiteral("第%1格").arg(number));
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->panel_place(number).center());
    }
    EXPECT_EQ(runs, 7);
}

TEST(main_window, the_colour_bar_fills_from_the_left) {
    forms_program shown;
    colour_bar& bar = shown.form.pic_gressbar1;
    bar.set_colours(0xC0C0C0, 0x400040, 0x0000FF);
    bar.set_scale(100);
    bar.draw(50);
    bar.visible = true;
    shown.windows.sync();
    shown.settle();
    QWidget* widget = shown.widget("pic_gressbar1");
    ASSERT_TRUE(widget->isVisible());
    const QImage image = widget->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 4, image.height() / 2), QColor(0x9F, 0, 0x20));
    // A fifth of the stated gray over the 0xEF of the window: what is not done is no alarm.
    EXPECT_EQ(image.pixelColor(image.width() * 3 / 4, image.height() / 2), QColor(0xE6, 0xE6, 0xE6));
    EXPECT_EQ(bar.back_colour(), 0xC0C0C0);
    bar.visible = false;
    shown.windows.sync();
    EXPECT_FALSE(widget->isVisible());
}

TEST(main_window, the_cancel_button_is_there_while_a_task_shows_it) {
    forms_program shown;
    int& runs = shown.count_runs("Command28_Click");
    EXPECT_FALSE(shown.widget("Command28")->isVisible());
    shown.form.Command28.visible = true;
    shown.windows.sync();
    ASSERT_TRUE(shown.widget("Command28")->isVisible());
    QTest::mouseClick(shown.widget("Command28"), Qt::LeftButton);
    EXPECT_EQ(runs, 1);
}

TEST(main_window, the_row_panel_shows_its_texts_and_closes) {
    forms_program shown;
    shown.show_pairs(3);
    shown.form.samefile_disp1.text = "/a/b.txt    2024-1-2 3:4:5\t77";
    shown.form.samefile_disp2.text = "/a/c.txt    2024-1-2 3:4:5\t77";
    shown.form.Frame4.visible = true;
    shown.windows.sync();
    QWidget* panel = shown.widget("Frame4");
    ASSERT_TRUE(panel->isVisible());
    EXPECT_TRUE(panel->parentWidget()->rect().contains(panel->geometry()));
    QTest::mouseClick(shown.widget("Frame4_Close"), Qt::LeftButton);
    EXPECT_FALSE(shown.form.Frame4.visible);
    EXPECT_FALSE(panel->isVisible());
    shown.form.Frame4.visible = true;
    shown.windows.sync();
    QTest::keyClick(&shown.windows.main(), Qt::Key_Escape);
    EXPECT_FALSE(panel->isVisible());
}

TEST(main_window, a_text_that_both_areas_show_stands_left_of_the_list) {
    forms_program shown;
    shown.files.add_file("/prog/log.txt", "one\r\ntwo\r\n");
    shown.show_pairs(3);
    shown.form.RichTextBox2.load_file("/prog/log.txt");
    shown.form.RichTextBox2.visible = true;
    shown.windows.sync();
    shown.settle();
    QWidget* text = shown.widget("RichTextBox2");
    QWidget* list = shown.widget("ListView1");
    ASSERT_TRUE(text->isVisible());
    ASSERT_TRUE(list->isVisible());
    EXPECT_LT(text->mapToGlobal(QPoint()).x(), list->mapToGlobal(QPoint()).x());
}

}  // namespace
}  // namespace corvane
