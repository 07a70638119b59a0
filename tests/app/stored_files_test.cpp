// The files that each earlier version has stored, tests/fixtures/<version>, are read by this one. A new
// version adds its own folder (make_fixtures.py) and takes none away.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "compare/history.h"
#include "core/settings/data_files.h"
#include "core/settings/environment_table.h"
#include "core/tasks/protected_folders.h"
#include "reports/stored_pairs.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using texts = std::vector<std::string>;

std::vector<std::string> versions() {
    std::vector<std::string> names;
    for (const fs::directory_entry& each : fs::directory_iterator(CORVANE_FIXTURES))
        if (each.is_directory() && each.path().filename().string().front() != '_')
            names.push_back(each.path().filename().string());
    return names;
}

// The tree that make_fixtures.py makes, and the stored files of a version in the program's folder.
class StoredFiles : public testing::TestWithParam<std::string> {
  protected:
    StoredFiles() {
        for (const fs::directory_entry& each : fs::directory_iterator(folder_)) {
            std::ifstream file(each.path(), std::ios::binary);
            p.files.add_file("/prog/" + each.path().filename().string(),
                             std::string(std::istreambuf_iterator<char>(file), {}));
        }
        for (int i = 0; i < 502; ++i) {
            std::string number = std::to_string(i);
            number.insert(0, 3 - number.size(), '0');
            p.files.add_file("/mnt/corvane/many/f" + number + ".dat", "number 0" + number);
        }
        for (const std::string& name : pictures_) p.files.add_file(name, std::string(200, 'p'));
        for (const char* name : {"/mnt/corvane/a.zip", "/mnt/corvane/star\uF02A.txt"})
            p.files.add_file(name, "x");
        p.files.add_directory("/mnt/corvane/leer");
        p.files.add_directory("/mnt/corvane/空/内");
    }
    std::string stored(int line) const {
        const texts lines = p.stored_lines("Tavrel环境.txt");
        return lines.at(static_cast<std::size_t>(line) - 1);
    }
    texts column_of(int column) {
        texts cells;
        for (std::int32_t row = 1; row <= p.form.ListView1.row_count(); ++row)
            cells.push_back(std::string(p.form.ListView1.cell(row, column)));
        return cells;
    }

    const std::string folder_ = std::string(CORVANE_FIXTURES) + "/" + GetParam();
    // The line break of a name, as the program's text has it.
    const texts pictures_ = {"/mnt/corvane/备份/line\uF00Abreak.jpg", "/mnt/corvane/备份/夏天 (副本).jpg",
                             "/mnt/corvane/照片/夏天.jpg"};
    test_program p;
};

TEST_P(StoredFiles, EveryFileThatAUserKeepsHasItsFixture) {
    std::set<std::string> there;
    for (const fs::directory_entry& each : fs::directory_iterator(folder_))
        there.insert(each.path().filename().string());
    for (const char* name : data_file::kept) EXPECT_EQ(there.count(name), 1u) << name;
    EXPECT_EQ(there.count(data_file::trail), 1u);
}

TEST_P(StoredFiles, ProtectedFoldersStayProtected) {
    p.corvane.start();
    EXPECT_EQ(p.state.protected_folders, std::set<std::string>{"/mnt/corvane/照片/"});
    EXPECT_FALSE(p.state.protection_unknown);
    EXPECT_TRUE(protection(p.form).covers(pictures_[2]));
    EXPECT_FALSE(protection(p.form).covers(pictures_[1]));
}

TEST_P(StoredFiles, WhatWindowsLookedLikeComesBack) {
    p.corvane.start();
    EXPECT_EQ(p.state.remembered.value("folder.result"), "/mnt/corvane/");
    EXPECT_EQ(p.state.remembered.value("splitter"), "4500");
    EXPECT_EQ(p.state.remembered.value("width.0.2"), "950");
}

