// The options window: check marks, selection, menus, drags and drops, keys, fonts and colours.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "core/tasks/progress.h"
#include "forms/option_list_view.h"
#include "forms/options_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct open_options {
    explicit open_options(const std::string& types = "1.tmp\r\n0.bak\r\n1.old\r\n")
        : window(shown.windows.options()), model(shown.corvane.options_window()) {
        shown.files.add_file("/prog/不参加搜索的目录.txt", "1/D/A/\r\n0/D/B/\r\n");
        shown.files.add_file("/prog/不参加比较的文件类型.txt", types);
        shown.files.add_file("/prog/仅搜索的文件类型.txt", "0.jpg\r\n");
        shown.files.add_file("/prog/常用文件扩展名.txt",
                             ".ani 动画鼠标\r\n.xls Excel工作簿\r\n.txt 文本\r\n");
        for (const char* reader : {"读不参加搜索的目录", "读不参加比较的文件类型", "读仅搜索的文件类型"})
            shown.form.run(reader);
        shown.form.run("select_m_Click");
        shown.windows.sync();
        shown.settle();
    }
    option_list_view* list(const char* name) {
        return static_cast<option_list_view*>(shown.widget(name, &window));
    }
    // The middle of a row, or of its check mark.
    static QPoint row(option_list_view* list, int number) {
        return list->visualRect(list->model()->index(number, 0)).center();
    }
    static QPoint mark(option_list_view* list, int number) {
        const QRect place = list->visualRect(list->model()->index(number, 0));
        return {place.left() + 10, place.center().y()};
    }
    void click(option_list_view* target, QPoint place, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(target->viewport(), Qt::LeftButton, keys, place);
        shown.settle();
    }
    void press(const char* name) { QTest::mouseClick(shown.widget(name, &window), Qt::LeftButton); }
    void choose(const char* entry) {
        window.findChild<QAction*>(QString::fromUtf8(entry))->trigger();
        shown.settle();
    }
    static texts rows(const list_box& box) {
        texts found;
        for (const list_box::row& row : box.rows()) found.push_back((row.checked ? "1" : "0") + row.text);
        return found;
    }
    static std::string selected(const list_box& box) {
        std::string marks;
        for (const list_box::row& row : box.rows()) marks += row.selected ? 'x' : '-';
        return marks;
    }

    forms_program shown;
    options_window& window;
    options_form& model;
};

