#include "browser/list_find.h"

#include <optional>
#include <string>
#include <string_view>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/tasks/task_scope.h"
#include "core/text/shown_text.h"
#include "core/text/text_case.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int32_t rows_per_yield = 200;

// Tests one cell after another, as the screen shows it, without a new text for each.
class cell_finder {
  public:
    cell_finder(const list_view& list, std::string_view term) : list_(list), term_(typed_as_shown(term)) {}

    bool is_hit(std::int32_t row, int column) {
        if (column >= list_.column_count()) return false;
        const std::string_view text = list_.text_cell(row, column);
        if (!lower_plain(text)) {
            shown_.clear();
            append_shown_text(shown_, text);
            lower_.clear();
            append_lower_case(lower_, shown_);
        }
        return lower_.find(term_) != std::string::npos && list_.colour(row, column) != colour_gray;
    }

  private:
    // Most texts are ASCII, which the screen shows as it is. False, and nothing done, for another one.
    bool lower_plain(std::string_view text) {
        lower_.resize(text.size());
        unsigned char all = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto unit = static_cast<unsigned char>(text[i]);
            all |= unit;
            const bool is_upper = unit >= 'A' && unit <= 'Z';
            lower_[i] = static_cast<char>(unit | (is_upper ? 0x20 : 0));
        }
        return all < 0x80;
    }

    const list_view& list_;
    std::string term_;
    std::string shown_;
    std::string lower_;
};

// Colours the first hit from `row` on and returns its row; 0 for none. Where no task runs events run
// meanwhile, of which none changes the rows; a search in the middle of one stands on the task's rows and does
// not yield, and neither does one in the middle of a search.
std::int32_t colour_next_hit(Tavrel& form, std::int32_t row) {
    list_view& list = form.ListView1;
    const auto& columns = shown_view(form).searched;
    cell_finder finder(list, form.state.find_text);
    std::optional<task_scope> task;
    if (!form.task_runs()) task.emplace(form);
    for (; row <= list.row_count(); ++row) {
        if (task && row % rows_per_yield == 0) {
            form.yield();
            if (form.state.quit_requested) return 0;
        }
        for (const int column : columns) {
            if (!finder.is_hit(row, column)) continue;
            list.set_colour(row, column, colour_found);
            return row;
        }
    }
    return 0;
}

}  // namespace

void search_in_result_Click(Tavrel& form) {
    if (refuses_hidden_list(form)) return;
    run_state& state = form.state;
    list_view& list = form.ListView1;
    state.find_text =
        form.outside.screen.ask_text("输入框", "要搜索的文件名\r\n", state.find_text).value_or("");
    state.find_row = 0;
    state.find_text = lower_case(state.find_text);
    for (const int column : shown_view(form).searched) {
        if (column >= list.column_count()) continue;
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            if (list.colour(row, column) == colour_found) list.set_colour(row, column, colour_text);
    }
    if (state.find_text.compare(" ") > 0) state.find_row = colour_next_hit(form, 1);
    if (state.quit_requested) return;
    if (state.find_row > 0)
        list.reveal_row = state.find_row;
    else
        form.inform(" 没查到");
}

void again_search_Click(Tavrel& form) {
    run_state& state = form.state;
    if (state.find_text.empty() || refuses_hidden_list(form)) return;
    ++state.find_row;
    state.find_text = lower_case(state.find_text);
    const std::int32_t hit = colour_next_hit(form, state.find_row);
    if (state.quit_requested) return;
    if (hit == 0) return form.inform("已查到尾部");
    state.find_row = hit;
    form.ListView1.reveal_row = hit;
}

}  // namespace corvane
