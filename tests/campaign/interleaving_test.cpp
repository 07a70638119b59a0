// Random acts of a user, at rest and at the yields of running tasks, over a small tree: afterwards every
// content that was there is still there. CORVANE_SEEDS tells how many runs; one seed alone by CORVANE_SEED.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "core/tasks/protected_folders.h"
#include "tests/campaign/small_world.h"

namespace corvane {
namespace {

constexpr const char* acts[] = {"picture2_Click",
                                "Picture3_Click",
                                "Picture4_Click",
                                "Picture5_Click",
                                "Picture6_Click",
                                "Picture7_Click",
                                "Picture8_Click",
                                "Picture11_Click",
                                "search_check_m_Click",
                                "Command18_Click",
                                "Command19_Click",
                                "Command21_Click",
                                "Command44_Click",
                                "Command45_Click",
                                "Command28_Click",
                                "Command35_Click",
                                "mnu_same_filename",
                                "check_same_1dir_filename",
                                "search_repeat_dir_name",
                                "only_disp",
                                "not_list",
                                "result_refresh",
                                "all_select",
                                "all_not_select",
                                "search_in_result",
                                "again_search",
                                "keep_newest",
                                "keep_oldest",
                                "keep_shortest",
                                "keep_longest",
                                "keep_fullest_folder",
                                "keep_by_folders",
                                "mark_copy_names",
                                "invert_marks",
                                "clear_marks",
                                "undo_marks",
                                "redo_marks",
                                "sort_by_freed",
                                "group_of_row",
                                "mark_total",
                                "layout_list",
                                "rewrite_store",
                                "del_dir",
                                "delete_marked_direct",
                                "shut_computer",
                                "sleep_music.Command1_Click",
                                "sleep_music.Timer1_Timer",
                                "显示关机提示",
                                "shut_msg.Timer1_Timer",
                                "shut_msg.Form_Unload",
                                "shout_close",
                                "load_same_view",
                                "Picture1_Click",
                                "Command33_Click",
                                "文件清单_M",
                                "Command9_Click",
                                "tree_select_m",
                                "tree_dir.Command1_Click",
                                "tree_dir.Command2_Click",
                                "tree_dir.Text8_DblClick",
                                "tree_dir.ListView1_DblClick"};

class random_user {
  public:
    random_user(small_world& world, std::uint32_t seed) : w_(world), random_(seed) {
        w_.screen.on_yield = [this] {
            if (depth_ < 2 && pick(40) == 0) act();
        };
        w_.screen.on_question = [this] {
            static constexpr box_answer answers[] = {box_answer::yes, box_answer::no, box_answer::dismissed};
            return answers[pick(3)];
        };
        w_.screen.on_text = [this]() -> std::optional<std::string> {
            static constexpr const char* texts[] = {"*.txt", "a", "*.zip a", " ", ""};
            return texts[pick(5)];
        };
    }

    void work(int count) {
        w_.state.scan_archives = static_cast<std::int16_t>(pick(2));
        w_.state.shut_action = static_cast<std::int16_t>(pick(2) == 0 ? 4 : 0);
        w_.state.delete_prompt_on = static_cast<std::int16_t>(pick(2));
        w_.select({"/d", "/e", "/mnt", "/upper", "/merged"});
        // /d/bound is the same folder as /mnt/bound.
        w_.disk.trees = {{"/", "/", "8:1"}, {"/d/bound/", "/mnt/bound/", "8:1"}};
        if (pick(2) == 0) set_protected_folders(w_.form, {"/d/sub/", "/mnt/"});
        w_.form.run("search_check_m_Click");
        for (int i = 0; i < count && !w_.state.quit_requested; ++i) act();
    }

  private:
    std::uint32_t pick(std::uint32_t below) { return static_cast<std::uint32_t>(random_()) % below; }

