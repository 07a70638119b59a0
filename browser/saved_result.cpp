#include "browser/saved_result.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "browser/mark_history.h"
#include "browser/mark_store.h"
#include "browser/saved_file.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace saved_line;

namespace {

// The pairs of the store. Their number.
std::int64_t write_pairs(Tavrel& form, saved_writer& writer) {
    line_reader lines(form.outside.files, form.state.same_file_path);
    std::string_view line;
    if (!lines.next(line) || !lines.next(line)) return 0;
    std::int64_t pairs = 0;
    for (std::string bytes, first; !form.state.quit_requested && lines.next(line);) {
        bytes = std::to_string(parse_number(line));
        if (!lines.next(line)) break;
        first = line;
        if (!lines.next(line)) break;
        if (is_blank(first) || is_blank(line)) continue;
        writer.line(length, bytes);
        writer.line(first_path, first);
        writer.line(second_path, line);
        ++pairs;
    }
    if (lines.failed()) writer.fail();
    return pairs;
}

// The marks of the list; those of the last run while nobody has looked at the result yet.
void write_marks(Tavrel& form, saved_writer& writer) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    if (shown_view(form).holds_copies && list.visible) {
        for (const row_act::red_cell& cell : red_cells(form)) {
            writer.line(mark, std::to_string(cell.column));
            writer.line(mark, std::to_string(list.number_cell(cell.row, view.length_column)));
            writer.line(mark, list.text_cell(cell.row, view.first_path));
            writer.line(mark, list.text_cell(cell.row, view.second_path));
        }
        return;
    }
    line_reader marks(form.outside.files, form.data_path(data_file::marks));
    std::string_view line;
    if (form.state.stored_marks_asked || !are_marks_of_store(form, marks)) return;
    while (!form.state.quit_requested && marks.next(line)) writer.line(mark, line);
    if (marks.failed()) writer.fail();
}

struct nobody : saved_target {
    void line(char, std::string_view) override {}
};

// The program's own files beside their places, until the whole result has come.
class result_files : public saved_target {
  public:
    result_files(Tavrel& form, std::int64_t pairs)
        : form_(form),
          list_path_(form.data_path(data_file::file_list)),
          single_path_(form.data_path(data_file::different_files)),
          list_(form.outside.files, list_path_),
          singles_(form.outside.files, single_path_),
          pairs_(form.outside.files, form.state.same_file_path) {
        pairs_.line(padded_same_file_title());
        pairs_.number(pairs);
    }
    void line(char letter, std::string_view text) override {
        if (letter == directory) directories.emplace_back(text);
        if (letter == listed) list_.line(text);
        if (letter == single) singles_.line(text);
        if (letter == length) pairs_.number(parse_number(text));
        if (letter == first_path || letter == second_path) pairs_.line(text);
    }
    // False: the failure has been told. The pairs come last: what is shown is there as a whole.
    bool take_places() {
        for (line_writer* each : {&list_, &singles_, &pairs_}) each->flush();
        return is_written(list_, list_path_) && is_written(singles_, single_path_) &&
               is_written(pairs_, form_.state.same_file_path) && take_place(list_, list_path_) &&
               take_place(singles_, single_path_) && take_place(pairs_, form_.state.same_file_path);
    }

    std::vector<std::string> directories;

  private:
    bool is_written(const line_writer& writer, const std::string& path) {
        if (!writer.failed()) return true;
        report_write_failure(form_, path, writer.error());
        return false;
    }
    bool take_place(line_writer& writer, const std::string& path) {
        if (finish_file(form_, writer)) return true;
        report_write_failure(form_, path, writer.error());
        return false;
    }

    Tavrel& form_;
    std::string list_path_, single_path_;
    line_writer list_, singles_, pairs_;
};

// The marks, for the first look at the opened result.
class result_marks : public saved_target {
  public:
    result_marks(Tavrel& form, std::int64_t count)
        : writer_(form.outside.files, form.data_path(data_file::marks)) {
        begin_marks(form, writer_, count);
    }
    void line(char letter, std::string_view text) override {
        if (letter == mark) writer_.line(text);
    }
    bool finish() { return writer_.finish(); }

  private:
    line_writer writer_;
};

