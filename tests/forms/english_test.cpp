// The windows in English: no Chinese word of the program is left, and every caption fits its place.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>

#include "core/language/translation.h"
#include "core/tasks/progress.h"
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

const translation& english_table() {
    static const translation table = english();
    return table;
}

// Declared before the program, so that its windows are made in English.
struct spoken {
    spoken() { use_translation(&english_table()); }
    ~spoken() { use_translation(nullptr); }
};

struct english_program : private spoken, forms_program {
    english_program() {
        add_used_folder();
        for (const char* directory : {"/home/li/pictures", "/home/li/documents"})
            files.add_directory(directory);
        files.add_file("/prog/常用文件扩展名.txt", ".txt text\r\n");
        files.mounted = {{"/home/li/", "", volume_kind::home, 3'000'000'000, 9'000'000'000},
                         {"/", "", volume_kind::root, 20'000'000'000, 90'000'000'000}};
    }
    std::vector<QWidget*> open_all() {
        for (const char* opener : {"Picture1_Click", "select_m_Click", "shut_computer", "显示关机提示"}) {
            form.run(opener);
            windows.sync();
            settle();
        }
        files.add_file("/prog/文件清单.txt", "/home/li/a.txt\r\n");
        files.add_file("/home/li/a.txt", "a");
        form.run("关于_M");
        form.run("tree_select_m");
        corvane.restore_window().visible = true;
        windows.sync();
        settle();
        return {&windows.main(),    &windows.directory(), &windows.options(), &windows.sleep(),
                &windows.warning(), &windows.tree(),      &windows.about(),   &windows.restoring()};
    }
};

QStringList words_of(QWidget* window) {
    QStringList words = {window->windowTitle()};
    for (const QLabel* label : window->findChildren<QLabel*>()) words.append(label->text());
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>())
        words.append(button->text());
    for (const QGroupBox* group : window->findChildren<QGroupBox*>()) words.append(group->title());
    for (const QAction* action : window->findChildren<QAction*>()) words.append(action->text());
    for (const QWidget* part : window->findChildren<QWidget*>()) words.append(part->toolTip());
    for (const QTableView* list : window->findChildren<QTableView*>())
        for (int column = 0; list->model() && column < list->model()->columnCount(); ++column)
            words.append(list->model()->headerData(column, Qt::Horizontal).toString());
    return words;
}

TEST(english, no_chinese_word_is_left_in_any_window) {
    english_program shown;
    int count = 0;
    for (QWidget* window : shown.open_all())
        for (const QString& text : words_of(window)) {
            ++count;
            EXPECT_FALSE(holds_chinese(text.toStdString()))
                << window->objectName().toStdString() << ": " << text.toStdString();
        }
    EXPECT_GT(count, 300);
}

TEST(english, lists_and_panels_speak_it_too) {
    english_program shown;
    shown.show_pairs(2);
    shown.form.panel(1, "文件数:12");
    shown.form.panel(7, "查相同文件");
    shown.windows.sync();
    const QStringList words = words_of(&shown.windows.main());
    for (const char* expected : {"No.", "Length", "File 1", "File 2"})
        EXPECT_TRUE(words.contains(QLatin1String(expected))) << expected;
    // The model keeps its own words: they decide the topic of a click and what a script sees.
    EXPECT_EQ(shown.form.StatusBar1.panel(7), "查相同文件");
}

TEST(english, boxes_ask_in_it) {
    english_program shown;
    QStringList words;
    QTimer reader;
    QObject::connect(&reader, &QTimer::timeout, &reader, [&words] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr) return;
        words = words_of(box);
        box->close();
    });
    reader.start(5);
    EXPECT_FALSE(shown.form.confirm("搜索选项已变化，是否重新搜索"));
    EXPECT_TRUE(words.contains(QStringLiteral("The options of the search have changed. Search again?")));
    EXPECT_TRUE(words.contains(QStringLiteral("&Yes")));
    EXPECT_TRUE(words.contains(QStringLiteral("&No")));
}

// Captions in full, at the window's own size, in whatever scale the test runs.
TEST(english, every_caption_fits_its_place) {
    english_program shown;
    int count = 0;
    for (QWidget* window : shown.open_all())
        for (QWidget* part : window->findChildren<QWidget*>()) {
            const auto* label = qobject_cast<QLabel*>(part);
            const auto* button = qobject_cast<QAbstractButton*>(part);
            const bool has_words =
                label ? !label->text().isEmpty() && !label->wordWrap() : button && !button->text().isEmpty();
            if (!part->isVisible() || !has_words) continue;
            ++count;
            EXPECT_LE(part->minimumSizeHint().width(), part->width())
                << window->objectName().toStdString() << "." << part->objectName().toStdString() << ": "
                << (label ? label->text() : button->text()).toStdString();
        }
    EXPECT_GT(count, 60);
}

TEST(english, letters_of_one_menu_differ) {
    english_program shown;
    for (const QMenu* menu : shown.windows.main().findChildren<QMenu*>()) {
        std::map<QChar, std::string> letters;
        for (const QAction* action : menu->actions()) {
            const qsizetype mark = action->text().indexOf(QLatin1Char('&'));
            if (mark < 0) continue;
            const QChar letter = action->text().at(mark + 1).toUpper();
            EXPECT_TRUE(letters.emplace(letter, action->text().toStdString()).second)
                << letters[letter] << " and " << action->text().toStdString();
        }
    }
}

}  // namespace
}  // namespace corvane