TEST(options_window, a_click_on_a_check_mark_checks_its_row) {
    open_options open;
    option_list_view* list = open.list("List2");
    open.click(list, open.mark(list, 1));
    EXPECT_EQ(open.rows(open.model.List2), (texts{"1.tmp", "1.bak", "1.old"}));
    open.click(list, open.mark(list, 0));
    EXPECT_EQ(open.rows(open.model.List2), (texts{"0.tmp", "1.bak", "1.old"}));
    EXPECT_EQ(list->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST(options_window, a_click_on_the_text_selects_and_leaves_the_check_mark) {
    open_options open;
    option_list_view* list = open.list("List2");
    open.click(list, open.row(list, 0));
    open.click(list, open.row(list, 2), Qt::ControlModifier);
    EXPECT_EQ(open.selected(open.model.List2), "x-x");
    open.click(list, open.row(list, 1));
    open.click(list, open.row(list, 2), Qt::ShiftModifier);
    EXPECT_EQ(open.selected(open.model.List2), "-xx");
    EXPECT_EQ(open.rows(open.model.List2), (texts{"1.tmp", "0.bak", "1.old"}));
}

TEST(options_window, the_list_of_common_types_has_no_check_marks) {
    open_options open;
    EXPECT_FALSE(open.list("List4")->model()->index(0, 0).data(Qt::CheckStateRole).isValid());
    EXPECT_EQ(open.list("List4")->model()->index(0, 0).data().toString(), QStringLiteral(".ani 动画鼠标"));
}

TEST(options_window, space_turns_the_marks_of_the_selected_rows) {
    open_options open;
    option_list_view* list = open.list("List2");
    open.click(list, open.row(list, 0));
    open.click(list, open.row(list, 1), Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(open.rows(open.model.List2), (texts{"0.tmp", "0.bak", "1.old"}));
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(open.rows(open.model.List2), (texts{"1.tmp", "1.bak", "1.old"}));
    EXPECT_EQ(open.selected(open.model.List2), "xx-");
}

TEST(options_window, delete_removes_the_selected_rows_and_the_keyboard_stays_there) {
    open_options open;
    for (const char* name : {"List1", "List2", "List3"}) {
        option_list_view* list = open.list(name);
        const int before = list->model()->rowCount();
        open.click(list, open.row(list, 0));
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(list->model()->rowCount(), before - 1) << name;
    }
    EXPECT_EQ(open.rows(open.model.List2), (texts{"0.bak", "1.old"}));
    EXPECT_EQ(open.list("List2")->currentIndex().row(), 0);
    open.click(open.list("List4"), open.row(open.list("List4"), 0));
    QTest::keyClick(open.list("List4"), Qt::Key_Delete);
    EXPECT_EQ(open.model.List4.row_count(), 3) << "the common types are only read here";
}

TEST(options_window, right_button_and_menu_key_open_the_menu_of_the_list) {
    for (const auto& [name, menu_name] :
         {std::pair("List1", "pop_num"), std::pair("List2", "no_search"), std::pair("List3", "only_search"),
          std::pair("List4", "file_type_list")}) {
        open_options open;
        option_list_view* list = open.list(name);
        const QMenu* menu = open.window.findChild<QMenu*>(QString::fromUtf8(menu_name));
        ASSERT_NE(menu, nullptr) << menu_name;
        for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
            const QPoint place = open.row(list, 0);
            QContextMenuEvent event(reason, place, list->viewport()->mapToGlobal(place));
            QApplication::sendEvent(list->viewport(), &event);
            EXPECT_TRUE(menu->isVisible()) << name;
            const_cast<QMenu*>(menu)->close();
        }
    }
}

TEST(options_window, every_menu_entry_has_its_own_letter) {
    open_options open;
    for (const QMenu* menu : open.window.findChildren<QMenu*>()) {
        QSet<QChar> letters;
        int count = 0;
        for (const QAction* action : menu->actions()) {
            if (!action->isEnabled()) continue;
            ++count;
            letters.insert(action->text().at(action->text().indexOf(QLatin1Char('&')) + 1));
        }
        EXPECT_GE(count, 7);
        EXPECT_EQ(letters.size(), count) << menu->objectName().toStdString();
    }
    EXPECT_FALSE(open.window.findChild<QAction*>("tip_open")->isEnabled());
    EXPECT_EQ(open.window.findChild<QAction*>("move_dir")->text(), QStringLiteral("移出目录(&D)"));
}

TEST(options_window, every_button_check_box_and_heading_has_its_own_letter) {
    open_options open;
    QStringList words;
    for (const QAbstractButton* button : open.window.findChildren<QAbstractButton*>())
        if (!button->objectName().isEmpty() && button->isVisible()) words.append(button->text());
    EXPECT_EQ(words.size(), 16);
    for (const char* label : {"Label1", "Label2", "Label3", "Label4"})
        words.append(open.shown.widget(label, &open.window)->property("text").toString());
    QSet<QChar> letters;
    for (const QString& text : words) {
        ASSERT_TRUE(text.contains(QLatin1Char('&'))) << text.toStdString();
        letters.insert(text.at(text.indexOf(QLatin1Char('&')) + 1));
    }
    EXPECT_EQ(letters.size(), words.size());
}

TEST(options_window, menu_entries_act_on_their_list) {
    open_options open;
    open.choose("dir_all_sele");
    EXPECT_EQ(open.rows(open.model.List1), (texts{"1/D/A/", "1/D/B/"}));
    option_list_view* common = open.list("List4");
    open.click(common, open.row(common, 1));
    open.choose("add_only_search");
    EXPECT_EQ(open.rows(open.model.List3), (texts{"0.jpg", "1.xls"}));
    EXPECT_EQ(open.list("List3")->model()->rowCount(), 2);
    open.choose("no_file_help");
    EXPECT_EQ(open.shown.desktop.calls.back(), "help aux26_Corvane帮助_Link.htm");
}

void drop(option_list_view* list, const QMimeData& data, bool& taken) {
    // Qt delivers a drop to the widget that the drag has entered.
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list->viewport(), &enter);
    taken = enter.isAccepted();
    QDropEvent event(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list->viewport(), &event);
    EXPECT_TRUE(!taken || event.dropAction() == Qt::CopyAction)
        << "a file manager must not move what it hands over";
}

TEST(options_window, paths_dropped_on_the_directories_join_them_whatever_they_are) {
    open_options open;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/d/旅行 2023"), QUrl::fromLocalFile("/d/note.txt"),
                  QUrl("https://example.org/x")});
    bool taken = false;
    drop(open.list("List1"), data, taken);
    EXPECT_TRUE(taken);
    EXPECT_EQ(open.rows(open.model.List1), (texts{"1/D/A/", "0/D/B/", "1/d/旅行 2023", "1/d/note.txt"}));
    EXPECT_EQ(open.list("List1")->model()->rowCount(), 4);
    EXPECT_EQ(open.shown.form.state.no_dir_count, 4);
    drop(open.list("List2"), data, taken);
    EXPECT_FALSE(taken);
    EXPECT_EQ(open.model.List2.row_count(), 3);
}

