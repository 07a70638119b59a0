// Editing the option lists: saving, drops, adding by hand, the entries of the menus.
#include "search/option_list_edit.h"

#include <gtest/gtest.h>

#include "search/options_menu.h"
#include "tests/search/options_program.h"

namespace corvane {
namespace {

TEST(OptionSave, SavingWritesFlagAndTextAndRebuildsTheRunState) {
    options p;
    p.open_with(types_file, "0.Bak\r\n1.tmp\r\n");
    p.window.List2.check(0, true);
    p.window.List2.check(1, false);
    p.screen.answers = {box_answer::no};
    p.run("Command4_Click");
    EXPECT_EQ(p.stored_lines("不参加比较的文件类型.txt"), (texts{"1.Bak", "0.tmp"}));
    EXPECT_EQ(p.state.no_types, (column<std::string>{"1.Bak", "0.tmp"}));
    EXPECT_EQ(p.state.no_type_count, 2);
    EXPECT_EQ(p.state.exclude_type_text, ".BAK ");
    EXPECT_EQ(p.state.exclude_type_length, 5);
}

TEST(OptionSave, EachListHasItsOwnFileAndString) {
    options p;
    p.open();
    p.window.drop_paths({"/d/a b"});
    p.window.drop_types(p.window.List2, ".o");
    p.window.drop_types(p.window.List3, ".jpg");
    p.run("Command4_Click");
    EXPECT_EQ(p.stored_lines("不参加搜索的目录.txt"), texts{"1/d/a b"});
    EXPECT_EQ(p.stored_lines("不参加比较的文件类型.txt"), texts{"1.o"});
    EXPECT_EQ(p.stored_lines("仅搜索的文件类型.txt"), texts{"1.jpg"});
    EXPECT_EQ(p.state.exclude_type_text, ".O ");
    EXPECT_EQ(p.state.only_type_text, ".JPG ");
    EXPECT_EQ(p.state.only_type_length, 5);
    EXPECT_EQ(p.state.only_types, (column<std::string>{"1.jpg"}));
}

TEST(OptionSave, ABlankRowIsNotWrittenAndNamesNothing) {
    options p;
    p.open();
    p.window.drop_types(p.window.List3, ".a\r\n\r\n.b");
    EXPECT_EQ(options::rows(p.window.List3), (texts{"1.a", "1", "1.b"}));
    p.run("Command4_Click");
    EXPECT_EQ(p.stored_lines("仅搜索的文件类型.txt"), (texts{"1.a", "1.b"}));
    EXPECT_EQ(p.state.only_type_text, ".A .B ");
}

TEST(OptionSave, AFailedWriteKeepsTheOldFileAndShowsPathAndReason) {
    options p;
    p.open_with(types_file, "1.old\r\n");
    p.window.drop_types(p.window.List2, ".new");
    p.files.write_failure_path = types_file;
    p.run("Command4_Click");
    EXPECT_EQ(p.files.content_of(types_file), "1.old\r\n");
    EXPECT_EQ(p.screen.messages[0].text, std::string(types_file) + "\r\ndisk full");
    EXPECT_TRUE(p.screen.messages[0].failure);
    EXPECT_EQ(p.state.exclude_type_text, ".OLD .NEW ") << "the search obeys the window all the same";
}

TEST(OptionSave, AnUncheckedRowIsKeptWithZeroAndHasNoEffectOnTheWalk) {
    options p;
    for (const char* path : {"/d/a.jpg", "/d/b.tmp", "/d/skip/c.jpg"}) p.files.add_file(path, "x");
    p.open_with(types_file, "1.tmp\r\n");
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/a.jpg", "/d/skip/c.jpg"}));
    p.window.List2.check(0, false);
    p.run("Command4_Click");
    EXPECT_EQ(p.files.content_of(types_file), "0.tmp\r\n");
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/a.jpg", "/d/b.tmp", "/d/skip/c.jpg"}));
}

TEST(OptionDrops, ADroppedPathIsLeftOutAtOnceWhateverItIsAndTheFileWaits) {
    options p;
    for (const char* path : {"/d/a.jpg", "/d/Skip/c.jpg"}) p.files.add_file(path, "x");
    p.open();
    p.window.drop_paths({"/d/Skip", "/d/Skip", "/d/a.jpg"});
    EXPECT_EQ(options::rows(p.window.List1), (texts{"1/d/Skip", "1/d/Skip", "1/d/a.jpg"}));
    EXPECT_EQ(p.state.no_dirs[1], "1/d/Skip");
    EXPECT_EQ(p.state.no_dir_count, 3);
    EXPECT_EQ(p.files.content_of(dirs_file), "");
    p.search({"/d"});
    EXPECT_EQ(p.listed(), texts{"/d/a.jpg"});
    p.run("Command4_Click");
    p.run("DIR_REFRESH");
    EXPECT_EQ(options::rows(p.window.List1), (texts{"1/D/SKIP/", "1/D/SKIP/", "1/D/A.JPG/"}))
        << "the next read closes them";
}

TEST(OptionDrops, TextIsSplitAtLineEndsAndEachPartCutBeforeItsFirstBlank) {
    options p;
    p.open();
    p.window.drop_types(p.window.List3, ".ani 动画鼠标\r\n.xls Excel工作簿\n.txt\r\n");
    EXPECT_EQ(options::rows(p.window.List3), (texts{"1.ani", "1.xls", "1.txt"}));
    EXPECT_TRUE(p.window.List2.rows().empty());
    EXPECT_EQ(p.state.only_type_text, "") << "a drop of types waits for the button";
}

TEST(OptionDrops, ALineBreakInAnEntryDoesNotSplitALineOfTheFile) {
    options p;
    p.open();
    p.window.drop_paths({"/d/two\nlines", "/d/x\r\n0/y"});
    p.run("Command4_Click");
    EXPECT_EQ(p.stored_lines("不参加搜索的目录.txt"), (texts{"1/d/two lines", "1/d/x  0/y"}));
}

TEST(OptionDrops, AtTheCapacityOfAListAddingStopsAndIsToldOnce) {
    options p;
    p.open();
    texts paths;
    std::string types;
    for (int i = 1; i <= 250; ++i) {
        paths.push_back("/d/" + std::to_string(i));
        types += ".t" + std::to_string(i) + "\r\n";
    }
    p.window.drop_paths({paths.begin(), paths.begin() + 100});
    EXPECT_TRUE(p.screen.messages.empty());
    p.window.drop_paths(paths);
    EXPECT_EQ(p.window.List1.row_count(), 100);
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), std::string(dirs_file) + "\r\n最多 100 行。");
    p.window.drop_types(p.window.List2, types);
    p.window.drop_types(p.window.List3, types);
    EXPECT_EQ(p.window.List2.row_count(), 200);
    EXPECT_EQ(p.window.List3.row_count(), 200);
    EXPECT_EQ(p.screen.messages.size(), 3u);
    p.run("Command4_Click");
    EXPECT_EQ(p.state.no_type_count, 200);
    EXPECT_EQ(p.state.only_types[200], "1.t200");
}

