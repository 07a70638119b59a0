#include "forms/main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "core/help.h"
#include "core/progress.h"
#include "forms/colour_bar_widget.h"
#include "forms/row_panel_frame.h"
#include "forms/status_panels.h"
#include "tests/forms/window_fixture.h"

namespace corvane {
namespace {

TEST(MainWindow, AClickOnAPictureRunsItsTask) {
    window_fixture f;
    f.add_file("data/a", "same");
    f.add_file("data/b", "same");
    QTest::mouseClick(f.widget<QToolButton>("Picture2"), Qt::LeftButton);
    EXPECT_EQ(f.form.state.file_count, 2);
    EXPECT_TRUE(f.widget<QWidget>("RichTextBox2")->isVisible());
    QTest::mouseClick(f.widget<QToolButton>("Picture3"), Qt::LeftButton);
    auto* const list = f.widget<QTableView>("ListView1");
    EXPECT_TRUE(list->isVisible());
    ASSERT_EQ(list->model()->rowCount(), 1);
    EXPECT_EQ(list->model()->index(0, 3).data().toString().toStdString(), f.path("data/a"));
    ASSERT_EQ(f.screen.messages.size(), 1u);
    EXPECT_EQ(f.screen.messages[0].title, "检查同内容文件完毕");
}

TEST(MainWindow, KeysReachTheTasks) {
    window_fixture f;
    f.add_file("data/a", "x");
    auto* const search = f.widget<QToolButton>("Picture2");
    search->setFocus();
    QTest::keyClick(search, Qt::Key_Space);
    EXPECT_EQ(f.form.state.file_count, 1);
}

TEST(MainWindow, MenuEntriesOfMissingTasksAreThereAndDisabled) {
    window_fixture f;
    for (const char* name :
         {"del_dir", "select_m", "shut_computer", "mnu_same_filename", "关于_M", "out_excel_form"}) {
        const auto* const action = f.widget<QAction>(name);
        ASSERT_NE(action, nullptr) << name;
        EXPECT_FALSE(action->isEnabled()) << name;
    }
    for (const char* name : {"目录搜索_M", "查相同文件_M", "search_check_m", "exit_sub"})
        EXPECT_TRUE(f.widget<QAction>(name)->isEnabled()) << name;
}

TEST(MainWindow, AMenuEntryRunsItsTask) {
    window_fixture f;
    f.add_file("data/a", "x");
    f.widget<QAction>("目录搜索_M")->trigger();
    EXPECT_EQ(f.form.state.file_count, 1);
}

TEST(MainWindow, ALockedTaskIsLockedOnTheScreen) {
    window_fixture f;
    lock_tasks(f.form);
    f.window.sync();
    EXPECT_FALSE(f.widget<QToolButton>("Picture2")->isEnabled());
    EXPECT_FALSE(f.window.menuBar()->actions().at(1)->isEnabled());
    unlock_tasks(f.form);
    f.window.sync();
    EXPECT_TRUE(f.widget<QToolButton>("Picture2")->isEnabled());
}

TEST(MainWindow, TheCancelButtonIsShownWhileATaskCanBeCancelled) {
    window_fixture f;
    auto* const cancel = f.widget<QPushButton>("Command28");
    EXPECT_FALSE(cancel->isVisible());
    f.form.Command28.visible = true;
    f.window.sync();
    EXPECT_TRUE(cancel->isVisible());
    EXPECT_EQ(cancel->text().toStdString(), "取消[查相同文件]");
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(f.form.state.cancel_task, -1);
}

TEST(MainWindow, ARealRunIsCancelledByAClickInItsMiddle) {
    window_fixture f;
    for (int i = 0; i < 3000; ++i)
        f.add_file("data/" + std::to_string(i), std::string(1 + static_cast<std::size_t>(i) / 3, 'x'));
    f.window.act("picture2_Click");
    // Pressed at the first turn of the event loop at which the button stands there.
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        auto* const cancel = f.widget<QPushButton>("Command28");
        if (cancel->isVisible()) QTest::mouseClick(cancel, Qt::LeftButton);
    });
    press.start(0);
    f.window.act("Picture3_Click");
    EXPECT_EQ(f.form.state.cancel_task, -1);
    EXPECT_LT(f.form.state.result_count, 2000);
    EXPECT_TRUE(f.widget<QToolButton>("Picture3")->isEnabled());
}

TEST(MainWindow, ClosingInTheMiddleOfATaskEndsIt) {
    window_fixture f;
    for (int i = 0; i < 3000; ++i)
        f.add_file("data/" + std::to_string(i), std::string(1 + static_cast<std::size_t>(i) / 3, 'x'));
    f.window.act("picture2_Click");
    QTimer::singleShot(0, [&] { f.window.close(); });
    f.window.act("Picture3_Click");
    EXPECT_TRUE(f.screen.ended());
    EXPECT_EQ(f.form.state.quit_requested, -1);
    EXPECT_FALSE(f.window.isVisible());
    EXPECT_TRUE(f.screen.messages.empty());
}

TEST(MainWindow, TheTitleCarriesTheRunClock) {
    window_fixture f;
    EXPECT_TRUE(f.window.windowTitle().startsWith(QStringLiteral("Corvane V1.0.0        欢迎您使用")));
    f.corvane.tick();
    f.window.sync();
    EXPECT_TRUE(f.window.windowTitle().contains(QStringLiteral("    进入计时:0:0:")));
}

TEST(MainWindow, HelpModeIsShownByThePointer) {
    window_fixture f;
    f.window.act("help_spirit");
    EXPECT_EQ(f.window.cursor().shape(), Qt::WhatsThisCursor);
    QTest::mouseClick(f.widget<QToolButton>("Picture2"), Qt::LeftButton);
    EXPECT_EQ(f.desktop.calls, std::vector<std::string>{"help aux11_Corvane帮助_Link.htm"});
    EXPECT_EQ(f.form.state.file_count, 0);
}

TEST(MainWindow, ADoubleClickOnTheSerialNumberShowsTheRowPanel) {
    window_fixture f;
    f.add_file("data/a", "same");
    f.add_file("data/b", "same");
    f.window.act("search_check_m");
    auto* const list = f.widget<QTableView>("ListView1");
    const QPoint cell = list->visualRect(list->model()->index(0, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
    auto* const panel = f.widget<QWidget>("Frame4");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(f.window.rect().contains(panel->geometry()));
    QTest::mouseClick(f.widget<QToolButton>("Frame4_Close"), Qt::LeftButton);
    EXPECT_FALSE(panel->isVisible());
}

TEST(ColourBarWidget, PaintsTheFilledPartInTheFillColour) {
    window_fixture f;
    colour_bar model("bar");
    model.set_colours(0xFFFFFF, 0x0000FF, 0x0000FF);
    model.set_scale(10);
    model.draw(5);
    colour_bar_widget bar(model);
    bar.resize(200, 14);
    const QImage picture = bar.grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 4, picture.height() / 2), QColor(255, 0, 0));
    EXPECT_NE(picture.pixelColor(picture.width() * 3 / 4, picture.height() / 2), QColor(255, 0, 0));
}

}  // namespace
}  // namespace corvane
