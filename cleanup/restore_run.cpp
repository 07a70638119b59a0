#include "cleanup/restore_run.h"

#include <cstdint>
#include <set>

#include "browser/list_views.h"
#include "browser/mark_history.h"
#include "browser/pair_table.h"
#include "cleanup/recycle_batches.h"
#include "cleanup/returned_pairs.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

namespace {

struct obstacle_words {
    obstacle why;
    const char* words;
};

constexpr obstacle_words refusals[] = {
    {obstacle::gone, "已不在回收站"},
    {obstacle::other, "回收站里的已不是它"},
    {obstacle::out_of_reach, "回收站所在的卷不在"},
    {obstacle::strange_place, "记录指向回收站以外"},
    {obstacle::strange_note, "回收站自己的记录与此不符"},
    {obstacle::link_in_way, "原来的目录现在是指向别处的链接"},
    {obstacle::file_in_way, "原来的目录现在是文件"},
    {obstacle::other_device, "原来的位置现在在另一设备上"},
    {obstacle::no_name, "没有空闲的名称"},
};

std::string words_of(const restoring& answer) {
    for (const obstacle_words& each : refusals)
        if (each.why == answer.why) return each.words;
    return answer.reason;
}

// Files of a run that was cut short, whose places in the bin nobody has noted.
void find_missing(Tavrel& form, recycled_run& run) {
    std::vector<std::size_t> missing;
    std::vector<recycled_item> items;
    for (std::size_t i = 0; i < run.files.size(); ++i) {
        const recycled_file& file = run.files[i];
        if (file.stayed || file.entry.is_known() || !file.restored_path.empty()) continue;
        missing.push_back(i);
        items.push_back(file.item);
    }
    if (missing.empty()) return;
    const std::vector<trash_entry> found = form.outside.bin->find(items);
    std::vector<std::string> lines;
    for (std::size_t n = 0; n < found.size(); ++n) {
        if (!found[n].is_known()) continue;
        run.files[missing[n]].entry = found[n];
        lines.push_back(entry_line(missing[n] + 1, found[n]));
    }
    // Without them the next look finds them anew.
    if (!lines.empty()) add_to_recycled_run(form.outside.files, run.path, lines);
}

recycled_state state_of(trash& bin, const recycled_file& file) {
    if (!file.restored_path.empty() && bin.stands_at(file.item, file.restored_path))
        return recycled_state::restored;
    if (file.entry.is_known()) {
        switch (bin.state(file.item, file.entry)) {
            case trash_state::there:
                return recycled_state::there;
            case trash_state::gone:
                break;
            case trash_state::other:
                return recycled_state::other;
            case trash_state::out_of_reach:
                return recycled_state::out_of_reach;
        }
    }
    if (bin.stands_at(file.item, file.item.path)) return recycled_state::back;
    if (!file.restored_path.empty()) return recycled_state::restored;
    return file.entry.is_known() ? recycled_state::gone : recycled_state::not_found;
}

// Reads the shown result anew, with its marks.
void show_again(Tavrel& form) {
    if (form.state.quit_requested || !form.ListView1.visible) return;
    if (shown_view(form).list_mode == list_modes::empty_directories)
        return form.call(handlers::show_empty_directories);
    if (!shown_view(form).holds_copies) return;
    const std::vector<row_act::red_cell> marks = red_cells(form);
    form.call(handlers::show_same_files);
    if (marks.empty() || form.state.quit_requested || !form.ListView1.visible) return;
    mark_again(form, marks);
    keep_one_of_each_group(form);
}

}  // namespace

const char* state_words(recycled_state state) {
    switch (state) {
        case recycled_state::there:
            return "在回收站";
        case recycled_state::gone:
            return "已清空";
        case recycled_state::other:
            return "已不是它";
        case recycled_state::out_of_reach:
            return "卷不在";
        case recycled_state::back:
            return "在原处";
        case recycled_state::restored:
            return "已恢复";
        case recycled_state::not_found:
            return "没有找到";
    }
    return "";
}

std::vector<recycled_state> states_of(Tavrel& form, recycled_run& run) {
    find_missing(form, run);
    std::vector<recycled_state> states;
    states.reserve(run.files.size());
    for (const recycled_file& file : run.files)
        states.push_back(file.stayed ? recycled_state::back : state_of(*form.outside.bin, file));
    return states;
}

restore_tally restore_files(Tavrel& form, recycled_run& run, const std::vector<std::size_t>& chosen) {
    restore_tally tally;
    std::vector<std::string> lines;
    std::set<std::size_t> done;
    // Now and then: who is ended in the middle has what came back under another name still in sight. The
    // whole file is written each time, so the more has come back, the later the next time.
    std::size_t next_note = recycle_batch_size;
    const auto note = [&] {
        const outcome noted = add_to_recycled_run(form.outside.files, run.path, lines);
        tally.failure = noted ? std::string() : run.path + "\r\n" + noted.reason;
        if (noted) lines.clear();
        next_note = done.size() + std::max<std::size_t>(recycle_batch_size, done.size() / 4);
    };
    bar_colours(form, 13619151, 4227327, 4210816);
    bar_scale(form, static_cast<std::int32_t>(chosen.size()));
    form.pic_gressbar1.visible = true;
    std::int32_t position = 0;
    for (const std::size_t i : chosen) {
        form.yield();
        if (form.state.quit_requested) break;
        recycled_file& file = run.files[i];
        const restoring answer = form.outside.bin->restore(file.item, file.entry);
        if (answer.ok()) {
            ++tally.restored;
            if (answer.path != file.item.path && tally.renamed++ == 0) tally.first_renamed = answer.path;
            file.restored_path = answer.path;
            lines.push_back(restored_line(i + 1, answer.path));
            done.insert(i);
            if (done.size() >= next_note) note();
        } else if (tally.refused++ == 0) {
            tally.first_refused = file.item.path + " (" + words_of(answer) + ")";
        }
        form.pic_gressbar1.draw(++position);
        form.panel(5, "已恢复:" + std::to_string(tally.restored));
    }
    if (!done.empty()) {
        if (!lines.empty()) note();
        const outcome returned = return_pairs(form, run, done);
        if (!returned) tally.failure = form.state.same_file_path + "\r\n" + returned.reason;
    }
    form.pic_gressbar1.visible = false;
    if (!done.empty()) show_again(form);
    return tally;
}

}  // namespace corvane
