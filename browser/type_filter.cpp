#include "browser/type_filter.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "browser/list_hint.h"
#include "browser/list_views.h"
#include "browser/same_view.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_yield = 100;

struct filter_words {
    const char* prompt;
    const char* panel_word;
    std::string settings::*kept_answer;
    bool shows_listed;
};

constexpr filter_words only_words = {"仅显示指定的文件类型, 如 *.jpg *.gif", "仅显示",
                                     &settings::only_disp_types, true};
constexpr filter_words not_words = {"指定不显示的文件类型 如 *.htm *.txt", "不显示",
                                    &settings::not_list_types, false};

// The types without "*.", upper-cased. An empty part from a doubled blank is a type as well.
std::unordered_set<std::string> listed_types(const std::string& answer) {
    std::vector<std::string> parts;
    const int count = split_text(answer, " ", parts);
    std::unordered_set<std::string> types;
    for (int i = 1; i <= count; ++i) {
        const std::string& part = parts[static_cast<std::size_t>(i)];
        const std::size_t star = part.find("*.");
        types.insert(upper_case(star == std::string::npos ? std::string_view(part)
                                                          : std::string_view(part).substr(star + 2)));
    }
    return types;
}

// Keeps the room for the text that it looks up.
class type_test {
  public:
    explicit type_test(const std::unordered_set<std::string>& types) : types_(types) {}

    bool is_listed(std::string_view path) {
        type_.clear();
        append_upper_case(type_, path.substr(path.rfind('.') + 1));
        return types_.count(type_) != 0;
    }

  private:
    const std::unordered_set<std::string>& types_;
    std::string type_;
};

void fill_rows(Tavrel& form, const filter_words& words, const std::unordered_set<std::string>& types) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    list.clear_rows();
    const int first = view_of(list_modes::same_files).first_path;
    share_pair_texts(list, state);
    std::string_view previous;
    type_test test(types);
    const std::int32_t last = std::min(state.same_count, state.result_file2.size());
    for (std::int32_t i = 1; i <= last; ++i) {
        if (i % rows_per_yield == 0) form.yield();
        if (state.quit_requested) return;
        fetch_pair_ahead(state, i, last);
        const std::string_view path1 = state.result_file1[i];
        const bool listed = test.is_listed(path1) || test.is_listed(state.result_file2[i]);
        if (listed != words.shows_listed) continue;
        const std::int32_t row = add_pair_row(list, state, i);
        // Goes on from the scaled figure that the last load or filter left.
        state.total_bytes += static_cast<double>(state.result_length[i]);
        if (path1 == previous) list.set_colour(row, first, cell_colour::colour_gray);
        previous = path1;
    }
}

void filter(Tavrel& form, const filter_words& words) {
    if (refuses_hidden_list(form)) return;
    run_state& state = form.state;
    std::string& kept = state.*words.kept_answer;
    const std::string answer =
        form.outside.screen.ask_text("输入框", std::string(words.prompt) + "\r\n\r\n", kept).value_or("");
    if (answer.empty()) return;
    kept = answer;
    // Only the same-file view has these columns.
    if (is_blank(answer) || !shown_view(form).holds_copies || form.ListView1.column_count() < 5) return;
    state.base_time = form.outside.screen.seconds();
    // The rows that are on their way are shown now and then only while tasks are locked.
    const task_scope task(form);
    const std::int32_t marked = form.ListView1.marked_cells();
    fill_rows(form, words, listed_types(answer));
    if (state.quit_requested) return;
    state.filter_words = std::string(words.panel_word) + " " + answer;
    state.filter_fill = form.ListView1.fill_revision();
    note_cleared_marks(form, "筛选", marked);
    form.panel(3, "相同文件:" + std::to_string(form.ListView1.row_count()));
    scale_size(state.total_bytes, state.size_unit);
    form.panel(4, "相同文件长度:" + group_digits(state.total_bytes) + state.size_unit);
    form.panel(5, words.panel_word + answer);
    show_elapsed(form);
}

}  // namespace

void only_disp_Click(Tavrel& form) {
    filter(form, only_words);
}

void not_list_Click(Tavrel& form) {
    filter(form, not_words);
}

}  // namespace corvane
