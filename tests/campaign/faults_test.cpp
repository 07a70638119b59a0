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
};

class Faults : public testing::TestWithParam<named_story> {};

std::string verdict(const small_world& w) {
    std::string words;
    for (const std::string& content : w.lost()) words += "lost: " + content + "\n";
    if (w.form.task_runs() || w.state.tasks_locked) words += "locked\n";
    if (const std::string broken = w.broken_store(); !broken.empty()) words += "broken: " + broken + "\n";
    return words;
}

TEST_P(Faults, EveryCallToTheDiskMayFailOnceOrForGood) {
    small_world well;
    GetParam().tell(well);
    ASSERT_EQ(verdict(well), "") << "without a fault";
    EXPECT_EQ(well.recycled.size(), GetParam().recycled);
    EXPECT_EQ(well.disk.removed.size(), GetParam().removed);
    const std::int64_t calls = well.files.calls();
    ASSERT_GT(calls, 20);
    for (const bool for_good : {false, true})
        for (std::int64_t n = 1; n <= calls; ++n) {
            small_world w;
            w.files.fail_at(n, for_good);
            GetParam().tell(w);
            ASSERT_EQ(verdict(w), "") << "call " << n << (for_good ? " and all behind it" : "");
        }
}

TEST_P(Faults, EveryCallToTheRecycleBinMayFail) {
    small_world well;
    GetParam().tell(well);
    for (std::int64_t n = 1; n <= well.shell_calls; ++n) {
        small_world w;
        w.shell_fails_at = n;
        GetParam().tell(w);
        ASSERT_EQ(verdict(w), "") << "path " << n;
    }
}

// By hand: of the copies of "content of a" three go, of the b, the B, the empty and the linked one each; /e/b
// is read-only and goes on the second run. The file behind two paths and the one in the stack are no copies.
INSTANTIATE_TEST_SUITE_P(Stories, Faults,
                         testing::Values(named_story{"Bin", delete_to_bin, 7, 0},
                                         named_story{"Direct", delete_for_good, 0, 7},
                                         named_story{"Stored", show_stored_and_delete, 7, 0},
                                         named_story{"EmptyDirectories", empty_directories, 2, 0},
                                         named_story{"Names", names, 0, 0},
                                         named_story{"Archives", archives, 7, 0},
                                         named_story{"Exports", exports, 0, 0}),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace corvane
