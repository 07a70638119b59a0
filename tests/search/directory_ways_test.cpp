// Ways into the directory window: a typed path, keys, earlier selections; and what lies in what.
#include <gtest/gtest.h>

#include "core/tasks/protected_folders.h"
#include "search/nested_rows.h"
#include "tests/search/choosing.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;

constexpr char store[] = "/prog/最近的目录.txt";
constexpr char aside[] = "/prog/最近的目录.旧.txt";
constexpr char head[] = "Corvane recent directories 1\r\n";

struct ways : choosing {
    ways() { form.run("Picture1_Click"); }
    void type(const std::string& words) {
        window.Text_path.text = words;
        form.run("目录选择.Command_path_Click");
    }
    void confirm(const texts& directories) {
        form.run("Picture1_Click");
        window.clear_list();
        window.add_paths(directories);
        form.run("目录选择.Command34_Click");
    }
    texts recent() {
        form.run("目录选择.Command_recent_Click");
        texts rows;
        for (const list_box::row& each : window.List_recent.rows()) rows.push_back(each.text);
        return rows;
    }
    void choose_recent(std::size_t row) {
        form.run("目录选择.Command_recent_Click");
        window.List_recent.select_only(row);
        form.run("目录选择.List_recent_Click");
    }
};

TEST(DirectoryWays, ATypedPathJoinsTheListAndTheBoxIsEmpty) {
    ways w;
    w.type("/d/1");
    w.type("'/d/2'\nfile:///media/card");
    EXPECT_EQ(w.list(), (texts{"/d/1", "/d/2", "/media/card"}));
    EXPECT_EQ(w.window.Text_path.text, "");
    EXPECT_TRUE(w.screen.messages.empty());
}

TEST(DirectoryWays, WhatIsNoDirectoryIsToldAndStaysToBeMended) {
    ways w;
    w.files.add_file("/d/file");
    w.type("/d/file");
    EXPECT_EQ(w.last_message(), "/d/file  不是目录");
    EXPECT_EQ(w.window.Text_path.text, "/d/file");
    w.type("/d/1\n/gone");
    EXPECT_EQ(w.last_message(), "/gone  不是目录");
    EXPECT_EQ(w.list(), texts{"/d/1"});
    EXPECT_EQ(w.window.Text_path.text, "") << "one of them has been taken";
}

TEST(DirectoryWays, APickOnItsWayArrivesBeforeATypedPath) {
    ways w;
    w.press(mouse_button::right, 0, 3);
    w.type("/d/1");
    EXPECT_EQ(w.list(), (texts{"/d/3", "/d/1"}));
}

TEST(DirectoryWays, TheBlankOpensAndPicksNothingEnterAndInsertPick) {
    ways w;
    w.window.Dir_select.text = "/d/1";
    const auto key = [&](int code) {
        w.form.list_event = {};
        w.form.list_event.key_code = code;
        w.form.run("目录选择.Dir_select_KeyDown");
        w.fly();
    };
    key(32);
    EXPECT_TRUE(w.window.tree_toggles);
    EXPECT_EQ(w.list(), texts{});
    w.window.tree_toggles = false;
    key(13);
    EXPECT_EQ(w.list(), texts{"/d/1"});
    w.window.Dir_select.text = "/d/2";
    key(45);
    EXPECT_EQ(w.list(), (texts{"/d/1", "/d/2"}));
    key(65);
    EXPECT_EQ(w.list().size(), 2u);
    EXPECT_FALSE(w.window.tree_toggles);
    w.form.run("目录选择.Command_open_Click");
    EXPECT_TRUE(w.window.tree_toggles);
}

TEST(DirectoryWays, TheButtonTakesTheSelectedRowsAway) {
    ways w;
    w.window.add_paths({"/d/0", "/d/1", "/d/2"});
    w.window.list_selected_dir.select(0, true);
    w.window.list_selected_dir.select(2, true);
    w.form.run("目录选择.Command_remove_Click");
    EXPECT_EQ(w.list(), texts{"/d/1"});
}