    void act() {
        ++depth_;
        switch (pick(8)) {
            case 0:
            case 1:
                mark();
                break;
            case 2:
                mark_anything();
                break;
            case 3:
                w_.form.run(pick(2) == 0 ? "Picture5_Click" : "Command45_Click");
                break;
            case 4:
                pick(2) == 0 ? header() : touch_disk();
                break;
            default:
                w_.form.run(acts[pick(std::size(acts))]);
        }
        if (pick(400) == 0) w_.form.run("exit_sub");
        --depth_;
    }

    void mark() {
        list_view& list = w_.form.ListView1;
        if (list.row_count() == 0 || list.column_count() < 3) return;
        list.selected_row = 1 + static_cast<std::int32_t>(pick(static_cast<std::uint32_t>(list.row_count())));
        w_.form.list_event = {};
        w_.form.list_event.shift = pick(4) == 0;
        const int column = 1 + static_cast<int>(pick(static_cast<std::uint32_t>(list.column_count() - 1)));
        for (int before = 0; before < column; ++before)
            w_.form.list_event.x += list.columns()[static_cast<std::size_t>(before)].width;
        ++w_.form.list_event.x;
        w_.form.run("ListView1_MouseDown");
        if (!w_.form.list_event.shift) w_.form.run("ListView1_DblClick");
    }

    // Marks that no rule of the list would allow: the gate believes none.
    void mark_anything() {
        list_view& list = w_.form.ListView1;
        if (w_.state.list_mode != 0 || list.column_count() < 5) return;
        const std::uint32_t share = 1 + pick(4);
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            for (const int column : {3, 4})
                if (pick(share) == 0) list.set_colour(row, column, cell_colour::mark_red);
    }

    void header() {
        w_.form.list_event = {};
        w_.form.list_event.column = static_cast<int>(pick(6));
        w_.form.run("ListView1_ColumnClick");
    }

    // Another program at work: it adds copies, or writes one anew so that it is a content of its own.
    void touch_disk() {
        const std::string path = "/d/new" + std::to_string(pick(3));
        w_.write(path, pick(2) == 0 ? "content of a" : "written " + std::to_string(pick(1000)));
    }

    small_world& w_;
    std::mt19937 random_;
    int depth_ = 0;
};

// What is wrong afterwards; empty when all is well. Adds the files that went to `gone`.
std::string run_seed(std::uint32_t seed, std::size_t& gone) {
    small_world w;
    random_user user(w, seed);
    user.work(25);
    gone += w.recycled.size() + w.disk.removed.size();
    std::string words;
    for (const std::string& content : w.lost()) words += "lost: " + content + "\n";
    for (const auto* went : {&w.recycled, &w.disk.removed})
        for (const std::string& path : *went)
            for (const char* folder : {"/d/sub/", "/mnt/", "/d/bound/"})
                if (!w.state.protected_folders.empty() && path.starts_with(folder))
                    words += "protected: " + path + "\n";
    if (!w.state.quit_requested && w.form.task_runs()) words += "locked\n";
    if (w.screen.boxes_held || w.state.going_down) words += "boxes held\n";
    if (const std::string broken = w.broken_store(); !broken.empty()) words += "broken: " + broken + "\n";
    return words;
}

TEST(Interleavings, NoContentIsLostWhateverTheUserDoesAtWhateverMoment) {
    if (const char* one = std::getenv("CORVANE_SEED")) {
        std::size_t gone = 0;
        EXPECT_EQ(run_seed(static_cast<std::uint32_t>(std::atoi(one)), gone), "");
        return;
    }
    const char* asked = std::getenv("CORVANE_SEEDS");
    const int seeds = asked != nullptr ? std::atoi(asked) : 1000;
    std::size_t gone = 0;
    for (int seed = 1; seed <= seeds; ++seed)
        ASSERT_EQ(run_seed(static_cast<std::uint32_t>(seed), gone), "") << "CORVANE_SEED=" << seed;
    // A user who deletes nothing would prove nothing.
    EXPECT_GT(gone, static_cast<std::size_t>(seeds));
}

}  // namespace
}  // namespace corvane
