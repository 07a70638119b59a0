// The three tables of texts against the models and against what is known of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "tests/support/test_program.h"
#include "ui_text/language_tables.h"

namespace corvane {
namespace {

constexpr language_table all_tables[] = {language_table::chinese, language_table::english,
                                         language_table::machine};

bool is_number(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The fields of the export frame have no design before there is that frame.
bool waits_for_its_frame(std::string_view control, const Tavrel& form) {
    return (control == "Text3" || control == "Text4") && form.find("Frame6") == nullptr;
}

std::string text_of(language_table table, std::string_view form, std::string_view control,
                    std::string_view property) {
    for (const language_row& row : language_rows(table))
        if (row.form == form && row.control == control && row.property == property)
            return std::string(row.text);
    return "no row";
}

TEST(LanguageTables, HaveTheStatedSizesAndWindows) {
    EXPECT_EQ(language_rows(language_table::chinese).size(), 218u);
    EXPECT_EQ(language_rows(language_table::english).size(), 218u);
    EXPECT_EQ(language_rows(language_table::machine).size(), 85u);
    std::set<std::string_view> windows, of_machine;
    for (const language_row& row : language_rows(language_table::english)) windows.insert(row.form);
    for (const language_row& row : language_rows(language_table::machine)) of_machine.insert(row.form);
    EXPECT_EQ(windows, (std::set<std::string_view>{"Tavrel", "frmAbout", "sleep_music", "tree_dir",
                                                   "目录选择", "shut_msg"}));
    EXPECT_EQ(of_machine, std::set<std::string_view>{"Tavrel"});
}

TEST(LanguageTables, EveryRowIsWholeAndNoTextIsSetTwice) {
    for (const language_table table : all_tables) {
        std::set<std::string> seen;
        for (const language_row& row : language_rows(table)) {
            const std::string key =
                std::string(row.form) + "." + std::string(row.control) + "." + std::string(row.property);
            EXPECT_TRUE(row.property == "caption" || row.property == "tooltip") << key;
            // What shows only what happens at the moment has no text in the design.
            const std::set<std::string_view> bare = {"tiptext", "Text_animal", "Text_h", "Text_m"};
            const bool is_bare =
                bare.count(row.control) != 0 || (row.form == "shut_msg" && row.control == "Label1");
            EXPECT_EQ(row.text.empty(), is_bare && table == language_table::chinese) << key;
            EXPECT_EQ(row.text.find('\r'), std::string_view::npos) << key;
            EXPECT_TRUE(seen.insert(key).second) << key;
        }
    }
}

TEST(LanguageTables, TheEnglishTableSetsWhatTheChineseOneSetsInTheSameOrder) {
    const auto chinese = language_rows(language_table::chinese);
    const auto english = language_rows(language_table::english);
    for (std::size_t i = 0; i < chinese.size(); ++i) {
        EXPECT_EQ(chinese[i].form, english[i].form);
        EXPECT_EQ(chinese[i].control, english[i].control);
        EXPECT_EQ(chinese[i].property, english[i].property);
    }
}

TEST(LanguageTables, TheTellingRows) {
    struct telling {
        const char *control, *property, *chinese, *english, *machine;
    };
    const telling rows[] = {
        {"Tavrel", "caption", "Corvane", "Corvane", "Corvane"},
        {"Picture11", "tooltip", "显示不与其它文件相同的文件", "display no same file",
         "demonstration with other document same document"},
        {"Frame4", "caption", "显示内容相同的文件名", "display same context of file",
         "the demonstration content same filename"},
        {"samefile_disp1", "tooltip", "CTRL+左键进入目录资源管理器", "Ctrl+left key into explorer",
         "CTRL left key to enter the table of contents resources supervisor"},
        {"Frame6", "caption", "清单导出选择", "Select of output file_list",
         "The detailed list derives the choice"},
        {"Label6", "caption", "目录层数", "directory layers", "table of contents layer"},
        {"Command32", "caption", "确定", "Ok", "the excel"},
        {"Picture2", "tooltip", "列出选择目录中的全部文件", "List all file of selected directory",
         "to list in the choice table of contents complete"}};
    for (const telling& row : rows) {
        EXPECT_EQ(text_of(language_table::chinese, "Tavrel", row.control, row.property), row.chinese);
        EXPECT_EQ(text_of(language_table::english, "Tavrel", row.control, row.property), row.english);
        EXPECT_EQ(text_of(language_table::machine, "Tavrel", row.control, row.property), row.machine);
    }
}

// 174 numbers from 2016 to 45774, in steps of 198 or a multiple. Where a number is not stated for its row, it
// is 198 above the number before it; stated ones, and the last, make the steps that are longer.
TEST(LanguageTables, TheBareNumbersOfTheEnglishTable) {
    std::vector<int> numbers;
    std::map<std::string, int> of_main;
    for (const language_row& row : language_rows(language_table::english)) {
        if (!is_number(row.text)) continue;
        numbers.push_back(std::stoi(std::string(row.text)));
        if (row.form == "Tavrel")
            of_main[std::string(row.control) + "." + std::string(row.property)] = numbers.back();
    }
    ASSERT_EQ(numbers.size(), 174u);
    EXPECT_EQ(numbers.front(), 2016);
    EXPECT_EQ(numbers.back(), 45774);
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        EXPECT_GT(numbers[i], numbers[i - 1]);
        EXPECT_EQ((numbers[i] - numbers[i - 1]) % 198, 0) << numbers[i];
    }
    EXPECT_EQ(of_main["Picture1.tooltip"], 13698);
    EXPECT_EQ(of_main["StatusBar1.tooltip"], 13896);
    EXPECT_EQ(of_main["Picture4.tooltip"], 14292);
    EXPECT_EQ(of_main["相同文件清单_m.caption"], 17460);
    EXPECT_EQ(of_main["相同文件XLS清单_M.caption"], 17658);
    EXPECT_EQ(of_main["search_in_result.caption"], 18054);
    EXPECT_EQ(of_main["check_para.caption"], 19044);
}

TEST(LanguageTables, TheChineseTableRepeatsTheDesign) {
    test_program p;
    int compared = 0;
    for (const language_row& row : language_rows(language_table::chinese)) {
        const control* target = target_of(row, p.form);
        if (target == nullptr || waits_for_its_frame(row.control, p.form)) continue;
        const std::string& designed = row.property == "tooltip" ? target->tooltip : target->caption;
        EXPECT_EQ(row.text, designed) << row.form << "." << row.control;
        ++compared;
    }
    EXPECT_GT(compared, 90);
}

// Rows of windows and controls that this program does not have. What is listed here may find its target
// later; a row that loses its target is a mistake.
TEST(LanguageTables, TheRowsWithoutATargetAreKnown) {
    test_program p;
    const std::set<std::string> windows = {"tree_dir", "sleep_music", "shut_msg"};
    const std::set<std::string> controls = {
        "Tavrel.Label6",    "Tavrel.Label7",    "Tavrel.Frame6",    "Tavrel.Label1",
        "Tavrel.Label2",    "Tavrel.Command36", "Tavrel.Command34", "Tavrel.Command35",
        "Tavrel.Frame2",    "Tavrel.Frame5",    "Tavrel.Command3",  "Tavrel.Command20",
        "Tavrel.Command12", "Tavrel.Command17", "Tavrel.Command19", "Tavrel.Command23",
        "Tavrel.Command24", "Tavrel.Command1",  "Tavrel.Command2",  "Tavrel.Command4",
        "Tavrel.Command5",  "Tavrel.Command6",  "Tavrel.Command33", "Tavrel.Command29",
        "Tavrel.Command11", "Tavrel.Command25", "Tavrel.Command22", "Tavrel.Command14",
        "Tavrel.Command13", "Tavrel.Command10", "Tavrel.Command15", "Tavrel.Command16",
        "Tavrel.Command21", "Tavrel.Command8",  "Tavrel.Command9",  "Tavrel.Command27",
        "Tavrel.Command18", "Tavrel.try_m",     "Tavrel.yourmenu",  "Tavrel.进入资源管理器_",
        "目录选择.Label3",  "目录选择.Label4",  "目录选择.Label5"};
    for (const language_row& row : language_rows(language_table::chinese)) {
        if (target_of(row, p.form) != nullptr) continue;
        const std::string name = std::string(row.form) + "." + std::string(row.control);
        EXPECT_TRUE(windows.count(std::string(row.form)) + controls.count(name) > 0) << name;
    }
}

TEST(LanguageTables, AfterTheEnglishTablePicture1ShowsTheTip13698) {
    test_program p;
    p.form.run("Command38_Click");
    EXPECT_EQ(p.form.find("Picture1")->tooltip, "13698");
    EXPECT_EQ(p.form.StatusBar1.tooltip, "13896");
    EXPECT_EQ(p.form.find("相同文件清单_m")->caption, "17460");
    EXPECT_EQ(p.corvane.directory_window().caption,
              text_of(language_table::english, "目录选择", "目录选择", "caption"));
}

TEST(LanguageTables, TheMachineTableLeavesWhatItDoesNotName) {
    test_program p;
    p.form.run("Command38_Click");
    p.form.run("Command39_Click");
    EXPECT_EQ(p.form.find("Picture1")->tooltip, "13698");
    EXPECT_EQ(p.form.Frame4.caption, "the demonstration content same filename");
    EXPECT_EQ(p.corvane.directory_window().cmd_dir_firm.caption, "Run");
}

TEST(LanguageTables, TheChineseTableBringsTheDesignBack) {
    test_program p, fresh;
    p.form.run("Command38_Click");
    p.form.run("Command37_Click");
    const auto controls = [](test_program& of) {
        std::map<std::string, std::string> found;
        for (const auto& each : of.form.controls())
            if (!waits_for_its_frame(each->name(), of.form))
                found[each->name()] = each->caption + "|" + each->tooltip;
        return found;
    };
    EXPECT_EQ(controls(p), controls(fresh));
}

TEST(LanguageTables, AfterARestartTheInterfaceIsChinese) {
    test_program p;
    p.add_used_folder();
    ASSERT_TRUE(p.corvane.start());
    p.form.run("Command38_Click");
    p.corvane.close();
    const std::string stored = p.files.content_of("/prog/Tavrel环境.txt");
    EXPECT_EQ(stored.find("13698"), std::string::npos);
    scripted_interface screen;
    program again({p.files, p.desktop, p.desktop, screen, p.encodings, &p.instances}, "/prog/");
    EXPECT_EQ(again.main_form().find("file_m")->caption, "文件(&F)");
}

TEST(LanguageTables, NothingShowsTheButtonsOfTheLanguages) {
    test_program p;
    p.add_used_folder();
    ASSERT_TRUE(p.corvane.start());
    for (const char* name : {"Frame7", "Command37", "Command38", "Command39"}) {
        p.form.run("Command38_Click");
        EXPECT_FALSE(p.form.find(name)->visible) << name;
    }
}

TEST(LanguageTables, TheButtonsStopTheClockOfTheShutdownWarning) {
    for (const char* button : {"Command37_Click", "Command38_Click", "Command39_Click"}) {
        test_program p;
        // A warning of this name with a timer; the one of the program is asked for by the same names.
        form_model* warning = p.form.child("shut_msg");
        form_model own("shut_msg");
        if (warning == nullptr) {
            own.add<timer_control>("Timer1", 1000);
            p.form.add_child(own);
            warning = &own;
        }
        auto* clock = dynamic_cast<timer_control*>(warning->find("Timer1"));
        ASSERT_NE(clock, nullptr);
        clock->interval = 1000;
        p.form.run(button);
        EXPECT_EQ(clock->interval, 0) << button;
    }
}

TEST(LanguageTables, ARoutineAloneStopsNoClockAndKeepsNoTips) {
    test_program p;
    p.form.run("lang_english");
    EXPECT_EQ(p.form.find("Picture1")->tooltip, "13698");
    EXPECT_TRUE(p.corvane.texts().tooltips().tip_store().empty());
}

}  // namespace
}  // namespace corvane