TEST(NestedRows, OneLineNamesTheFirstRowThatLiesInAnotherOne) {
    const auto row = [](const char* text, bool checked = false) {
        return list_box::row{text, false, checked, {}};
    };
    EXPECT_EQ(nested_line({row("/a"), row("/ab"), row("/b")}, '/'), "");
    EXPECT_EQ(nested_line({row("/a/b/c"), row("/a")}, '/'), "/a/b/c 在 /a 之内,随它一起搜索");
    EXPECT_EQ(nested_line({row("/"), row("/b")}, '/'), "/b 在 / 之内,随它一起搜索");
    EXPECT_EQ(nested_line({row("/a/x"), row("/a"), row("/a/y"), row("/a/x/z"), row("/c")}, '/'),
              "/a/x 在 /a 之内,随它一起搜索; 这样的目录共 3 个");
    // A sign that sorts before the separator must not hide what lies in the directory.
    EXPECT_EQ(nested_line({row("/a"), row("/a-b"), row("/a/c")}, '/'), "/a/c 在 /a 之内,随它一起搜索");
    EXPECT_EQ(nested_line({row("/a"), row("/a/")}, '/'), "") << "the same directory, not one in another";
    EXPECT_EQ(nested_line({row("/a"), row("/a/b", true)}, '/'), "") << "there for its protection";
    EXPECT_EQ(nested_line({row("C:\\a"), row("C:\\a\\b")}, '\\'), "C:\\a\\b 在 C:\\a 之内,随它一起搜索");
}

TEST(DirectoryWays, TheLineFollowsTheListAndStaysAfterTheConfirmation) {
    ways w;
    w.files.add_directory("/d/1/in");
    const std::string line = "/d/1/in 在 /d/1 之内,随它一起搜索";
    w.window.add_paths({"/d/1"});
    EXPECT_EQ(w.window.Label_nested.caption, "");
    w.window.add_paths({"/d/1/in"});
    EXPECT_EQ(w.window.Label_nested.caption, line);
    w.window.remove_row(0);
    EXPECT_EQ(w.window.Label_nested.caption, "");
    w.window.add_paths({"/d/1"});
    w.form.run("目录选择.Command34_Click");
    EXPECT_EQ(w.state.selected_dir_count, 1);
    EXPECT_EQ(w.window.Label_nested.caption, line) << "what has been taken out of the list";
    w.form.run("Picture1_Click");
    EXPECT_EQ(w.window.Label_nested.caption, "");
}

TEST(RecentSets, EachSelectionComesFirstOnceAndIsWritten) {
    ways w;
    w.confirm({"/d/1"});
    w.confirm({"/d/3", "/d/2"});
    EXPECT_EQ(w.recent(), (texts{"/d/2 等 2 个目录", "/d/1"}));
    w.confirm({"/d/1"});
    EXPECT_EQ(w.recent(), (texts{"/d/1", "/d/2 等 2 个目录"}));
    EXPECT_EQ(w.files.content_of(store), std::string(head) + " 2 \r\n 1 \r\n/d/1\r\n 2 \r\n/d/2\r\n/d/3\r\n");
    EXPECT_EQ(w.window.List_recent.rows()[1].tooltip, "/d/2\r\n/d/3");
}

TEST(RecentSets, OnlyTheLatestAreKept) {
    ways w;
    for (int i = 0; i < 15; ++i) {
        w.files.add_directory("/n/" + std::to_string(i));
        w.confirm({"/n/" + std::to_string(i)});
    }
    EXPECT_EQ(w.recent().size(), recent_sets::most_sets);
    EXPECT_EQ(w.recent().front(), "/n/14");
    EXPECT_EQ(w.recent().back(), "/n/3");
}

TEST(RecentSets, AChosenSetTakesTheListAndWhatIsGoneIsTold) {
    ways w;
    w.files.add_file(store, std::string(head) + " 2 \r\n 2 \r\n/d/2\r\n/gone\r\n 1 \r\n/lost\r\n");
    w.window.add_paths({"/d/5"});
    w.choose_recent(0);
    EXPECT_EQ(w.list(), texts{"/d/2"});
    EXPECT_EQ(w.last_message(), "/gone  不是目录");
    w.choose_recent(1);
    EXPECT_EQ(w.list(), texts{"/d/2"}) << "a set of which nothing is left empties no list";
    EXPECT_EQ(w.last_message(), "/lost  不是目录");
    w.form.run("目录选择.cmd_dir_discard_Click");
    EXPECT_EQ(w.list(), texts{}) << "as it was when the window opened";
}