TEST(OptionAddByHand, UpperCaseInputBecomesATypeInSmallLettersOnce) {
    options p;
    p.open();
    p.screen.texts = {"XLS", "XLS"};
    p.run("add_new_no_search_filetype");
    EXPECT_EQ(p.asked(), texts{"输入框|输入新增的<不搜索>的文件类型,如: xls\r\n"});
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.xls"});
    p.window.List2.check(0, false);
    p.run("add_new_no_search_filetype");
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.xls"});
    EXPECT_EQ(p.files.content_of(types_file), "1.xls\r\n");
    EXPECT_EQ(p.state.exclude_type_text, ".XLS ");
}

TEST(OptionAddByHand, TheOtherListHasItsOwnPromptAndFile) {
    options p;
    p.open();
    p.screen.texts = {".Жпг"};
    p.run("add_new_only_search");
    EXPECT_EQ(p.asked(), texts{"输入框|输入新增的<仅搜索>的文件类型,如: xls\r\n"});
    EXPECT_EQ(p.files.content_of(only_file), "1.жпг\r\n");
    EXPECT_EQ(p.files.content_of(types_file), "");
}

TEST(OptionAddByHand, ATypeOfTheListIsFoundWithoutRegardToCaseAndOnlyChecked) {
    options p;
    p.open_with(types_file, "0.XLS\r\n");
    p.screen.texts = {"xls"};
    p.run("add_new_no_search_filetype");
    EXPECT_EQ(p.files.content_of(types_file), "1.XLS\r\n");
}

