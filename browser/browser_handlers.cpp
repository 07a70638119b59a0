#include "browser/browser_handlers.h"

#include <algorithm>

#include "browser/different_view.h"
#include "browser/list_acts.h"
#include "browser/list_find.h"
#include "browser/list_marks.h"
#include "browser/list_menu.h"
#include "browser/list_sort.h"
#include "browser/list_views.h"
#include "browser/mark_by_rule.h"
#include "browser/mark_history.h"
#include "browser/mark_store.h"
#include "browser/pair_table.h"
#include "browser/preview.h"
#include "browser/remembered_list.h"
#include "browser/row_panel.h"
#include "browser/same_store.h"
#include "browser/same_view.h"
#include "browser/saved_result.h"
#include "browser/type_filter.h"
#include "core/model/main_form.h"

namespace corvane {

namespace {

using procedure = void (*)(Tavrel&);

// Marks that an act sets are steps of their history, and so are those that it wipes.
template <procedure act>
void marking(Tavrel& form) {
    const mark_act noted(form);
    act(form);
}

// A program that has begun to close while the marks were noted moves no rows any more.
template <class Act>
void with_marks_noted(Tavrel& form, const Act& act) {
    const bool was_closing = form.state.quit_requested;
    const row_act noted(form);
    if (was_closing || !form.state.quit_requested) act();
}

template <procedure act>
void moving(Tavrel& form) {
    with_marks_noted(form, [&form] { act(form); });
}

// What is found is coloured over a mark.
template <procedure act>
void finding(Tavrel& form) {
    const row_act noted(form, row_act::rows::stay);
    act(form);
}

void ListView1_ColumnClick(Tavrel& form) {
    // A task that works on the rows, like a deletion, counts on their order.
    if (form.task_runs()) return;
    // What is clicked meanwhile is another event.
    const int column = form.list_event.column;
    with_marks_noted(form, [&form, column] {
        sort_by_column(form, column);
        if (!form.state.quit_requested) remember_sort(form, column);
    });
}

// Only a rule marks both cells of a row. By hand a mark then has to be held against the whole group.
bool has_row_of_two_marks(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (!view.holds_copies || list.marked_cells() < 2 || list.column_count() <= view.second_path)
        return false;
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        if (list.colour(row, view.first_path) == cell_colour::mark_red &&
            list.colour(row, view.second_path) == cell_colour::mark_red)
            return true;
    return false;
}

// A mark on the last unmarked copy of a group takes that of another one, as it does within a row.
void mark_by_hand(Tavrel& form, procedure act, std::int32_t first, std::int32_t last) {
    if (!has_row_of_two_marks(form)) {
        const mark_act noted(form, first, last);
        return act(form);
    }
    const mark_act noted(form);
    const std::uint64_t fill = form.ListView1.fill_revision();
    act(form);
    if (fill == form.ListView1.fill_revision()) keep_one_of_each_group(form);
}

void double_press(Tavrel& form) {
    const std::int32_t row = form.ListView1.selected_row;
    mark_by_hand(form, ListView1_DblClick, row, row);
}

void press(Tavrel& form) {
    if (!form.list_event.shift) return ListView1_MouseDown(form);
    const std::int32_t row = form.ListView1.selected_row;
    const std::int32_t anchor = form.state.anchor_row;
    mark_by_hand(form, ListView1_MouseDown, std::min({row, anchor, form.ListView1.row_count()}),
                 std::max(row, anchor));
}

// The store shown, with the marks of the last run where it is the first time. Another result has another
// history.
void show_same_files(Tavrel& form) {
    run_state& state = form.state;
    const bool fresh = state.same_fresh_flag != 0;
    with_marks_noted(form, [&form] { load_same_view(form); });
    const list_view& list = form.ListView1;
    if (state.quit_requested || !shown_view(form).holds_copies || !list.visible || list.row_count() == 0)
        return;
    if (fresh) state.mark_history[list_modes::same_files] = {};
    if (!state.stored_marks_asked && !fresh) {
        // A sort wipes marks.
        apply_remembered_sort(form);
        if (state.quit_requested) return;
        restore_marks(form);
    }
    state.stored_marks_asked = true;
}

void result_refresh_Click(Tavrel& form) {
    if (const handler_name* refresh = shown_view(form).refresh) form.call(*refresh);
}

}  // namespace

handler_table browser_handlers() {
    handler_table table = {
        {"Picture4_Click", show_same_files, starts_task},
        {"Picture11_Click", Picture11_Click, starts_task},
        {"Command35_Click", Picture11_Click, starts_task},
        // The end of a comparison calls it; asked for while a task runs, it would take the rows from it.
        {"load_same_view", show_same_files, starts_task},
        {"store_marks", store_marks},
        {"ListView1_MouseDown", press},
        {"ListView1_Click", ListView1_Click},
        {"ListView1_DblClick", double_press},
        {"ListView1_ColumnClick", ListView1_ColumnClick},
        {"ListView1_KeyDown", ListView1_KeyDown},
        {"open_same_file", open_same_file_Click},
        {"double_disp", double_disp_Click},
        {"mnu_enter_dir", mnu_enter_dir_Click},
        {"disp_same_file_attr", disp_same_file_attr_Click},
        {"same_time_open_2file", same_time_open_2file_Click},
        {"search_in_result", finding<search_in_result_Click>},
        {"again_search", finding<again_search_Click>},
        {"all_select", marking<all_select_Click>},
        {"all_not_select", marking<all_not_select_Click>},
        {"layout_list", layout_list},
        // These rebuild the rows, which a running task may be working on.
        {"only_disp", moving<only_disp_Click>, starts_task},
        {"not_list", moving<not_list_Click>, starts_task},
        {"result_refresh", result_refresh_Click, starts_task},
        {"samefile_disp1_MouseDown",
         [](Tavrel& form) { open_directory_of_box(form, form.samefile_disp1.text); }},
        {"samefile_disp2_MouseDown",
         [](Tavrel& form) { open_directory_of_box(form, form.samefile_disp2.text); }},
        {"save_result", save_result_Click, starts_task},
        {"open_result", open_result_Click, starts_task},
        {"rewrite_store", [](Tavrel& form) { rewrite_store(form); }, starts_task},
        {"show_row_panel", [](Tavrel& form) { show_row_panel(form, form.ListView1.selected_row); }},
        {"preview_m", preview_m_Click},
        {"Frame4_Close", [](Tavrel& form) { form.Frame4.visible = false; }},
    };
    for (handler& each : mark_handlers()) table.push_back(std::move(each));
    return table;
}

}  // namespace corvane
