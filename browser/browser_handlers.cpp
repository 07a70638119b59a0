#include "browser/browser_handlers.h"

#include "browser/different_view.h"
#include "browser/list_acts.h"
#include "browser/list_find.h"
#include "browser/list_marks.h"
#include "browser/list_menu.h"
#include "browser/list_sort.h"
#include "browser/list_views.h"
#include "browser/row_panel.h"
#include "browser/same_store.h"
#include "browser/same_view.h"
#include "browser/type_filter.h"
#include "core/model/main_form.h"

namespace corvane {

namespace {

void result_refresh_Click(Tavrel& form) {
    if (const handler_name* refresh = shown_view(form).refresh) form.call(*refresh);
}

}  // namespace

handler_table browser_handlers() {
    return {
        {"Picture4_Click", load_same_view, starts_task},
        {"Picture11_Click", Picture11_Click, starts_task},
        {"Command35_Click", Picture11_Click, starts_task},
        // The end of a comparison calls it; asked for while a task runs, it would take the rows from it.
        {"load_same_view", load_same_view, starts_task},
        {"ListView1_MouseDown", ListView1_MouseDown},
        {"ListView1_Click", ListView1_Click},
        {"ListView1_DblClick", ListView1_DblClick},
        {"ListView1_ColumnClick", ListView1_ColumnClick},
        {"ListView1_KeyDown", ListView1_KeyDown},
        {"open_same_file", open_same_file_Click},
        {"double_disp", double_disp_Click},
        {"mnu_enter_dir", mnu_enter_dir_Click},
        {"disp_same_file_attr", disp_same_file_attr_Click},
        {"same_time_open_2file", same_time_open_2file_Click},
        {"search_in_result", search_in_result_Click},
        {"again_search", again_search_Click},
        {"all_select", all_select_Click},
        {"all_not_select", all_not_select_Click},
        {"layout_list", layout_list},
        // These rebuild the rows, which a running task may be working on.
        {"only_disp", only_disp_Click, starts_task},
        {"not_list", not_list_Click, starts_task},
        {"result_refresh", result_refresh_Click, starts_task},
        {"samefile_disp1_MouseDown",
         [](Tavrel& form) { open_directory_of_box(form, form.samefile_disp1.text); }},
        {"samefile_disp2_MouseDown",
         [](Tavrel& form) { open_directory_of_box(form, form.samefile_disp2.text); }},
        {"rewrite_store", [](Tavrel& form) { rewrite_store(form); }, starts_task},
        {"show_row_panel", [](Tavrel& form) { show_row_panel(form, form.ListView1.selected_row); }},
        {"Frame4_Close", [](Tavrel& form) { form.Frame4.visible = false; }},
    };
}

}  // namespace corvane