TEST(options_window, text_dropped_on_a_list_of_types_gives_checked_rows) {
    open_options open;
    QMimeData data;
    data.setText(QStringLiteral(".ani 动画鼠标\r\n.psd 图像"));
    bool taken = false;
    drop(open.list("List2"), data, taken);
    EXPECT_TRUE(taken);
    EXPECT_EQ(open.rows(open.model.List2), (texts{"1.tmp", "0.bak", "1.old", "1.ani", "1.psd"}));
    drop(open.list("List3"), data, taken);
    EXPECT_EQ(open.rows(open.model.List3), (texts{"0.jpg", "1.ani", "1.psd"}));
    for (const char* other : {"List1", "List4"}) {
        drop(open.list(other), data, taken);
        EXPECT_FALSE(taken) << other;
    }
}

TEST(options_window, what_was_added_comes_into_view) {
    std::string many;
    for (int i = 0; i < 150; ++i) many.append(".t").append(std::to_string(i)).append("\r\n");
    open_options open(many);
    option_list_view* list = open.list("List2");
    EXPECT_TRUE(list->viewport()->rect().contains(open.row(list, 0)));
    open.model.drop_types(open.model.List2, ".last");
    open.shown.windows.sync();
    EXPECT_TRUE(list->viewport()->rect().contains(open.row(list, 150)));
    open.choose("no_search_all_select");
    EXPECT_TRUE(list->viewport()->rect().contains(open.row(list, 150))) << "and the view stays there";
}

TEST(options_window, common_types_are_dragged_as_lines_of_text_in_their_order) {
    open_options open;
    option_list_view* common = open.list("List4");
    EXPECT_TRUE(common->dragEnabled());
    open.click(common, open.row(common, 2));
    open.click(common, open.row(common, 0), Qt::ControlModifier);
    const std::unique_ptr<QMimeData> data(
        common->model()->mimeData(common->selectionModel()->selectedIndexes()));
    EXPECT_EQ(data->text(), QStringLiteral(".ani 动画鼠标\r\n.txt 文本"));
    bool taken = false;
    drop(open.list("List3"), *data, taken);
    EXPECT_EQ(open.rows(open.model.List3), (texts{"0.jpg", "1.ani", "1.txt"}));
}

TEST(options_window, check_boxes_show_and_set_their_options) {
    open_options open;
    auto* suffix = static_cast<QCheckBox*>(open.shown.widget("Check4", &open.window));
    EXPECT_FALSE(suffix->isChecked());
    open.press("Check4");
    EXPECT_EQ(open.shown.form.state.same_suffix_only, 1);
    open.model.checks[4]->value = 0;
    open.shown.windows.sync();
    EXPECT_FALSE(suffix->isChecked());
    int& runs = open.shown.count_runs("tooltiphelp_true");
    QTest::keyClick(open.shown.widget("Check1", &open.window), Qt::Key_Space);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(open.shown.form.state.tip_help_on, 1);
}

TEST(options_window, all_lists_show_font_size_and_colours) {
    open_options open;
    option_list_view* lists[] = {open.list("List1"), open.list("List2"), open.list("List3"),
                                 open.list("List4")};
    for (const option_list_view* list : lists) {
        EXPECT_EQ(list->font().pointSize(), 9);
        EXPECT_EQ(list->palette().color(QPalette::Base), QColor(255, 255, 255));
        EXPECT_EQ(list->palette().color(QPalette::Text), QColor(0, 0, 0));
    }
    const int height = lists[0]->visualRect(lists[0]->model()->index(0, 0)).height();
    for (int i = 0; i < 9; ++i) open.press("Command2(0)");
    open.press("Command2(1)");
    open.shown.form.state.list_back_color = 0x0000FF;  // red
    open.shown.form.state.list_fore_color = 0xFFFF00;  // cyan
    open.press("Command2(1)");
    open.shown.settle();
    for (const option_list_view* list : lists) {
        EXPECT_EQ(list->font().pointSize(), 16);
        EXPECT_EQ(list->palette().color(QPalette::Base), QColor(255, 0, 0));
        EXPECT_EQ(list->palette().color(QPalette::Text), QColor(0, 255, 255));
    }
    EXPECT_GT(lists[0]->visualRect(lists[0]->model()->index(0, 0)).height(), height);
}

