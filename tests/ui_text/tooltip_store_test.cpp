// The tooltips in one store: their order, off and on, the start, language tables.
#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct tips : test_program {
    explicit tips(const char* setting = " 1 ") {
        std::vector<std::string> lines = fresh_settings_lines();
        lines[7] = setting;
        add_used_folder(lines);
        files.add_directory("/home");
        files.add_file("/prog/比较文件_目录清单.txt", "/home\r\n");
    }
    std::string tip(const char* name) { return form.find(name)->tooltip; }
    const std::vector<std::string>& kept() { return corvane.texts().tooltips().tip_store(); }
    std::vector<std::string> shown() {
        std::vector<std::string> found;
        for (const form_model* window : {static_cast<form_model*>(&form), form.child("目录选择")})
            for (const auto& each : window->controls())
                if (!each->tooltip.empty()) found.push_back(each->tooltip);
        return found;
    }
};

TEST(TooltipStore, TheStartShowsThemWhereTheSettingIsNotZero) {
    for (const char* setting : {" 1 ", "-1 ", " 7 "}) {
        tips p(setting);
        const std::vector<std::string> designed = p.shown();
        ASSERT_TRUE(p.corvane.start());
        EXPECT_EQ(p.state.tips_on, -1) << setting;
        EXPECT_EQ(p.shown(), designed);
        EXPECT_GT(designed.size(), 15u);
    }
}

TEST(TooltipStore, TheStartHidesThemWhereTheSettingIsZero) {
    tips p(" 0 ");
    ASSERT_TRUE(p.corvane.start());
    EXPECT_EQ(p.state.tips_on, 0);
    EXPECT_TRUE(p.shown().empty());
}

TEST(TooltipStore, OffKeepsTheTextsAndOnRestoresThem) {
    tips p;
    ASSERT_TRUE(p.corvane.start());
    const std::vector<std::string> designed = p.shown();
    const std::vector<std::string> kept = p.kept();
    for (int turn = 0; turn < 3; ++turn) {
        p.form.run("tooltiphelp_false");
        EXPECT_TRUE(p.shown().empty());
        EXPECT_EQ(p.kept(), kept);
        p.form.run("tooltiphelp_true");
        EXPECT_EQ(p.shown(), designed);
    }
}

TEST(TooltipStore, TheOrderIsThatOfTheNames) {
    tips p;
    ASSERT_TRUE(p.corvane.start());
    std::vector<std::string> names;
    for (const auto& each : p.form.controls()) names.push_back(each->name());
    std::sort(names.begin(), names.end());
    ASSERT_GT(p.kept().size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(p.kept()[i], p.tip(names[i].c_str())) << names[i];
    // Behind them those of 目录选择 that have one: Command_open, Command_recent, Command_remove, Dir_select,
    // List_disk_sele, Text_path, cmd_dir_firm, list_selected_dir.
    const std::vector<std::string> rest(p.kept().begin() + static_cast<std::ptrdiff_t>(names.size()),
                                        p.kept().end());
    EXPECT_EQ(rest, (std::vector<std::string>{
                        "在目录树中打开或合上这个目录,不选中它(空格键,鼠标中键)", "换成以前选中的一组目录",
                        "移去选中的项目(Delete)", "右键选中,Ctrl+鼠标:多重选;shift 鼠标:区域选.",
                        "右键选中,Ctrl+鼠标:多重选;shift 鼠标:区域选.",
                        "输入或粘贴目录的路径,也可以是几行;回车加入选中目录", "确定并执行查重",
                        "鼠标双击，放弃该目录.支持鼠标拖放,Ctrl+鼠标,多重拖入"}));
}

TEST(TooltipStore, TheOptionTakesEffectAtOnceAndIsStored) {
    tips p;
    ASSERT_TRUE(p.corvane.start());
    p.form.run("select_m_Click");
    control& check = *p.corvane.options_window().checks[1];
    check.value = 0;
    p.form.run("Form_no_dire.Check1_Click");
    EXPECT_EQ(p.tip("Picture2"), "");
    EXPECT_EQ(p.state.tip_help_on, 0);
    check.value = 1;
    p.form.run("Form_no_dire.Check1_Click");
    EXPECT_EQ(p.tip("Picture2"), "列出选择目录中的全部文件");
    check.value = 0;
    p.form.run("Form_no_dire.Check1_Click");
    p.corvane.close();
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[7], " 0 ");
}

TEST(TooltipStore, ASaveWhileTheyAreOffLosesNone) {
    tips p(" 0 ");
    ASSERT_TRUE(p.corvane.start());
    p.form.run("save_tooltips");
    p.form.run("Command39_Click");  // writes some and leaves the others empty
    p.state.tips_on = -1;
    p.form.run("tooltiphelp_true");
    EXPECT_EQ(p.tip("Picture1"), "选择要清理的目录");
    EXPECT_EQ(p.tip("Picture11"), "demonstration with other document same document");
    EXPECT_EQ(p.corvane.directory_window().cmd_dir_firm.tooltip, "确定并执行查重");
}

TEST(TooltipStore, AfterALanguageTableOnRestoresTheTextsOfTheTable) {
    tips p;
    ASSERT_TRUE(p.corvane.start());
    p.form.run("Command38_Click");
    p.form.run("tooltiphelp_false");
    EXPECT_EQ(p.tip("Picture1"), "");
    p.form.run("tooltiphelp_true");
    EXPECT_EQ(p.tip("Picture1"), "13698");
}

TEST(TooltipStore, ATextThatTheTableEmptiesWhileTheyAreOnIsGone) {
    tips p;
    ASSERT_TRUE(p.corvane.start());
    p.form.find("Picture1")->tooltip.clear();
    p.form.run("save_tooltips");
    p.form.run("tooltiphelp_true");
    EXPECT_EQ(p.tip("Picture1"), "");
}

}  // namespace
}  // namespace corvane
