// The about box: texts, the system's information tool, the web page.
#include <gtest/gtest.h>

#include "app/version.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using arguments = std::vector<std::string>;

TEST(About, TheMenuShowsNameAndVersion) {
    test_program p;
    about_form& about = p.corvane.texts().about();
    EXPECT_FALSE(about.visible);
    p.form.run("关于_M");
    EXPECT_TRUE(about.visible);
    EXPECT_EQ(about.caption, "关于 Corvane ");
    EXPECT_EQ(about.lblTitle.caption, "Corvane");
    EXPECT_EQ(about.lblVersion.caption, std::string("版本 ") + program_version);
    EXPECT_EQ(std::count(about.lblVersion.caption.begin(), about.lblVersion.caption.end(), '.'), 2);
    p.form.run("frmAbout.cmdOK_Click");
    EXPECT_FALSE(about.visible);
}

TEST(About, ItIsOneOfTheWindowsThatFollow) {
    test_program p;
    p.state.aboutpos_left = 300;
    p.state.aboutpos_top = 400;
    p.state.aboutpos_width = 6000;
    p.state.aboutpos_height = 5000;
    p.form.run("关于_M");
    EXPECT_EQ(p.corvane.texts().about().place, (rectangle{300, 400, 6000, 5000}));
    EXPECT_TRUE(p.form.Timer2.enabled);
}

TEST(About, TheLibrariesAreToldWithLicenceAndSource) {
    test_program p;
    about_form& about = p.corvane.texts().about();
    about.set_libraries({{"A", "1.2", "Those", "LGPL", "there"}, {"B", "3", "These", "GPL", "here"}});
    EXPECT_EQ(about.Text1.text,
              "A 1.2\r\n版权：Those\r\n许可：LGPL\r\n源代码：there\r\n\r\nB "
              "3\r\n版权：These\r\n许可：GPL\r\n源代码：here");
}

TEST(About, AFrontEndSaysHowItsLibrariesAreReplaced) {
    test_program p;
    about_form& about = p.corvane.texts().about();
    const std::string usual = about.Label5.caption;
    about.set_libraries({});
    p.form.run("关于_M");
    EXPECT_EQ(about.Label5.caption, usual);
    about.set_libraries({}, "so");
    // The Chinese table has words of its own for it.
    p.form.run("Command37_Click");
    p.form.run("关于_M");
    EXPECT_EQ(about.Label5.caption, "so");
}

TEST(SystemInformation, TheFirstToolOfTheMachineIsStarted) {
    test_program p;
    p.desktop.programs = {{"kinfocenter", "/usr/bin/kinfocenter"}, {"hardinfo", "/usr/bin/hardinfo"}};
    p.form.run("frmAbout.cmdSysInfo_Click");
    EXPECT_EQ(p.desktop.started, std::vector<arguments>{{"/usr/bin/hardinfo"}});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(SystemInformation, AToolThatShowsMoreIsToldWhichPage) {
    test_program p;
    p.desktop.programs = {{"gnome-control-center", "/usr/bin/gnome-control-center"}};
    p.form.run("frmAbout.cmdSysInfo_Click");
    EXPECT_EQ(p.desktop.started,
              (std::vector<arguments>{{"/usr/bin/gnome-control-center", "info-overview"}}));
}

TEST(SystemInformation, WithoutAToolTheMessageAndNothingStarts) {
    test_program p;
    p.form.run("frmAbout.cmdSysInfo_Click");
    EXPECT_EQ(p.last_message(), "此时系统信息不可用");
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(SystemInformation, AToolThatIsNoLongerThereGivesTheSameMessage) {
    test_program p;
    p.desktop.programs = {{"hardinfo", "/usr/bin/hardinfo"}};
    p.desktop.on_start = [](const arguments&) { return false; };
    p.form.run("frmAbout.cmdSysInfo_Click");
    EXPECT_EQ(p.last_message(), "此时系统信息不可用");
}

// A program whose web page is configured: the window alone, for the page is a choice of whoever builds.
TEST(WebPage, ADoubleClickOnEitherLinkOpensIt) {
    test_program p;
    about_form about(p.form, "1.2.3", "https://example.org/corvane");
    EXPECT_TRUE(about.Label2.visible);
    EXPECT_EQ(about.Label2.tooltip, "双击进入");
    EXPECT_EQ(about.Label4.tooltip, "双击进入");
    p.form.bind(about.handlers());
    p.form.run("frmAbout.Label2_DblClick");
    p.form.run("frmAbout.Label4_DblClick");
    EXPECT_EQ(p.desktop.calls,
              (arguments{"open https://example.org/corvane", "open https://example.org/corvane"}));
}

TEST(WebPage, WithoutOneTheLinksAreHidden) {
    test_program p;
    about_form about(p.form, "1.2.3", "");
    EXPECT_FALSE(about.Label2.visible);
    EXPECT_FALSE(about.Label4.visible);
    EXPECT_FALSE(about.open_web_page());
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(WebPage, ABrowserThatFailsIsReported) {
    test_program p;
    about_form about(p.form, "1.2.3", "https://example.org/corvane");
    p.desktop.answer = outcome::failure("没有可以打开它的程序。");
    EXPECT_TRUE(about.open_web_page());
    EXPECT_EQ(p.last_message(), "没有可以打开它的程序。");
}

}  // namespace
}  // namespace corvane
