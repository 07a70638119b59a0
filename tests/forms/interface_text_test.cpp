// Tips, language tables and the about box as the windows show them.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "forms/about_window.h"
#include "forms/directory_window.h"
#include "forms/linked_libraries.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

TEST(Tooltips, OffAndOnReachTheWidgetsAtOnce) {
    forms_program shown;
    shown.form.run("save_tooltips");
    shown.form.run("Picture1_Click");
    shown.windows.sync();
    QWidget* tree = shown.widget("Dir_select", &shown.windows.directory());
    const QString tip = tree->toolTip();
    EXPECT_FALSE(tip.isEmpty());
    shown.windows.act("tooltiphelp_false");
    EXPECT_TRUE(tree->toolTip().isEmpty());
    shown.windows.act("tooltiphelp_true");
    EXPECT_EQ(tree->toolTip(), tip);
}

TEST(Languages, ATableReachesMenusTasksAndTheSelection) {
    forms_program shown;
    shown.windows.act("Command38_Click");
    EXPECT_EQ(shown.action("search_in_result")->text(), QStringLiteral("18054"));
    EXPECT_EQ(static_cast<QPushButton*>(shown.widget("cmd_dir_firm", &shown.windows.directory()))->text(),
              QStringLiteral("Run"));
    shown.windows.act("Command37_Click");
    EXPECT_EQ(shown.action("search_in_result")->text(), QStringLiteral("在结果中查找"));
    EXPECT_EQ(static_cast<QPushButton*>(shown.widget("cmd_dir_firm", &shown.windows.directory()))->text(),
              QStringLiteral("执行(&R)"));
    EXPECT_EQ(shown.widget("Command37"), nullptr);
}

TEST(AboutWindow, IsModalOverTheMainFormAndNamesTheLibraries) {
    forms_program shown;
    shown.windows.act("关于_M");
    about_window& about = shown.windows.about();
    EXPECT_TRUE(about.isVisible());
    EXPECT_EQ(about.windowModality(), Qt::WindowModal);
    EXPECT_EQ(about.parentWidget(), &shown.windows.main());
    EXPECT_EQ(about.windowTitle(), QStringLiteral("关于 Corvane "));
    const QString libraries = static_cast<QPlainTextEdit*>(shown.widget("Text1", &about))->toPlainText();
    EXPECT_TRUE(libraries.contains(QLatin1String(qVersion())));
    for (const char* word :
         {"Qt", "GLib", "GNU C Library", "libstdc++", "LGPL 3", "LGPL 2.1", "apt-get source"})
        EXPECT_TRUE(libraries.contains(QLatin1String(word))) << word;
    for (const used_library& library : libraries_in_use()) {
        EXPECT_FALSE(library.version.empty()) << library.name;
        EXPECT_FALSE(library.licence.empty()) << library.name;
    }
    QTest::mouseClick(shown.widget("cmdOK", &about), Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

TEST(AboutWindow, TheButtonStartsTheSystemsTool) {
    forms_program shown;
    shown.desktop.programs = {{"hardinfo2", "/usr/bin/hardinfo2"}};
    shown.windows.act("关于_M");
    QTest::mouseClick(shown.widget("cmdSysInfo", &shown.windows.about()), Qt::LeftButton);
    EXPECT_EQ(shown.desktop.started, (std::vector<std::vector<std::string>>{{"/usr/bin/hardinfo2"}}));
}

}  // namespace
}  // namespace corvane
