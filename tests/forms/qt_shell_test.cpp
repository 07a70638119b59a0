// The shell of the windows: the clipboard and the help are its own, all else is the desktop's.
#include "forms/qt_shell.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

#include "tests/support/scripted_interface.h"

namespace corvane {
namespace {

struct shell_over_desktop {
    recording_shell& desktop = *new recording_shell;
    qt_shell shell{std::unique_ptr<corvane::shell>(&desktop)};
};

TEST(qt_shell, what_is_the_desktops_goes_to_it_and_its_answer_comes_back) {
    shell_over_desktop over;
    EXPECT_TRUE(over.shell.recycle("/a"));
    EXPECT_TRUE(over.shell.open_document("/b"));
    EXPECT_TRUE(over.shell.show_in_file_manager("/c"));
    EXPECT_TRUE(over.shell.show_properties("/d"));
    EXPECT_TRUE(over.shell.open_power_settings());
    EXPECT_TRUE(over.shell.send_keys("{F3}"));
    EXPECT_EQ(over.desktop.calls, (std::vector<std::string>{"recycle /a", "open /b", "select /c",
                                                            "properties /d", "power_settings", "keys {F3}"}));
    over.desktop.programs = {{"7z", "/usr/bin/7z"}};
    EXPECT_EQ(over.shell.find_program("7z"), "/usr/bin/7z");
    EXPECT_TRUE(over.shell.start_process({"/usr/bin/7z", "d"}));
    EXPECT_EQ(over.desktop.started, (std::vector<std::vector<std::string>>{{"/usr/bin/7z", "d"}}));
    over.desktop.answer = outcome::failure("full");
    EXPECT_EQ(over.shell.recycle("/a").reason, "full");
}

TEST(qt_shell, the_clipboard_is_that_of_the_windows) {
    shell_over_desktop over;
    EXPECT_TRUE(over.shell.set_clipboard("D:\\照片"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("D:\\照片"));
    EXPECT_TRUE(over.desktop.calls.empty());
}

TEST(qt_shell, without_a_window_of_its_own_the_help_is_the_desktops) {
    shell_over_desktop over;
    EXPECT_TRUE(over.shell.open_help_topic("/p/help.chm", "page"));
    EXPECT_EQ(over.desktop.calls, (std::vector<std::string>{"help page"}));
    QString shown;
    over.shell.show_help = [&shown](const QString& page) {
        shown = page;
        return outcome::success();
    };
    EXPECT_TRUE(over.shell.open_help_topic("/p/help.chm", "other"));
    EXPECT_EQ(shown, QStringLiteral("other"));
    EXPECT_EQ(over.desktop.calls.size(), 1u);
}

}  // namespace
}  // namespace corvane
