// Whole stories in which one call to the outside fails, for every call: nothing crashes, the tasks are free
// afterwards, no content is lost, and the stores are whole.
#include <gtest/gtest.h>

#include <functional>

#include "tests/campaign/small_world.h"

namespace corvane {
namespace {

using story = std::function<void(small_world&)>;

void mark_all_second(small_world& w) {
    list_view& list = w.form.ListView1;
    if (!list.visible || list.column_count() < 5) return;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) list.set_colour(row, 4, cell_colour::mark_red);
}

void search_and_compare(small_world& w) {
    w.select({"/d", "/e", "/mnt", "/upper", "/merged"});
    w.form.run("search_check_m_Click");
}

void delete_to_bin(small_world& w) {
    search_and_compare(w);
    mark_all_second(w);
    w.screen.answers = {box_answer::yes, box_answer::yes};
    w.form.run("Picture5_Click");
    w.screen.answers = {box_answer::yes, box_answer::no};
    w.form.run("Picture5_Click");
}

void delete_for_good(small_world& w) {
    search_and_compare(w);
    mark_all_second(w);
    // Every first path, too: the last one of each star must stay.
    for (std::int32_t row = 1; row <= w.form.ListView1.row_count() && w.form.ListView1.column_count() > 4;
         ++row)
        w.form.ListView1.set_colour(row, 3, cell_colour::mark_red);
    w.screen.answers = {box_answer::yes};
    w.form.run("Command45_Click");
}

void show_stored_and_delete(small_world& w) {
    search_and_compare(w);
    w.form.run("Picture11_Click");
    w.form.run("Picture4_Click");
    delete_to_bin(w);
}

void empty_directories(small_world& w) {
    w.select({"/d", "/e"});
    w.form.run("Picture6_Click");
    for (std::int32_t row = 1; row <= w.form.ListView1.row_count() && w.state.list_mode == 1; ++row)
        w.form.ListView1.set_colour(row, 2, cell_colour::mark_red);
    w.form.run("Picture8_Click");
}

void names(small_world& w) {
    w.select({"/d", "/e"});
    w.form.run("mnu_same_filename_Click");
    w.form.run("search_repeat_dir_name_Click");
}

void archives(small_world& w) {
    w.state.scan_archives = 1;
    delete_to_bin(w);
    delete_for_good(w);
}

void archive_members(small_world& w) {
    w.state.scan_archives = 1;
    w.state.rar_tool_path = "/usr/bin/7zz";
    search_and_compare(w);
    list_view& list = w.form.ListView1;
    for (std::int32_t row = 1; row <= list.row_count() && list.column_count() > 4; ++row)
        if (list.cell(row, 4).find('*') != std::string::npos) list.set_colour(row, 4, cell_colour::mark_red);
    w.screen.answers = {box_answer::yes};
    w.form.run("Command45_Click");
}

// Everything that the desktop and the boxes are asked for from a list.
void desktop_acts(small_world& w) {
    w.state.scan_archives = 1;
    search_and_compare(w);
    list_view& list = w.form.ListView1;
    for (std::int32_t row = 1; row <= list.row_count() && list.column_count() > 4; ++row)
        for (const int column : {3, 4}) {
            list.selected_row = row;
            w.form.list_event = {};
            for (int before = 0; before < column; ++before)
                w.form.list_event.x += list.columns()[static_cast<std::size_t>(before)].width;
            ++w.form.list_event.x;
            for (const char* act : {"ListView1_MouseDown", "open_same_file", "double_disp", "mnu_enter_dir",
                                    "disp_same_file_attr", "same_time_open_2file"})
                w.form.run(act);
        }
    w.screen.texts = {"a", "a", "*.txt", "*.zip"};
    for (const char* act : {"search_in_result", "again_search", "only_disp", "result_refresh", "not_list"})
        w.form.run(act);
}

void exports(small_world& w) {
    w.state.scan_archives = 1;
    w.select({"/d", "/e"});
    w.form.run("picture2_Click");
    w.form.run("Command33_Click");
    w.form.run("文件清单_M");
    w.form.run("tree_select_m");
    tree_form& tree = w.corvane.tree_window();
    tree.texts[1]->text = "9";
    tree.checks[1]->value = tree.checks[3]->value = 1;
    w.form.run("tree_dir.Text7_DblClick");
    w.form.run("tree_dir.Command1_Click");
    w.form.run("Picture3_Click");
    w.form.run("Command9_Click");
    w.form.run("Command33_Click");
}

struct named_story {
    const char* name;
    story tell;
    // What it takes away when nothing fails: to the recycle bin, and for good.
    std::size_t recycled;
    std::size_t removed;
    std::size_t members = 0;  // out of archives
    // What it asks of the ports beside the disk, at least: desktop, boxes.
    std::int64_t desktop_calls = 0;
    std::int64_t boxes = 0;
};

class Faults : public testing::TestWithParam<named_story> {
  protected:
    static void fail_each(std::int64_t calls, const std::function<fault_counter&(small_world&)>& port);
};

std::string verdict(const small_world& w) {
    std::string words;
    for (const std::string& content : w.lost()) words += "lost: " + content + "\n";
    if (w.form.task_runs() || w.state.tasks_locked) words += "locked\n";
    if (const std::string broken = w.broken_store(); !broken.empty()) words += "broken: " + broken + "\n";
    return words;
}

// The story again and again, with the n-th of the port's calls failing, and with all behind it failing, too.
void Faults::fail_each(std::int64_t calls, const std::function<fault_counter&(small_world&)>& port) {
    for (const bool for_good : {false, true})
        for (std::int64_t n = 1; n <= calls; ++n) {
            small_world w;
            port(w).fail_at(n, for_good);
            GetParam().tell(w);
            ASSERT_EQ(verdict(w), "") << "call " << n << (for_good ? " and all behind it" : "");
        }
}

TEST_P(Faults, EveryCallToTheDiskMayFailOnceOrForGood) {
    small_world well;
    GetParam().tell(well);
    ASSERT_EQ(verdict(well), "") << "without a fault";
    EXPECT_EQ(well.recycled.size(), GetParam().recycled);
    EXPECT_EQ(well.disk.removed.size(), GetParam().removed);
    EXPECT_EQ(well.members_gone, GetParam().members);
    ASSERT_GT(well.files.faults.calls(), 20);
    fail_each(well.files.faults.calls(), [](small_world& w) -> fault_counter& { return w.files.faults; });
}

// The recycle bin, the archive tool, the programs that open documents, the clipboard.
TEST_P(Faults, EveryCallToTheDesktopMayFail) {
    small_world well;
    GetParam().tell(well);
    const std::int64_t calls = well.desktop.faults.calls();
    EXPECT_GE(calls, GetParam().desktop_calls);
    fail_each(calls, [](small_world& w) -> fault_counter& { return w.desktop.faults; });
}

TEST_P(Faults, EveryQuestionMayBeDismissed) {
    small_world well;
    GetParam().tell(well);
    const std::int64_t boxes = well.screen.faults.calls();
    EXPECT_GE(boxes, GetParam().boxes);
    fail_each(boxes, [](small_world& w) -> fault_counter& { return w.screen.faults; });
}

TEST_P(Faults, EveryNameInAnArchiveMayBeUnreadable) {
    small_world well;
    GetParam().tell(well);
    const std::int64_t names = well.encodings.faults.calls();
    EXPECT_EQ(names > 0, well.state.scan_archives == 1);
    fail_each(names, [](small_world& w) -> fault_counter& { return w.encodings.faults; });
}

// By hand: of the copies of "content of a" three go, of the b, the B, the empty and the linked one each; /e/b
// is read-only and goes on the second run. The file behind two paths and the one in the stack are no copies.
// Of the marked members "in/a.txt" goes; "twice" of the second archive stays, for the first one is written
// anew in the same run and keeps nothing.
INSTANTIATE_TEST_SUITE_P(Stories, Faults,
                         testing::Values(named_story{"Bin", delete_to_bin, 7, 0, 0, 7, 2},
                                         named_story{"Direct", delete_for_good, 0, 7, 0, 0, 1},
                                         named_story{"Stored", show_stored_and_delete, 7, 0, 0, 7, 2},
                                         named_story{"EmptyDirectories", empty_directories, 2, 0, 0, 2, 0},
                                         named_story{"Names", names, 0, 0},
                                         named_story{"Archives", archives, 7, 0, 0, 7, 3},
                                         named_story{"ArchiveMembers", archive_members, 0, 0, 1, 1, 1},
                                         named_story{"Desktop", desktop_acts, 0, 0, 0, 60, 4},
                                         named_story{"Exports", exports, 0, 0}),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace corvane
