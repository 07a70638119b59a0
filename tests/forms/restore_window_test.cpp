// The window of the runs to the recycle bin on the screen, and what windows remember over a restart.
#include "forms/restore_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"
#include "tests/support/scripted_trash.h"

namespace corvane {
namespace {

struct restored_program : forms_program {
    restored_program() : bin(files) {
        form.outside.bin = &bin;
        std::string notes = "Corvane recycled 1\r\nT\t2026-03-04\t05:06:07\t.\r\n";
        for (const char* path : {"/e/a", "/e/b"}) {
            files.add_file(path, "xxx");
            const std::optional<recycled_item> item = bin.look(path);
            memory_file file;
            file.content = "xxx";
            file.modified_ns = item->modified_ns;
            bin.take(path, file);
            files.erase(path);
            notes += "F\tf\t1\t1\t3\t" + std::to_string(item->modified_ns) + "\t/e\t" + path + "\t.\r\n";
        }
        notes += "E\t1\tentry1\t/bin\t.\r\nE\t2\tentry2\t/bin\t.\r\nZ\t2\t.\r\n";
        files.add_file(form.data_path("删除记录/1.txt"), notes);
        files.add_file(form.data_path("删除记录/2.txt"), "another kind");
        files.add_file("/e/stays");
        windows.main().resize(1100, 700);
        windows.main().show();
        windows.act("restore_deleted");
    }
    QListView* list(const char* name) { return static_cast<QListView*>(widget(name, &windows.restoring())); }
    QString row(QListView* list, int number) { return list->model()->index(number, 0).data().toString(); }

    scripted_trash bin;
};

TEST(RestoreWindow, ListsRunsAndTheFilesOfTheSelectedOne) {
    restored_program shown;
    restore_window& window = shown.windows.restoring();
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("恢复上次删除"));
    QListView* runs = shown.list("List1");
    ASSERT_EQ(runs->model()->rowCount(), 2);
    EXPECT_TRUE(shown.row(runs, 0).endsWith(QStringLiteral("不认识的删除记录")));
    EXPECT_EQ(shown.list("List2")->model()->rowCount(), 0);
    EXPECT_FALSE(shown.widget("Command2", &window)->isEnabled());
    // A click on the other run shows its files.
    const QRect place = runs->visualRect(runs->model()->index(1, 0));
    QTest::mouseClick(runs->viewport(), Qt::LeftButton, {}, place.center());
    ASSERT_EQ(shown.list("List2")->model()->rowCount(), 2);
    EXPECT_EQ(shown.row(shown.list("List2"), 0), QStringLiteral("在回收站    3    /e/a"));
    EXPECT_TRUE(shown.widget("Command2", &window)->isEnabled());
}

struct opened_run : restored_program {
    opened_run() {
        QListView* runs = list("List1");
        QTest::mouseClick(runs->viewport(), Qt::LeftButton, {},
                          runs->visualRect(runs->model()->index(1, 0)).center());
        screen.hold_boxes(true);  // the report
    }
};

TEST(RestoreWindow, AButtonRestoresTheWholeRun) {
    opened_run shown;
    QTest::mouseClick(shown.widget("Command2", &shown.windows.restoring()), Qt::LeftButton);
    EXPECT_TRUE(shown.files.has("/e/a"));
    EXPECT_TRUE(shown.files.has("/e/b"));
    EXPECT_EQ(shown.row(shown.list("List2"), 1), QStringLiteral("已恢复    3    /e/b"));
    EXPECT_FALSE(shown.widget("Command2", &shown.windows.restoring())->isEnabled());
}

TEST(RestoreWindow, CheckMarksAreTheSelection) {
    opened_run shown;
    QListView* files = shown.list("List2");
    files->model()->setData(files->model()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
    QTest::mouseClick(shown.widget("Command1", &shown.windows.restoring()), Qt::LeftButton);
    EXPECT_FALSE(shown.files.has("/e/a"));
    EXPECT_TRUE(shown.files.has("/e/b"));
}

TEST(RestoreWindow, EnterRestoresTheCurrentFile) {
    opened_run shown;
    QListView* files = shown.list("List2");
    files->setCurrentIndex(files->model()->index(0, 0));
    QTest::keyClick(files, Qt::Key_Return);
    EXPECT_TRUE(shown.files.has("/e/a"));
    EXPECT_FALSE(shown.files.has("/e/b"));
    EXPECT_TRUE(shown.windows.restoring().isVisible()) << "Enter closes nothing";
}

TEST(RestoreWindow, EscapeClosesIt) {
    opened_run shown;
    QTest::keyClick(&shown.windows.restoring(), Qt::Key_Escape);
    EXPECT_FALSE(shown.windows.restoring().isVisible());
    EXPECT_FALSE(shown.files.has("/e/a"));
}

TEST(Remembering, AWidthThatTheUserDragsComesBackWithTheNextLoad) {
    forms_program shown;
    shown.windows.main().resize(1100, 700);
    shown.windows.main().show();
    shown.show_pairs(3);
    shown.windows.sync();
    auto* table = static_cast<list_table*>(shown.widget("ListView1"));
    table->setColumnWidth(2, 150);
    const std::string kept = shown.form.state.remembered.value("width.0.2");
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(shown.form.ListView1.columns()[2].width, std::stoi(kept));
    shown.form.ListView1.set_column_width(2, 900);
    shown.show_pairs(2);
    shown.windows.sync();
    EXPECT_EQ(table->columnWidth(2), 150);
}

TEST(Remembering, TheBorderOfTheHalvesStandsWhereItWas) {
    forms_program shown;
    shown.form.state.remembered.set("splitter", "4500");
    shown.windows.main().resize(1100, 700);
    shown.windows.main().show();
    shown.show_pairs(3);
    shown.form.List1.add("a line beside the list");
    shown.form.List1.visible = true;
    shown.windows.sync();
    shown.settle();
    auto* halves = static_cast<QSplitter*>(shown.widget("Splitter"));
    EXPECT_NEAR(halves->sizes()[0], 300, 3);
    // Dragged, it is kept for the next time.
    QWidget* border = halves->handle(1);
    const QPoint middle = border->rect().center();
    QTest::mousePress(border, Qt::LeftButton, {}, middle);
    QTest::mouseMove(border, middle + QPoint(80, 0));
    QTest::mouseRelease(border, Qt::LeftButton, {}, middle + QPoint(80, 0));
    EXPECT_EQ(shown.form.state.remembered.value("splitter"),
              std::to_string(halves->sizes()[0] * twips_per_pixel));
    EXPECT_GT(halves->sizes()[0], 320);
}

}  // namespace
}  // namespace corvane