TEST(RecentSets, NothingIsChosenWithoutASelectedRow) {
    ways w;
    w.window.add_paths({"/d/5"});
    w.form.run("目录选择.List_recent_Click");
    EXPECT_EQ(w.list(), texts{"/d/5"});
}

// A file, how many sets of it are taken, and whether that is all of it.
struct stored_case {
    std::string content;
    std::size_t sets;
    bool whole;
};

TEST(RecentSets, AHostileFileLosesNothingAndIsToldOnce) {
    const std::string good = " 1 \r\n/d/1\r\n";
    const stored_case cases[] = {
        {std::string(head) + " 1 \r\n" + good, 1, true},
        {std::string(head) + " 2 \r\n" + good, 1, false},
        {std::string(head) + " 1 \r\n" + good + good, 1, false},
        {std::string(head) + " 2 \r\n" + good + " 3 \r\n/d/2\r\n", 1, false},
        {std::string(head) + " 1 \r\n 1 \r\nrelative\r\n", 0, false},
        {std::string(head) + " 99999999999999999999 \r\n" + good, 0, false},
        {std::string(head) + " 13 \r\n" + good, 0, false},
        {std::string(head) + " 1 \r\n 4000000 \r\n/d/1\r\n", 0, false},
        {std::string(head) + " 1 \r\n-1 \r\n/d/1\r\n", 0, false},
        {"Corvane recent directories 2\r\n 1 \r\n" + good, 0, false},
        {std::string("\0\xFF\r\n", 4), 0, false},
        {"", 0, false},
        {std::string(3'000'000, 'x'), 0, false},
    };
    for (const stored_case& each : cases) {
        SCOPED_TRACE(each.content.substr(0, 60));
        ways w;
        w.files.add_file(store, each.content);
        EXPECT_EQ(w.recent().size(), each.sets);
        EXPECT_EQ(w.recent().size(), each.sets);
        EXPECT_EQ(w.screen.messages.size(), each.whole ? 0u : 1u);
        w.confirm({"/d/4"});
        EXPECT_EQ(w.recent().front(), "/d/4");
        EXPECT_EQ(w.recent().size(), each.sets + 1);
        EXPECT_EQ(w.files.has(aside), !each.whole);
        w.confirm({"/d/5"});
        if (each.whole) continue;
        EXPECT_EQ(w.files.content_of(aside), each.content) << "put aside once";
    }
}

TEST(RecentSets, WhatCannotBePutAsideIsNotWrittenOver) {
    ways w;
    w.files.add_file(store, "of another version");
    w.files.write_failure_path = aside;
    w.confirm({"/d/1"});
    EXPECT_EQ(w.files.content_of(store), "of another version");
    EXPECT_EQ(w.last_message(), std::string(store) + "\r\n最近用过的目录没有保存。");
    EXPECT_EQ(w.state.selected_dir_count, 1) << "the selection itself stands";
}

TEST(RecentSets, AFullDiskIsToldAndTheOldFileStays) {
    ways w;
    w.confirm({"/d/1"});
    const std::string before = w.files.content_of(store);
    w.files.write_failure_path = store;
    w.confirm({"/d/2"});
    EXPECT_EQ(w.files.content_of(store), before);
    EXPECT_EQ(w.last_message(), std::string(store) + "\r\ndisk full");
    EXPECT_EQ(w.recent().front(), "/d/2");
}

struct dropping : choosing {
    void drop(const std::string& text, bool ctrl = false) {
        form.find("Text_given")->text = text;
        form.list_event = {};
        form.list_event.ctrl = ctrl;
        form.run("drop_directories");
    }
    void paste(const std::string& text) {
        form.find("Text_given")->text = text;
        form.run("paste_directories");
    }
    texts selected() const { return {state.selected_dirs.begin(), state.selected_dirs.end()}; }
};