void tell(Tavrel& form, const std::string& path, saved_kind kind, const std::string& reason) {
    switch (kind) {
        case saved_kind::missing:
            return form.complain(path + "\r\n" + reason);
        case saved_kind::foreign:
            return form.complain(path + "\r\n不是保存的结果,没有打开。");
        case saved_kind::other_version:
            return form.complain(path + "\r\n是别的版本保存的结果,没有打开。");
        case saved_kind::damaged:
            return form.complain(path + "\r\n保存的结果不完整或已损坏,没有打开。");
        case saved_kind::whole:
        case saved_kind::closing:
            return;
    }
}

// Nothing of the columns in memory belongs to the opened result.
void forget_columns(run_state& state) {
    state.file_list.clear();
    state.file_count = 0;
    state.file_list_loaded = 0;
    state.different_files.clear();
    state.different_packed = {};
    state.different_count = 0;
    state.pair_checksum.clear();
    state.result_count = 0;
    state.compared_files = 0;
    state.same_fresh_flag = 0;
    state.mark_history[list_modes::same_files] = {};
    state.stored_marks_asked = false;
}

void select_directories(Tavrel& form, const std::vector<std::string>& directories) {
    run_state& state = form.state;
    state.selected_dirs.clear();
    for (const std::string& each : directories)
        if (state.selected_dirs.size() < state.limits.selected_directories &&
            form.outside.files.attributes(each).directory)
            state.selected_dirs.push_back(each);
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size());
    state.walked_dirs = state.result_dirs = state.selected_dirs;
}

constexpr char folder_name[] = "folder.result";

void remember_folder(Tavrel& form, const std::string& path) {
    form.state.remembered.set(folder_name, path.substr(0, path.rfind(form.outside.files.separator()) + 1));
}

// True where nothing stands, or a saved result of this or another version.
bool may_overwrite(Tavrel& form, const std::string& path) {
    const path_attributes there = form.outside.files.attributes(path);
    if (!there.exists) return true;
    line_reader lines(form.outside.files, path);
    std::string_view line;
    return !there.directory && lines.next(line) && line.starts_with(any_saved_title);
}

}  // namespace

void save_result_Click(Tavrel& form) {
    run_state& state = form.state;
    if (!path_exists(form.outside.files, state.same_file_path)) return form.inform("没有相同文件");
    const std::string path =
        form.outside.screen.choose_new_file("保存结果", state.remembered.value(folder_name)).value_or("");
    if (path.empty()) return;
    remember_folder(form, path);
    if (!may_overwrite(form, path)) return form.complain(path + "\r\n不是保存的结果,没有覆盖。");
    const task_scope task(form);
    form.panel(7, "保存结果");
    saved_writer writer(form, path);
    for (const std::string& each : state.selected_dirs) writer.line(directory, each);
    writer.lines_of(listed, form.data_path(data_file::file_list));
    writer.lines_of(single, form.data_path(data_file::different_files));
    const std::int64_t pairs = write_pairs(form, writer);
    write_marks(form, writer);
    if (state.quit_requested) return;
    if (pairs == 0) return form.inform("没有相同文件");
    if (!writer.finish()) return report_write_failure(form, path, writer.error());
    form.panel(5, "已保存:" + std::to_string(pairs));
}

void open_result_Click(Tavrel& form) {
    run_state& state = form.state;
    const std::string path =
        form.outside.screen.choose_file("打开结果", state.remembered.value(folder_name)).value_or("");
    if (path.empty()) return;
    remember_folder(form, path);
    {
        const task_scope task(form);
        form.panel(7, "打开结果");
        saved_reader first(form, path);
        nobody none;
        const saved_kind kind = first.read(none);
        if (kind != saved_kind::whole) return tell(form, path, kind, first.error());
        if (path_exists(form.outside.files, state.same_file_path) &&
            !form.confirm("打开的结果将代替现在的结果,连同它的文件清单和目录选择。\r\n继续吗?"))
            return;
        saved_reader second(form, path);
        result_files files(form, first.pairs());
        const saved_kind again = second.read(files);
        if (again != saved_kind::whole) return tell(form, path, again, second.error());
        if (!files.take_places()) return;
        forget_columns(state);
        select_directories(form, files.directories);
        if (first.marks() > 0) {
            saved_reader third(form, path);
            const bool has_way = make_way_for_marks(form);
            result_marks marks(form, first.marks());
            if (!has_way || (third.read(marks) == saved_kind::whole && !marks.finish()))
                form.complain(form.data_path(data_file::marks) + "\r\n标记没有保存。");
        }
    }
    if (!state.quit_requested) form.call(handlers::show_same_files);
}

}  // namespace corvane
