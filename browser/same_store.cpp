#include "browser/same_store.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 101;

void write_pair(line_writer& writer, std::string_view length, std::string_view path1,
                std::string_view path2) {
    if (is_blank(path1) || is_blank(path2)) return;
    writer.line(length);
    writer.line(path1);
    writer.line(path2);
}

// Carries what has gone from the rows into the pairs that they were filled from, and tells which pairs a
// filter keeps from the list.
std::vector<bool> pairs_without_row(Tavrel& form, const list_view_row& view) {
    run_state& state = form.state;
    const list_view& list = form.ListView1;
    std::vector<bool> hidden(static_cast<std::size_t>(state.result_file1.size()) + 1, true);
    hidden[0] = false;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::int64_t pair = list.number_cell(row, number_column);
        if (pair < 1 || pair > state.result_file1.size()) continue;
        const auto i = static_cast<std::int32_t>(pair);
        hidden[static_cast<std::size_t>(i)] = false;
        if (is_blank(list.text_cell(row, view.first_path))) state.result_file1.set(i, {});
        if (is_blank(list.text_cell(row, view.second_path))) state.result_file2.set(i, {});
    }
    return hidden;
}

}  // namespace

std::int32_t stored_pair_count(file_system& files, const std::string& path) {
    line_reader lines(files, path);
    std::string_view line;
    if (!lines.next(line) || !lines.next(line)) return 0;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(parse_number(line), 0, std::numeric_limits<std::int32_t>::max()));
}

bool rewrite_store(Tavrel& form) {
    if (!shown_view(form).holds_copies) return true;
    run_state& state = form.state;
    // What was told of the result holds no longer.
    state.summary_words.clear();
    state.stored_pairs = state.same_count;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    bar_colours(form, 12632256, 4194368, 255);
    bar_scale(form, state.same_count);
    // One separator more is harmless.
    const std::string path = state.program_dir + form.outside.files.separator() + data_file::same_files;
    line_writer writer(form.outside.files, path);
    writer.line(padded_same_file_title());
    writer.number(state.same_count);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        write_pair(writer, list.cell(row, view.length_column), list.text_cell(row, view.first_path),
                   list.text_cell(row, view.second_path));
        // What has gone has gone: a program that closes meanwhile writes the store to its end.
        if (row % rows_per_status == 0) bar_draw(form, row);
    }
    const std::vector<bool> hidden = pairs_without_row(form, view);
    for (std::int32_t i = 1; i <= state.result_file1.size(); ++i) {
        if (i % rows_per_status == 0) form.yield();
        if (hidden[static_cast<std::size_t>(i)])
            write_pair(writer, std::to_string(state.result_length[i]), state.result_file1[i],
                       state.result_file2[i]);
    }
    if (finish_file(form, writer)) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace corvane
