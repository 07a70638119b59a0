// The directory window: the tree, picking, removing, confirming.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <algorithm>

#include "core/tasks/progress.h"
#include "forms/directory_model.h"
#include "forms/directory_window.h"
#include "forms/selected_list.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct open_window {
    open_window() : window(shown.windows.directory()), model(shown.corvane.directory_window()) {
        for (const char* path : {"/home/li/照片", "/home/li/文档", "/home/li/音乐/古典", "/home/li/.config"})
            shown.files.add_directory(path);
        shown.files.add_file("/home/li/note.txt", "x");
        shown.files.mounted = {{"/home/li/", "", volume_kind::home, 3'000'000'000, 9'000'000'000},
                               {"/", "", volume_kind::root},
                               {"/media/照相机/", "EOS", volume_kind::other, 500, 1000}};
        shown.form.run("Picture1_Click");
        shown.windows.sync();
        shown.settle();
        tree = static_cast<pick_tree*>(shown.widget("Dir_select", &window));
        list = static_cast<selected_list*>(shown.widget("list_selected_dir", &window));
    }

    QPoint place_of(const char* path) {
        const QModelIndex row = window.directories().find(path);
        tree->scrollTo(row);
        return tree->visualRect(row).center();
    }
    // Lets the flying caption arrive.
    void land() {
        for (int step = 0; step < 30; ++step) model.Timer1_Timer();
        shown.windows.sync();
    }
    std::vector<std::string> chosen() {
        land();
        std::vector<std::string> rows;
        for (const list_box::row& row : model.list_selected_dir.rows()) rows.push_back(row.text);
        return rows;
    }
    void click(const char* name) { QTest::mouseClick(shown.widget(name, &window), Qt::LeftButton); }

    forms_program shown;
    directory_window& window;
    directory_form& model;
    pick_tree* tree;
    selected_list* list;
};

using paths = std::vector<std::string>;

TEST(directory_window, lists_directories_in_reading_order_hidden_ones_last) {
    open_window open;
    directory_model& tree = open.window.directories();
    const QModelIndex top = tree.index(0, 0);
    tree.fetchMore(top);
    ASSERT_EQ(tree.rowCount(top), 3) << "hidden ones on demand";
    QTest::mouseClick(open.shown.widget("Check_hidden", &open.window), Qt::LeftButton, {}, QPoint(8, 8));
    const QModelIndex again = tree.index(0, 0);
    tree.fetchMore(again);
    ASSERT_EQ(tree.rowCount(again), 4);
    EXPECT_EQ(tree.path(tree.index(3, 0, again)), "/home/li/.config");
    EXPECT_TRUE(tree.find("/home/li/音乐/古典").isValid());
    EXPECT_FALSE(tree.find("/home/li/note.txt").isValid());
}

TEST(directory_window, what_is_hidden_the_disk_says) {
    memory_file_system disk;
    disk.names_tell_hidden = false;
    disk.add_directory("/u/AppData").hidden = true;
    for (const char* path : {"/u/.dot", "/u/Music", "/u/Music/a"}) disk.add_directory(path);
    disk.add_file("/u/f.txt", "x");
    directory_model tree(disk, nullptr);
    tree.set_root("/u/");
    tree.fetchMore(tree.index(0, 0));
    ASSERT_EQ(tree.rowCount(tree.index(0, 0)), 2);
    EXPECT_EQ(tree.path(tree.index(0, 0, tree.index(0, 0))), "/u/.dot");
    EXPECT_EQ(disk.attribute_questions, 0) << "what stands below is not asked about itself";
    tree.show_hidden(true);
    tree.fetchMore(tree.index(0, 0));
    const QModelIndex last = tree.index(2, 0, tree.index(0, 0));
    EXPECT_EQ(tree.path(last), "/u/AppData");
    EXPECT_TRUE(tree.data(last, Qt::ForegroundRole).isValid());
    EXPECT_FALSE(tree.data(tree.index(1, 0, tree.index(0, 0)), Qt::ForegroundRole).isValid());
    // The root is shown as every other one, whatever its name is.
    EXPECT_FALSE(tree.data(tree.index(0, 0), Qt::ForegroundRole).isValid());
}

TEST(directory_window, the_tree_tells_its_current_directory) {
    open_window open;
    QTest::mouseClick(open.tree->viewport(), Qt::LeftButton, {}, open.place_of("/home/li/文档"));
    EXPECT_EQ(open.model.Dir_select.text, "/home/li/文档");
    EXPECT_TRUE(open.chosen().empty());
    open.click("Command_sele");
    EXPECT_EQ(open.chosen(), paths{"/home/li/文档"});
}

