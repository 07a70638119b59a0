// The two name views on the screen: files of one name, directories of one name.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <tuple>

#include "forms/colours.h"
#include "forms/list_model.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct named : forms_program {
    named() : table(windows.main().list()) {
        for (const char* path :
             {"/d/a/one.txt", "/d/b/one.txt", "/d/c/one.txt", "/d/x/same/p", "/d/y/same/q"})
            files.add_file(path, path);
        form.state.selected_dirs = {"/d"};
        form.state.selected_dir_count = 1;
    }
    void run(const char* entry) {
        action(entry)->trigger();
        settle();
        windows.sync();
        settle();
    }
    QString cell(int row, int column) { return table.model()->index(row, column).data().toString(); }
    QString header(int column) { return table.model()->headerData(column, Qt::Horizontal).toString(); }
    list_table& table;
};

TEST(name_views, the_list_shows_what_the_checks_found) {
    for (const auto& [entry, mode, path_column, rows] :
         {std::tuple("mnu_same_filename", 3, 3, 2), std::tuple("search_repeat_dir_name", 4, 2, 1)}) {
        named shown;
        // A list beside a text, each with half of the room.
        shown.show_pairs(5);
        shown.files.add_file("/prog/text.txt", "a line\r\n");
        shown.form.RichTextBox2.load_file("/prog/text.txt");
        shown.form.RichTextBox2.visible = true;
        shown.settle();
        // Each closing message is answered at once.
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, &closer, [] {
            if (QWidget* box = QApplication::activeModalWidget()) box->close();
        });
        closer.start(20);
        shown.run(entry);
        EXPECT_EQ(shown.form.state.list_mode, mode);
        ASSERT_EQ(shown.table.model()->rowCount(), rows) << entry;
        EXPECT_TRUE(shown.table.isVisible());
        EXPECT_EQ(shown.cell(0, path_column).toStdString(), shown.form.ListView1.cell(1, path_column));
        EXPECT_TRUE(shown.cell(0, path_column).startsWith(QStringLiteral("/d/")));
        EXPECT_FALSE(shown.header(path_column).isEmpty());
        // Both paths have the room that the text has left.
        const int first = shown.table.columnWidth(path_column),
                  second = shown.table.columnWidth(path_column + 1);
        EXPECT_LE(std::abs(first - second), 40) << entry;
    }
}

}  // namespace
}  // namespace corvane
