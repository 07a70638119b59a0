#include "browser/mark_store.h"

#include <string>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "browser/mark_history.h"
#include "browser/pair_table.h"
#include "browser/row_keys.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/tasks/protected_folders.h"
#include "core/text/file_copy.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr char title[] = "Corvane marks 1";

// What the store is known by: another one, or one that has been written anew, is not the one of the marks.
std::string stamp_of(Tavrel& form) {
    const file_facts facts = form.outside.files.facts(form.state.same_file_path);
    if (!facts.exists) return {};
    std::string text = std::to_string(facts.length);
    return text.append(" ")
        .append(std::to_string(facts.date_high))
        .append(" ")
        .append(std::to_string(facts.date_low));
}

// The file begins as those of this version do.
bool is_known(Tavrel& form, const std::string& path) {
    line_reader lines(form.outside.files, path);
    std::string_view line;
    return lines.is_open() && lines.next(line) && line == title;
}

// Empty, or why it failed.
std::string write_marks(Tavrel& form, const std::string& path) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    line_writer writer(form.outside.files, path);
    const auto cells = red_cells(form);
    begin_marks(form, writer, static_cast<std::int64_t>(cells.size()));
    for (const row_act::red_cell& cell : cells) {
        writer.number(cell.column);
        writer.number(list.number_cell(cell.row, view.length_column));
        writer.line(list.text_cell(cell.row, view.first_path));
        writer.line(list.text_cell(cell.row, view.second_path));
    }
    return writer.finish() ? std::string() : writer.error();
}

// One mark of the file. False: there is none any more, or none that is whole.
bool next_mark(line_reader& lines, int& column, std::int64_t& length, std::string& first,
               std::string& second) {
    std::string_view line;
    if (!lines.next(line)) return false;
    column = static_cast<int>(parse_number(line));
    if (!lines.next(line)) return false;
    length = parse_number(line);
    if (!lines.next(line)) return false;
    first = line;
    if (!lines.next(line)) return false;
    second = line;
    const list_view_row& view = view_of(list_modes::same_files);
    return column == view.first_path || column == view.second_path;
}

}  // namespace

void begin_marks(Tavrel& form, line_writer& writer, std::int64_t count) {
    writer.line(title);
    writer.line(stamp_of(form));
    writer.number(count);
}

bool are_marks_of_store(Tavrel& form, line_reader& marks) {
    std::string_view line;
    return marks.next(line) && line == title && marks.next(line) && line == stamp_of(form) &&
           marks.next(line);
}

// What another version has written is not for this one to lose.
bool make_way_for_marks(Tavrel& form) {
    file_system& files = form.outside.files;
    const std::string path = form.data_path(data_file::marks);
    return !path_exists(files, path) || is_known(form, path) ||
           copy_file(files, path, form.data_path(data_file::marks_aside)).ok;
}

bool read_unseen_marks(Tavrel& form, std::vector<std::string>& lines) {
    line_reader marks(form.outside.files, form.data_path(data_file::marks));
    if (form.state.stored_marks_asked) return true;
    if (are_marks_of_store(form, marks))
        for (std::string_view line; marks.next(line);) lines.emplace_back(line);
    return !marks.failed();
}

void keep_unseen_marks(Tavrel& form, const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    const std::string path = form.data_path(data_file::marks);
    line_writer writer(form.outside.files, path);
    begin_marks(form, writer, static_cast<std::int64_t>(lines.size() / 4));
    for (const std::string& line : lines) writer.line(line);
    if (!writer.finish()) report_write_failure(form, path, writer.error() + "\r\n标记没有保存。");
}

void store_marks(Tavrel& form) {
    const list_view& list = form.ListView1;
    // What a task has in work is no state of marks.
    const bool is_free = !form.task_runs() || form.state.rows_stand;
    const bool stands = shown_view(form).holds_copies && list.visible && list.row_count() > 0 && is_free;
    // Those of the last run may be on their way to the rows.
    if (!form.state.stored_marks_asked && (!stands || form.task_runs())) return;
    file_system& files = form.outside.files;
    const std::string path = form.data_path(data_file::marks);
    if (!stands || list.marked_cells() == 0) {
        if (is_known(form, path)) files.remove_data_file(path);
        return;
    }
    if (!make_way_for_marks(form)) return;
    const std::string failure = write_marks(form, path);
    if (!failure.empty()) report_write_failure(form, path, failure + "\r\n标记没有保存。");
}

void restore_marks(Tavrel& form) {
    const std::string path = form.data_path(data_file::marks);
    if (!path_exists(form.outside.files, path)) return;
    line_reader lines(form.outside.files, path);
    std::string_view line;
    if (!lines.is_open() || !lines.next(line) || line != title)
        return form.complain(path + "\r\n不认识的标记文件,没有采用。");
    if (!lines.next(line) || line != stamp_of(form)) return;
    // Where the count is missing at least one is.
    const std::int64_t count = lines.next(line) ? parse_number(line) : 1;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    row_keys keys(form);
    std::vector<row_act::red_cell> cells;
    std::int64_t taken = 0;
    int column = 0;
    std::int64_t length = 0;
    std::string first, second;
    for (; taken < count && next_mark(lines, column, length, first, second); ++taken) {
        const std::uint64_t key = keys.key_of(length, first, second);
        const std::int32_t row = keys.find(key, 0);
        const bool fits = row != 0 && list.text_cell(row, view.first_path) == first &&
                          list.text_cell(row, view.second_path) == second;
        if (fits) cells.push_back({key, row, column});
    }
    mark_again(form, cells);
    if (!cells.empty()) keep_one_of_each_group(form);
    if (taken < count) form.complain(path + "\r\n标记文件不完整,只取了前 " + std::to_string(taken) + " 个。");
}

}  // namespace corvane