TEST(directory_window, right_button_ctrl_double_click_and_enter_pick_one_row) {
    open_window open;
    QWidget* area = open.tree->viewport();
    QTest::mouseClick(area, Qt::RightButton, {}, open.place_of("/home/li/文档"));
    EXPECT_EQ(open.chosen(), paths{"/home/li/文档"});
    QTest::mouseClick(area, Qt::LeftButton, Qt::ControlModifier, open.place_of("/home/li/照片"));
    EXPECT_EQ(open.chosen(), (paths{"/home/li/文档", "/home/li/照片"}));
    QTest::mouseDClick(area, Qt::LeftButton, {}, open.place_of("/home/li/文档"));
    EXPECT_EQ(open.chosen(), (paths{"/home/li/照片", "/home/li/文档"}));
    open.tree->setCurrentIndex(open.window.directories().find("/home/li/照片"));
    QTest::keyClick(open.tree, Qt::Key_Return);
    EXPECT_EQ(open.chosen(), (paths{"/home/li/文档", "/home/li/照片"}));
}

TEST(directory_window, shift_picks_the_range_between_two_presses) {
    open_window open;
    QWidget* area = open.tree->viewport();
    directory_model& tree = open.window.directories();
    const QModelIndex top = tree.index(0, 0);
    const std::string first = tree.path(tree.index(0, 0, top));
    const std::string last = tree.path(tree.index(2, 0, top));
    QTest::mouseClick(area, Qt::LeftButton, {}, open.place_of(last.c_str()));
    QTest::mouseClick(area, Qt::LeftButton, Qt::ShiftModifier, open.place_of(first.c_str()));
    EXPECT_EQ(open.chosen().size(), 3u);
    EXPECT_EQ(open.chosen().front(), first);
    EXPECT_EQ(open.chosen().back(), last);
}

TEST(directory_window, the_check_before_a_row_protects_and_removes_nothing) {
    open_window open;
    open.model.add_paths({"/a", "/b"});
    open.shown.windows.sync();
    open.shown.settle();
    const QRect row = open.list->visualRect(open.list->model()->index(1, 0));
    const QPoint mark(row.left() + 10, row.center().y());
    QTest::mouseClick(open.list->viewport(), Qt::LeftButton, {}, mark);
    EXPECT_TRUE(open.model.list_selected_dir.rows()[1].checked);
    EXPECT_FALSE(open.model.list_selected_dir.rows()[0].checked);
    QTest::mouseDClick(open.list->viewport(), Qt::LeftButton, {}, mark);
    EXPECT_EQ(open.chosen(), (paths{"/a", "/b"})) << "a double click beside the mark would have removed it";
    open.model.list_selected_dir.check(1, true);
    open.click("Command34");
    EXPECT_EQ(open.shown.form.state.protected_folders, std::set<std::string>{"/b/"});
}

TEST(directory_window, double_click_and_delete_remove_rows) {
    open_window open;
    open.model.add_paths({"/a", "/b", "/c"});
    open.shown.windows.sync();
    open.shown.settle();
    const auto place = [&](int row) {
        return open.list->visualRect(open.list->model()->index(row, 0)).center();
    };
    QTest::mouseDClick(open.list->viewport(), Qt::LeftButton, {}, place(1));
    EXPECT_EQ(open.chosen(), (paths{"/a", "/c"}));
    open.shown.settle();
    QTest::mouseClick(open.list->viewport(), Qt::LeftButton, {}, place(1));
    QTest::keyClick(open.list, Qt::Key_Delete);
    EXPECT_EQ(open.chosen(), paths{"/a"});
}

void drop(selected_list& list, const QList<QUrl>& places, Qt::KeyboardModifiers modifiers) {
    QMimeData data;
    data.setUrls(places);
    // Qt delivers a drop to the widget that the drag has entered.
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(list.viewport(), &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(list.viewport(), &event);
}

TEST(directory_window, a_drop_is_never_answered_with_a_move) {
    open_window open;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/home/li/文档/")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(open.list->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                     Qt::ShiftModifier);
    event.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(open.list->viewport(), &event);
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(event.dropAction(), Qt::CopyAction);
}

TEST(directory_window, dropped_directories_replace_the_list_or_with_ctrl_join_it) {
    open_window open;
    open.model.add_paths({"/a"});
    drop(*open.list, {QUrl::fromLocalFile("/home/li/照片"), QUrl::fromLocalFile("/home/li/note.txt")},
         Qt::ControlModifier);
    EXPECT_EQ(open.chosen(), (paths{"/a", "/home/li/照片"}));
    drop(*open.list, {QUrl::fromLocalFile("/home/li/文档/")}, Qt::NoModifier);
    EXPECT_EQ(open.chosen(), paths{"/home/li/文档"});
}

TEST(directory_window, a_pick_flies_into_the_list_by_itself) {
    open_window open;
    QTest::mouseClick(open.tree->viewport(), Qt::RightButton, {}, open.place_of("/home/li/文档"));
    QWidget* caption = open.shown.widget("Text_animal", &open.window);
    EXPECT_TRUE(caption->isVisible());
    EXPECT_TRUE(open.model.list_selected_dir.rows().empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !open.model.list_selected_dir.rows().empty(); }, 3000));
    EXPECT_FALSE(caption->isVisible());
    EXPECT_EQ(open.list->model()->rowCount(), 1);
}

