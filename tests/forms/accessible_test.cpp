// What a screen reader gets to hear: every part that takes the focus has a name and a role, in both
// languages, and the list tells in words what it tells by colours.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTableView>

#include "core/language/translation.h"
#include "forms/about_window.h"
#include "forms/directory_window.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/own_words.h"
#include "forms/restore_window.h"
#include "forms/sleep_window.h"
#include "forms/tree_window.h"
#include "forms/warning_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct language {
    explicit language(const translation* table) { use_translation(table); }
    ~language() { use_translation(nullptr); }
};

class accessible : public testing::TestWithParam<bool> {
  protected:
    const translation table_ = english();
    const language spoken_{GetParam() ? &table_ : nullptr};
    forms_program shown_;

    std::vector<QWidget*> open_all() {
        shown_.add_used_folder();
        shown_.files.add_file("/prog/常用文件扩展名.txt", ".txt text\r\n");
        shown_.files.add_file("/prog/文件清单.txt", "/home/li/a.txt\r\n");
        shown_.files.add_file("/home/li/a.txt", "a");
        for (const char* opener : {"Picture1_Click", "select_m_Click", "shut_computer", "显示关机提示",
                                   "关于_M", "tree_select_m"}) {
            shown_.form.run(opener);
            shown_.windows.sync();
            shown_.settle();
        }
        shown_.corvane.restore_window().visible = true;
        shown_.show_pairs(3);
        shown_.windows.sync();
        return {&shown_.windows.main(),  &shown_.windows.directory(), &shown_.windows.options(),
                &shown_.windows.sleep(), &shown_.windows.warning(),   &shown_.windows.tree(),
                &shown_.windows.about(), &shown_.windows.restoring()};
    }
};

TEST_P(accessible, every_part_that_takes_the_focus_has_a_name_and_a_role) {
    int count = 0;
    for (QWidget* window : open_all())
        for (QWidget* part : window->findChildren<QWidget*>()) {
            if (!part->isVisible() || part->focusPolicy() == Qt::NoFocus || part->window() != window)
                continue;
            if (part->focusProxy() != nullptr || part->objectName().startsWith(QLatin1String("qt_")))
                continue;
            QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(part);
            ASSERT_NE(heard, nullptr);
            const std::string where = window->objectName().toStdString() + "." +
                                      part->objectName().toStdString() + " " +
                                      part->metaObject()->className();
            ++count;
            EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << where;
            EXPECT_NE(heard->role(), QAccessible::NoRole) << where;
            EXPECT_FALSE(heard->text(QAccessible::Description).isEmpty()) << where;
        }
    EXPECT_GT(count, 50);
}

TEST_P(accessible, the_list_tells_its_marks_in_words) {
    shown_.show_pairs(6);
    list_view& list = shown_.form.ListView1;
    list.set_colour(1, 3, cell_colour::mark_red);
    list.set_colour(2, 3, cell_colour::mark_blue);
    list.set_colour(3, 3, cell_colour::colour_archive);
    list.set_colour(4, 3, cell_colour::colour_gray);
    list.set_colour(5, 3, cell_colour::colour_found);
    shown_.windows.sync();
    const auto* view = qobject_cast<QTableView*>(shown_.widget("ListView1"));
    const char* chinese[] = {"红色:欲删除的文件",   "蓝色:因属性原因删不掉的文件",
                             "紫色:压缩包内部文件", "灰色:与上个文件为同一文件",
                             "水红:查找到的文件",   ""};
    const char* in_english[] = {
        "Red: marked to be deleted",        "Blue: not deleted because of its attributes",
        "Purple: a file inside an archive", "Gray: the same file as in the row above",
        "Pink: found by a search",          ""};
    for (int row = 0; row < 6; ++row) {
        const QModelIndex cell = view->model()->index(row, 3);
        EXPECT_EQ(cell.data(Qt::AccessibleDescriptionRole).toString().toStdString(),
                  GetParam() ? in_english[row] : chinese[row]);
        EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), cell.data(Qt::DisplayRole).toString());
    }
}

INSTANTIATE_TEST_SUITE_P(languages, accessible, testing::Bool(),
                         [](const auto& each) { return each.param ? "english" : "chinese"; });

}  // namespace
}  // namespace corvane