TEST(OptionAddByHand, AnEmptyBlankOrDismissedAnswerEndsTheCommand) {
    options p;
    p.open_with(types_file, "1.a\r\n");
    p.window.List2.check(0, false);
    p.screen.texts = {"", " ", "   "};
    for (int i = 0; i < 4; ++i) p.run("add_new_no_search_filetype");
    EXPECT_EQ(p.asked().size(), 4u);
    EXPECT_EQ(p.window.List2.row_count(), 1);
    EXPECT_EQ(p.files.content_of(types_file), "1.a\r\n") << "nothing is saved";
}

TEST(OptionAddByHand, AFailedWriteIsTold) {
    options p;
    p.open();
    p.files.write_failure_path = types_file;
    p.screen.texts = {"xls"};
    p.run("add_new_no_search_filetype");
    EXPECT_EQ(p.last_message(), std::string(types_file) + "\r\ndisk full");
}

TEST(OptionMenus, CommonTypesJoinTheListsCutBeforeTheirFirstBlank) {
    options p;
    p.open();
    p.run("add_no_search");
    EXPECT_TRUE(p.window.List2.rows().empty()) << "no row is selected";
    p.window.List4.select(0, true);
    p.run("add_no_search");
    p.window.List4.select(0, false);
    p.window.List4.select(2, true);
    p.run("add_only_search");
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.ani"});
    EXPECT_EQ(options::rows(p.window.List3), texts{"1.txt"});
    EXPECT_EQ(p.files.content_of(types_file), "");
}

TEST(OptionMenus, RemovingTakesTheSelectedRowsNotTheCheckedOnes) {
    options p;
    p.open();
    p.window.drop_paths({"/1", "/2", "/3", "/4"});
    p.window.drop_types(p.window.List2, ".a\r\n.b\r\n.c");
    p.window.drop_types(p.window.List3, ".a\r\n.b\r\n.c");
    for (const std::size_t row : {0u, 2u, 3u}) p.window.List1.select(row, true);
    p.window.List2.select(1, true);
    p.window.List3.select(2, true);
    p.run("move_dir");
    p.run("move_no_search");
    p.run("only_search_move");
    EXPECT_EQ(options::rows(p.window.List1), texts{"1/2"});
    EXPECT_EQ(options::rows(p.window.List2), (texts{"1.a", "1.c"}));
    EXPECT_EQ(options::rows(p.window.List3), (texts{"1.a", "1.b"}));
}

TEST(OptionMenus, AllAndNoneCheckTheRowsOfTheirOwnList) {
    options p;
    p.open();
    p.window.drop_paths({"/1", "/2"});
    p.window.drop_types(p.window.List2, ".a\r\n.b");
    p.window.drop_types(p.window.List3, ".a\r\n.b");
    const list_box* lists[] = {&p.window.List1, &p.window.List2, &p.window.List3};
    const char* none[] = {"dir_all_no_select", "only_search_no_select", "only_search_all_no_select"};
    const char* all[] = {"dir_all_sele", "no_search_all_select", "only_search_all_select"};
    const auto checked = [](const list_box& list) {
        return list.rows()[0].checked && list.rows()[1].checked;
    };
    for (std::size_t i = 0; i < 3; ++i) {
        p.run(none[i]);
        for (std::size_t other = 0; other < 3; ++other) EXPECT_EQ(checked(*lists[other]), other != i) << i;
        p.run(all[i]);
        EXPECT_TRUE(checked(*lists[i])) << i;
    }
}

