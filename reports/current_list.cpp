#include "reports/current_list.h"

#include "core/model/main_form.h"

namespace corvane {

namespace {

// A view of pairs gives the list's memory back; a comparison leaves it in an order of its own, its members
// without their fields.
bool is_used_up(const run_state& state) {
    return state.file_list.size() < state.file_count || state.list_sorted_flag;
}

}  // namespace

bool hold_file_list(Tavrel& form) {
    run_state& state = form.state;
    if (state.file_count == 0) {
        form.call(handlers::read_file_list);
    } else if (is_used_up(state)) {
        // The rows and their marks stay in view: a list for others is no reason to take them away.
        const bool list_shown = form.ListView1.visible;
        const bool text_shown = form.RichTextBox2.visible;
        form.call(handlers::read_file_list);
        form.ListView1.visible = list_shown;
        form.RichTextBox2.visible = text_shown;
    }
    return !state.quit_requested && state.file_count > 0 && state.file_list.size() >= state.file_count;
}

}  // namespace corvane