TEST_P(StoredFiles, TheSettingsAreReadLineByLine) {
    p.corvane.start();
    EXPECT_TRUE(p.screen.messages.empty()) << p.last_message();
    const run_state& state = p.state;
    // As make_fixtures.py writes them: a number is that of its line, but where the reader mends it.
    const std::set<int> other = {2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 29,
                                 44, 45, 47, 48, 49, 50, 51, 54, 55, 58, 81, 82};
    int numbers = 0;
    for (int line = 1; line <= environment_lines; ++line) {
        const char type = settings_line_type(line);
        if (type == 't' || type == 'd' || other.count(line) != 0) continue;
        // A window that follows is asked for its place at the end of the run, not here.
        EXPECT_EQ(setting_number(state, line), line);
        ++numbers;
    }
    EXPECT_EQ(numbers, 122 - 40 - 2 - 24) << "without texts, dates and the others";
    EXPECT_EQ((std::vector<int>{state.main_left, state.main_top, state.main_width, state.main_height}),
              (std::vector<int>{302, 303, 9004, 9005}));
    EXPECT_EQ(
        (std::vector<int>{state.optform_left, state.optform_top, state.optform_width, state.optform_height}),
        (std::vector<int>{547, 548, 549, 550}));
    EXPECT_EQ((std::vector<int>{state.tip_help_on, state.delete_prompt_on, state.show_error_on,
                                state.same_suffix_only, state.disk_index, state.tree_levels,
                                state.shut_action, state.shutdown_after_task, state.list_font_size,
                                state.show_run_filename, state.scan_archives, state.error_trail_on}),
              (std::vector<int>{1, 0, 1, 0, 0, 3, 4, 0, 33, 1, 1, 0}));
    EXPECT_EQ(state.shutdown_action_text, "关闭计算机.");
    EXPECT_EQ(state.current_dir, "text 1");
    EXPECT_EQ(state.dir_select_path, "text 13");
    EXPECT_EQ(state.find_text, "text 20");
    EXPECT_EQ(state.tree_only_types, "text 38");
    for (int i = 0; i < 29; ++i)
        EXPECT_EQ(state.spare[static_cast<std::size_t>(i)], "text " + std::to_string(94 + i));
    // The days as they were written: 2001-02-03 and 2024-11-30.
    EXPECT_EQ(environment_text(state, 34), "2001-02-03");
    EXPECT_EQ(environment_text(state, 35), "2024-11-30");
    EXPECT_NE(p.form.caption.find("上次使用时间：" + stored(14)), std::string::npos);
    EXPECT_FALSE(state.added.notify_after_task);
    EXPECT_TRUE(state.added.english);
}

TEST_P(StoredFiles, WhatIsReadIsWrittenAgainAsItStood) {
    const texts before = p.stored_lines("Tavrel环境.txt");
    const std::string lists = p.files.content_of("/prog/不参加搜索的目录.txt");
    p.corvane.start();
    p.corvane.close();
    const texts after = p.stored_lines("Tavrel环境.txt");
    ASSERT_EQ(after.size(), 122u);
    // The time of the write, and the tool that start-up looks for.
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (i + 1 == 14 || i + 1 == 56) continue;
        EXPECT_EQ(after[i], before[i]) << "line " << i + 1;
    }
    EXPECT_EQ(p.stored_lines("比较文件_目录清单.txt"), texts{"/mnt/corvane"});
    EXPECT_EQ(p.files.content_of("/prog/不参加搜索的目录.txt"), lists);
}

TEST_P(StoredFiles, SelectionAndOptionListsAreInForce) {
    p.corvane.start();
    EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/mnt/corvane"});
    EXPECT_FALSE(p.corvane.directory_window().visible);
    EXPECT_EQ(p.state.no_dir_count, 18);
    EXPECT_EQ(p.state.no_type_count, 18);
    EXPECT_EQ(p.state.only_type_count, 20);
    EXPECT_EQ(p.state.no_dirs[1], "0/BOOT/") << "0/boot/ in the file";
    EXPECT_EQ(p.state.avoid_files.size(), 1);
    EXPECT_EQ(p.state.avoid_files[1], "/mnt/corvane/many/f007.dat");
}