TEST(options_window, the_help_key_opens_the_topic_of_the_focused_part_or_of_the_window) {
    open_options open;
    open.window.activateWindow();
    open.list("List4")->setFocus();
    QTest::keyClick(open.list("List4"), Qt::Key_F1);
    EXPECT_EQ(open.shown.desktop.calls.back(), "help aux25_Corvane帮助_Link.htm");
    open.shown.widget("Check2", &open.window)->setFocus();
    QTest::keyClick(open.shown.widget("Check2", &open.window), Qt::Key_F1);
    EXPECT_EQ(open.shown.desktop.calls.back(), "help aux28_Corvane帮助_Link.htm");
    QTest::keyClick(open.shown.widget("Command4", &open.window), Qt::Key_F1);
    EXPECT_EQ(open.shown.desktop.calls.back(), "help aux22_Corvane帮助_Link.htm");
    open.press("Command5");
    EXPECT_EQ(open.shown.desktop.calls.size(), 4u);
}

TEST(options_window, apply_saves_and_asks_and_yes_searches) {
    open_options open;
    int& searches = open.shown.count_runs("picture2_Click");
    option_list_view* list = open.list("List2");
    open.click(list, open.mark(list, 1));
    QString asked;
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        asked = box->property("text").toString();
        for (QPushButton* button : box->findChildren<QPushButton*>())
            if (button->text().startsWith(QStringLiteral("是"))) button->click();
    });
    open.press("Command4");
    EXPECT_EQ(asked, QStringLiteral("搜索选项已变化，是否重新搜索"));
    EXPECT_EQ(searches, 1);
    EXPECT_EQ(open.shown.files.content_of("/prog/不参加比较的文件类型.txt"), "1.tmp\r\n1.bak\r\n1.old\r\n");
}

TEST(options_window, closing_the_frame_unloads_the_window) {
    open_options open;
    open.press("Check6");
    EXPECT_EQ(open.shown.form.state.scan_archives, 0);
    open.window.close();
    EXPECT_FALSE(open.window.isVisible());
    EXPECT_EQ(open.shown.form.state.scan_archives, 1);
    EXPECT_EQ(open.shown.form.state.optform_width, 15 * open.window.width());
    open.shown.form.run("select_m_Click");
    open.shown.windows.sync();
    EXPECT_TRUE(open.window.isVisible());
}

TEST(options_window, stays_in_reach_while_a_task_runs) {
    open_options open;
    lock_tasks(open.shown.form);
    open.shown.windows.sync();
    EXPECT_TRUE(open.shown.action("select_m")->isEnabled());
    EXPECT_TRUE(open.shown.widget("Command4", &open.window)->isEnabled());
    unlock_tasks(open.shown.form);
}

TEST(options_window, steps_aside_for_the_file_manager) {
    open_options open;
    open.window.resize(300, 300);
    open.shown.settle();
    open.press("Command1");
    EXPECT_EQ(open.shown.desktop.calls, texts{"open /"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !open.model.Timer1.enabled; }, 5000));
    open.shown.settle();
    const int screen = open.shown.screen.screen().width / 15;
    EXPECT_EQ(open.window.x(), screen - open.window.width() - 10);
}

TEST(options_window, the_tab_key_goes_the_way_of_the_eye) {
    open_options open;
    texts names;
    QWidget* at = open.list("List1");
    for (int i = 0; i < 21; ++i) {
        names.push_back(at->objectName().toStdString());
        do {
            at = at->nextInFocusChain();
        } while (!(at->focusPolicy() & Qt::TabFocus) || !at->isVisible() || at->window() != &open.window);
    }
    EXPECT_EQ(
        names,
        (texts{"List1",       "Check1",      "Check2",      "Check3",      "Check4",   "Check5",   "Check6",
               "Check7",      "Check8",      "List4",       "List2",       "List3",    "Command1", "Command3",
               "Command2(0)", "Command2(1)", "Command2(2)", "Command2(3)", "Command5", "Command4", "List1"}));
}

}  // namespace
}  // namespace corvane
