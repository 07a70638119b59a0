#include "forms/directory_window.h"

#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "tests/forms/window_fixture.h"

namespace corvane {
namespace {

const std::vector<std::string> no_directories;

TEST(DirectoryWindow, OpensByItselfWhenNothingIsSelected) {
    window_fixture f(no_directories);
    EXPECT_TRUE(f.widget<QWidget>("目录选择")->isVisible());
}

TEST(DirectoryWindow, PicksTheTreesDirectoryAndConfirms) {
    window_fixture f(no_directories);
    auto* const tree = f.widget<QTreeView>("Dir_select");
    auto* const model = static_cast<QFileSystemModel*>(tree->model());
    tree->setCurrentIndex(model->index(QString::fromStdString(f.path("data"))));
    QTest::mouseClick(f.widget<QPushButton>("Command_sele"), Qt::LeftButton);
    auto* const chosen = f.widget<QListWidget>("list_selected_dir");
    ASSERT_EQ(chosen->count(), 1);
    EXPECT_EQ(chosen->item(0)->text().toStdString(), f.path("data"));
    EXPECT_EQ(f.form.state.current_dir, f.path("data/"));
    QTest::mouseClick(f.widget<QPushButton>("Command34"), Qt::LeftButton);
    EXPECT_EQ(f.form.state.selected_dir_count, 1);
    EXPECT_EQ(f.form.state.selected_dirs[1], f.path("data"));
    EXPECT_FALSE(f.widget<QWidget>("目录选择")->isVisible());
}

TEST(DirectoryWindow, EnterPicksAndDeleteRemoves) {
    window_fixture f(no_directories);
    auto* const tree = f.widget<QTreeView>("Dir_select");
    auto* const model = static_cast<QFileSystemModel*>(tree->model());
    tree->setCurrentIndex(model->index(QString::fromStdString(f.path("data"))));
    QTest::keyClick(tree, Qt::Key_Return);
    auto* const chosen = f.widget<QListWidget>("list_selected_dir");
    ASSERT_EQ(chosen->count(), 1);
    chosen->item(0)->setSelected(true);
    QTest::keyClick(chosen, Qt::Key_Delete);
    EXPECT_EQ(chosen->count(), 0);
}

TEST(DirectoryWindow, ConfirmingNothingTellsHowAndStays) {
    window_fixture f(no_directories);
    QTest::mouseClick(f.widget<QPushButton>("cmd_dir_firm"), Qt::LeftButton);
    ASSERT_EQ(f.screen.messages.size(), 1u);
    EXPECT_TRUE(f.widget<QWidget>("目录选择")->isVisible());
}

TEST(DirectoryWindow, ConfirmAndRunGoesTheWholeRoad) {
    window_fixture f(no_directories);
    f.add_file("data/a", "same");
    f.add_file("data/b", "same");
    f.corvane.directory_window().add_paths({f.path("data")});
    f.window.sync();
    QTest::mouseClick(f.widget<QPushButton>("cmd_dir_firm"), Qt::LeftButton);
    EXPECT_EQ(f.form.state.result_count, 1);
}

TEST(DirectoryWindow, ClosingByItsFrameKeepsTheSelection) {
    window_fixture f;
    f.window.act("Picture1_Click");
    f.corvane.directory_window().add_paths({"/elsewhere"});
    f.widget<QWidget>("目录选择")->close();
    EXPECT_EQ(f.form.state.selected_dir_count, 1);
    EXPECT_FALSE(f.corvane.directory_window().visible);
}

}  // namespace
}  // namespace corvane