TEST_P(StoredFiles, TheFileListIsReadWithMembersOfArchives) {
    p.corvane.start();
    p.form.run("Command21_Click");
    EXPECT_EQ(p.state.file_count, 508);
    const texts listed = p.listed();
    EXPECT_EQ(listed.front(), "/mnt/corvane/a.zip");
    // Length, and the checksum of the same ten bytes twenty times over.
    EXPECT_EQ(std::count_if(listed.begin(), listed.end(),
                            [](const std::string& entry) {
                                return entry.starts_with("/mnt/corvane/a.zip*inside.jpg*") &&
                                       entry.ends_with("*200");
                            }),
              1);
    EXPECT_EQ(listed.back(), "/mnt/corvane/照片/夏天.jpg");
}

TEST_P(StoredFiles, TheResultIsShown) {
    p.corvane.start();
    p.form.run("Picture4_Click");
    ASSERT_EQ(p.form.ListView1.row_count(), 3) << p.last_message();
    EXPECT_EQ(column_of(3), texts(3, "/mnt/corvane/a.zip*inside.jpg"));
    texts seconds = column_of(4);
    std::sort(seconds.begin(), seconds.end());
    EXPECT_EQ(seconds, pictures_);
    EXPECT_EQ(column_of(2), texts(3, "200"));
    stored_pair_reader pairs(p.files, "/prog/相同文件.txt");
    stored_pair pair;
    int count = 0;
    while (pairs.next(pair)) count += pair.length == 200 ? 1 : 0;
    EXPECT_EQ(count, 3);
}

TEST_P(StoredFiles, FilesWithoutATwinAndEmptyDirectoriesAreShown) {
    p.corvane.start();
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.state.different_count, 504) << p.last_message();
    // Files .dat are never shown.
    EXPECT_EQ(column_of(4), (texts{"/mnt/corvane/a.zip", "/mnt/corvane/star\uF02A.txt"}));
    p.form.run("Picture7_Click");
    EXPECT_EQ(column_of(2), (texts{"/mnt/corvane/leer/", "/mnt/corvane/空/内/"}));
}

TEST_P(StoredFiles, TheSignaturesAreReadAndBelongToTheContents) {
    history_state history;
    history.history_path = "/prog/run_history.txt";
    ASSERT_TRUE(
        read_history(p.files, history, 4'000'000, {[](std::int32_t) {}, [](std::int32_t) { return true; }}));
    ASSERT_EQ(history.history_count, 504);
    EXPECT_EQ(history.history_name[1], "/mnt/corvane/many/f000.dat");
    EXPECT_EQ(history.history_len[1], 11);
    // The CRC-32 of "number 0000", and 2023-11-14 22:13:20 UTC in units of 100 ns since 1601.
    EXPECT_EQ(history.history_crc[1], 903706841);
    EXPECT_EQ(history.history_date_hi[1], 31070023);
    EXPECT_EQ(history.history_date_lo[1], -965935104);
    std::set<std::string> names;
    for (std::int32_t i = 1; i <= history.history_count; ++i) names.emplace(history.history_name[i]);
    EXPECT_EQ(names.count("/mnt/corvane/many/f007.dat"), 0u) << "it was avoided";
    for (const std::string& name : pictures_) EXPECT_EQ(names.count(name), 1u) << name;
}

TEST_P(StoredFiles, RecordsTrailAndNotesAreThere) {
    p.corvane.start();
    p.form.run("debug_err_anly");
    EXPECT_EQ(p.form.txt_disp_err_file.text, "/mnt/corvane/照片/夏天.jpg");
    EXPECT_EQ(p.stored_lines("run_time_rem.txt").front(), "1000,10");
    p.form.run("notes_m");
    EXPECT_EQ(p.files.content_of("/prog/备记录.txt"), "记下的话\r\n");
}

INSTANTIATE_TEST_SUITE_P(Versions, StoredFiles, testing::ValuesIn(versions()), [](const auto& version) {
    std::string name;
    for (const char unit : version.param) name += unit == '.' ? '_' : unit;
    return "V" + name;
});

TEST(StoredFilesOfVersions, TheFirstOneIsAmongThem) {
    const std::vector<std::string> all = versions();
    EXPECT_NE(std::find(all.begin(), all.end(), "1.0.0"), all.end());
}

}  // namespace
}  // namespace corvane