TEST(directory_window, volumes_tell_their_free_space_and_change_the_tree) {
    open_window open;
    auto* drives = static_cast<pick_list*>(open.shown.widget("List_disk_sele", &open.window));
    ASSERT_EQ(drives->model()->rowCount(), 3);
    EXPECT_EQ(drives->model()->index(2, 0).data().toString(), QStringLiteral("EOS  /media/照相机/"));
    EXPECT_EQ(drives->model()->index(0, 0).data(Qt::ToolTipRole).toString(),
              QStringLiteral("主目录  /home/li/\n可用 2861 M，共 8583 M"));
    EXPECT_EQ(open.model.tree_root(), "/home/li/");
    open.shown.files.add_directory("/media/照相机/DCIM");
    drives->setCurrentIndex(drives->model()->index(2, 0));
    EXPECT_EQ(open.model.Dir_select.text, "/media/照相机/");
    EXPECT_EQ(open.window.directories().path(open.window.directories().index(0, 0)), "/media/照相机/");
    open.shown.files.erase("/home/li");
    drives->setCurrentIndex(drives->model()->index(0, 0));
    open.shown.windows.sync();
    EXPECT_EQ(open.model.tree_root(), "/media/照相机/") << "a volume that cannot be read";
}

TEST(directory_window, a_stored_directory_inside_a_hidden_one_is_shown) {
    open_window open;
    open.window.close();
    open.shown.files.add_directory("/home/li/.config/深");
    open.shown.form.state.current_dir = "/home/li/.config/深/";
    open.shown.form.state.dir_select_path = "/home/li/.config/深";
    open.shown.form.run("Picture1_Click");
    open.shown.windows.sync();
    EXPECT_EQ(open.window.directories().path(open.tree->currentIndex()), "/home/li/.config/深");
    EXPECT_EQ(open.model.Check_hidden.value, 1);
}

TEST(directory_window, the_tab_order_follows_the_eye) {
    open_window open;
    std::vector<std::string> order;
    QWidget* at = open.shown.widget("Text_path", &open.window);
    at->setFocus();
    for (int step = 0; step < 14; ++step) {
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order,
              (paths{"Text_path", "Command_path", "List_disk_sele", "Dir_select", "Check_hidden",
                     "list_selected_dir", "Command_remove", "Command_recent", "Command_sele", "Command_open",
                     "direction_help", "cmd_dir_firm", "Command34", "cmd_dir_discard"}));
}

TEST(directory_window, every_button_has_a_mnemonic_of_its_own) {
    open_window open;
    QStringList keys;
    for (const QAbstractButton* button : open.window.findChildren<QAbstractButton*>()) {
        if (button->text().isEmpty()) continue;
        EXPECT_FALSE(button->shortcut().isEmpty()) << button->text().toStdString();
        keys << button->shortcut().toString();
    }
    keys << QStringLiteral("Alt+V") << QStringLiteral("Alt+T") << QStringLiteral("Alt+L")
         << QStringLiteral("Alt+P");
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_EQ(keys.size(), 14);
}

TEST(directory_window, confirming_takes_the_list_over_and_closes) {
    open_window open;
    open.model.add_paths({"/home/li/照片"});
    ASSERT_TRUE(open.window.isVisible());
    open.click("Command34");
    EXPECT_FALSE(open.window.isVisible());
    EXPECT_EQ(open.shown.form.state.selected_dir_count, 1);
    EXPECT_EQ(open.shown.form.state.selected_dirs[1], "/home/li/照片");
}

TEST(directory_window, run_confirms_and_searches) {
    open_window open;
    int& runs = open.shown.count_runs("search_check_m_Click");
    open.model.add_paths({"/home/li/照片"});
    open.click("cmd_dir_firm");
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(open.window.isVisible());
}

TEST(directory_window, discard_puts_the_list_back) {
    open_window open;
    open.model.add_paths({"/home/li/照片"});
    open.click("cmd_dir_discard");
    EXPECT_TRUE(open.chosen().empty());
    EXPECT_TRUE(open.window.isVisible());
}

TEST(directory_window, closing_the_frame_hides_it_and_keeps_the_selection) {
    open_window open;
    open.model.add_paths({"/home/li/照片"});
    open.window.close();
    EXPECT_FALSE(open.model.visible);
    EXPECT_FALSE(open.window.isVisible());
    EXPECT_EQ(open.shown.form.state.selected_dir_count, 0);
}

TEST(directory_window, the_selection_cannot_change_under_a_running_task) {
    open_window open;
    lock_tasks(open.shown.form);
    open.shown.windows.sync();
    EXPECT_FALSE(open.shown.widget("Command34", &open.window)->isEnabled());
    EXPECT_FALSE(open.shown.widget("cmd_dir_firm", &open.window)->isEnabled());
    unlock_tasks(open.shown.form);
    open.shown.windows.sync();
    EXPECT_TRUE(open.shown.widget("Command34", &open.window)->isEnabled());
}

TEST(directory_window, the_help_key_opens_its_topic) {
    open_window open;
    QTest::keyClick(&open.window, Qt::Key_F1);
    ASSERT_FALSE(open.shown.desktop.calls.empty());
    EXPECT_EQ(open.shown.desktop.calls.back(), "help aux09_Corvane帮助_Link.htm");
}

}  // namespace
}  // namespace corvane