TEST(DroppedDirectories, TakeThePlaceOfTheSelectionWithCtrlAndPastedOnesJoinIt) {
    dropping d;
    d.files.add_file("/d/file");
    d.drop("file:///d/1\nfile:///d/file");
    EXPECT_EQ(d.selected(), texts{"/d/1"});
    d.drop("/d/3\n/d/2");
    EXPECT_EQ(d.selected(), (texts{"/d/2", "/d/3"}));
    d.drop("/d/1", true);
    EXPECT_EQ(d.selected(), (texts{"/d/1", "/d/2", "/d/3"}));
    d.paste("/d/5");
    EXPECT_EQ(d.selected(), (texts{"/d/1", "/d/2", "/d/3", "/d/5"}));
    EXPECT_TRUE(d.screen.messages.empty());
    EXPECT_EQ(d.form.StatusBar1.panel(7), "目录选择");
    EXPECT_FALSE(d.window.visible);
}

TEST(DroppedDirectories, WithoutADirectoryNothingChangesAndThatIsSaid) {
    dropping d;
    d.select({"/d/1"});
    d.files.add_file("/d/file");
    d.drop("file:///d/file\nhttp://example.org/");
    EXPECT_EQ(d.last_message(), "没有可选中的目录。\r\nhttp://example.org/\r\n/d/file");
    EXPECT_EQ(d.selected(), texts{"/d/1"});
    d.paste("");
    EXPECT_EQ(d.last_message(), "没有可选中的目录。\r\n");
    EXPECT_EQ(d.selected(), texts{"/d/1"});
}

TEST(DroppedDirectories, JoinTheListOfAnOpenWindowAndLeaveTheSelection) {
    dropping d;
    d.select({"/d/1"});
    d.form.run("Picture1_Click");
    d.drop("/d/2");
    EXPECT_EQ(d.list(), (texts{"/d/1", "/d/2"}));
    EXPECT_EQ(d.selected(), texts{"/d/1"});
    d.form.run("目录选择.Command34_Click");
    EXPECT_EQ(d.selected(), (texts{"/d/1", "/d/2"}));
}

TEST(DroppedDirectories, WaitForTheEndOfATask) {
    dropping d;
    d.select({"/d"});
    d.files.add_file("/d/0/a");
    d.files.add_file("/d/0/b");
    texts during;
    d.screen.acts[1] = [&] {
        d.drop("/d/2");
        d.paste("/d/3");
        during = d.selected();
    };
    d.form.run("picture2_Click");
    EXPECT_EQ(during, texts{"/d"}) << "a walk goes on over what it began with";
    EXPECT_EQ(d.selected(), (texts{"/d/2", "/d/3"})) << "the drop takes the place, the paste joins it";
    ASSERT_FALSE(d.screen.messages.empty());
    EXPECT_EQ(d.screen.messages.front().text, "正在运行任务,任务结束后选中这些目录。");
}

TEST(DroppedDirectories, AreLeftAloneByAProgramThatCloses) {
    dropping d;
    d.select({"/d"});
    d.files.add_file("/d/0/a");
    d.screen.acts[1] = [&] {
        d.corvane.close();
        d.drop("/d/2");
    };
    d.form.run("picture2_Click");
    EXPECT_EQ(d.selected(), texts{"/d"});
}

TEST(DroppedDirectories, ConfirmNoProtection) {
    dropping d;
    const std::string broken = "Corvane protected folders 1\r\n 2 \r\n/d/1/\r\n";
    d.files.add_file("/prog/受保护的目录.txt", broken);
    read_protected_folders(d.form);
    ASSERT_TRUE(d.state.protection_unknown);
    d.drop("/d/2");
    d.paste("/d/3");
    EXPECT_EQ(d.selected(), (texts{"/d/2", "/d/3"}));
    EXPECT_TRUE(d.state.protection_unknown) << "nobody has looked at the checks";
    EXPECT_EQ(d.files.content_of("/prog/受保护的目录.txt"), broken);
    EXPECT_TRUE(protection(d.form).covers("/anything"));
    d.form.run("Picture1_Click");
    d.form.run("目录选择.Command34_Click");
    EXPECT_FALSE(d.state.protection_unknown) << "this is the user's own act";
}

TEST(DroppedDirectories, KeepWhatIsProtected) {
    dropping d;
    d.state.protected_folders = {"/d/1/"};
    d.drop("/d/1");
    EXPECT_EQ(d.state.protected_folders, std::set<std::string>{"/d/1/"});
    EXPECT_TRUE(d.window.list_selected_dir.rows()[0].checked);
}

}  // namespace
}  // namespace corvane