TEST(OptionMenus, TextEditingOpensTheFileOrSeedsAMissingOneFirst) {
    const texts entries = {"DIR_EDIT",    "modify_no_search", "only_search_edit_text",
                           "edit_common", "look_type_type",   "look_type_itemize"};
    const texts names = {"不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt",
                         "常用文件扩展名.txt",   "文件类型归类.txt",         "文件扩展名列表.txt"};
    const texts seeds = {"c:\\", ".ani", ".ani", ".ani 动画鼠标", ".ani 动画鼠标", ".ani 动画鼠标"};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        options p;
        const std::string path = "/prog/" + names[i];
        p.files.erase(path);
        p.run(entries[i]);
        EXPECT_EQ(p.last_message(), path + " 不存在");
        EXPECT_EQ(p.files.content_of(path), seeds[i] + "\r\n");
        EXPECT_EQ(p.desktop.calls, texts{"open " + path});
        p.files.add_file(path).content = "mine";
        p.run(entries[i]);
        EXPECT_EQ(p.screen.messages.size(), 1u);
        EXPECT_EQ(p.files.content_of(path), "mine");
        EXPECT_EQ(p.desktop.calls.size(), 2u);
    }
}

TEST(OptionMenus, ASeedThatCannotBeWrittenIsToldAndNothingOpens) {
    options p;
    p.files.erase(common_file);
    p.files.write_failure_path = common_file;
    p.run("edit_common");
    EXPECT_EQ(p.last_message(), std::string(common_file) + "\r\ndisk full");
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(OptionMenus, RefreshReadsTheFileAgainAndFillsTheList) {
    options p;
    p.open();
    p.files.add_file(dirs_file).content = "1/d/x\r\n";
    p.files.add_file(types_file).content = "1.x\r\n";
    p.files.add_file(only_file).content = "0.y\r\n";
    p.run("DIR_REFRESH");
    p.run("refresh_no_search");
    p.run("only_search_refresh");
    EXPECT_EQ(options::rows(p.window.List1), texts{"1/D/X/"});
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.x"});
    EXPECT_EQ(options::rows(p.window.List3), texts{"0.y"});
    EXPECT_EQ(p.state.exclude_dir_text, "/D/X/ ");
    EXPECT_EQ(p.state.exclude_type_text, ".X ");
    EXPECT_EQ(p.state.only_type_text, "");
}

TEST(OptionMenus, HelpEntriesOpenTheirTopics) {
    options p;
    for (const char* entry : {"Command5_Click", "no_dir_help", "file_type_help", "no_file_help", "only_help"})
        p.run(entry);
    EXPECT_EQ(p.desktop.calls, (texts{"help aux22_Corvane帮助_Link.htm", "help aux23_Corvane帮助_Link.htm",
                                      "help aux25_Corvane帮助_Link.htm", "help aux26_Corvane帮助_Link.htm",
                                      "help aux27_Corvane帮助_Link.htm"}));
}

TEST(OptionMenus, EveryEntryIsAControlOfTheFormAndDoesSomething) {
    options p;
    std::string list;
    for (const options_menu_entry& entry : options_menus()) {
        ASSERT_NE(p.window.find(entry.name), nullptr) << entry.name;
        EXPECT_EQ(p.window.find(entry.name)->caption, entry.caption);
        const bool heads_a_menu = list != entry.list;
        list = entry.list;
        const bool acts = p.form.has_handler(std::string("Form_no_dire.") + entry.name);
        EXPECT_EQ(acts, !heads_a_menu && std::string(entry.name) != "tip_open") << entry.name;
    }
    EXPECT_FALSE(p.window.find("tip_open")->enabled);
}

}  // namespace
}  // namespace corvane
