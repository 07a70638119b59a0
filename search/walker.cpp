#include "search/walker.h"

#include <span>
#include <string>
#include <string_view>

#include "core/archives/rar_reader.h"
#include "core/archives/zip_reader.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/environment.h"
#include "core/tasks/progress.h"
#include "core/text/text_case.h"
#include "core/text/text_file.h"
#include "core/text/text_sort.h"
#include "core/walk/tree_walk.h"
#include "search/walk_output.h"

namespace corvane {

namespace {

constexpr std::int32_t files_per_status = 561;  // panel 1 and the yield
constexpr std::int32_t files_per_path = 100;    // the path in panel 2

// Everything from the last dot to the end, upper-cased, closed by a blank; empty without a dot. The dot may
// stand in a directory's name: such a text matches no type.
std::string type_of(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string_view::npos) return {};
    std::string type;
    append_upper_case(type, path.substr(dot));
    return type += ' ';
}

bool rejects_type(const run_state& state, const std::string& type) {
    if (state.only_type_length > 0)
        return type.empty() || state.only_type_text.find(type) == std::string::npos;
    return state.exclude_type_length > 0 && !type.empty() &&
           state.exclude_type_text.find(type) != std::string::npos;
}

// Tells when the directory that the user looked at last cannot be read. What is selected is searched all the
// same.
void test_current_directory(Tavrel& form) {
    const std::string& directory = form.state.current_dir;
    if (directory.empty() || !path_exists(form.outside.files, directory)) return;
    const outcome read = form.outside.files.open_directory(directory);
    if (read) return;
    message box;
    box.text = read.reason;
    box.title = "Deferred Error Test,请选择新的目录";
    form.outside.screen.show_message(box);
}

// Makes room for the directory in the status bar, and takes it back.
class wide_path_panel {
  public:
    explicit wide_path_panel(status_bar& bar) : bar_(bar) {
        for (int number = 2; number <= 5; ++number) widths_[number - 2] = bar_.width(number);
        bar_.width(2) *= 4;
        for (int number = 3; number <= 5; ++number) bar_.width(number) = 1;
    }
    ~wide_path_panel() {
        for (int number = 2; number <= 5; ++number) bar_.width(number) = widths_[number - 2];
    }
    wide_path_panel(const wide_path_panel&) = delete;
    wide_path_panel& operator=(const wide_path_panel&) = delete;

  private:
    status_bar& bar_;
    int widths_[4];
};

class search_visitor : public walk_visitor {
  public:
    search_visitor(Tavrel& form, walk_output& output)
        : form_(form), state_(form.state), files_(form.outside.files), output_(output) {}

    void reached(const std::string& directory) override {
        if (state_.walk_count - last_shown_ <= files_per_path) return;
        form_.panel(2, "正在搜索" + directory);
        show_elapsed(form_);
        last_shown_ = state_.walk_count;
    }

    walk_course enter(const std::string&) override {
        return state_.quit_requested ? walk_course::quit : walk_course::go_on;
    }

    walk_course entry(const std::string& directory, std::string_view name, entry_kind kind) override {
        state_.current_path.assign(directory).append(name);
        if (kind == entry_kind::file) take_file(state_.current_path);
        return walk_course::go_on;
    }

  private:
    void take_file(const std::string& path) {
        if (state_.scan_archives == 1 || state_.only_type_length > 0 || state_.exclude_type_length > 0) {
            const std::string type = type_of(path);
            if (state_.scan_archives == 1) {
                if (type == ".RAR ") read_archive(read_rar, path);
                if (type == ".ZIP ") read_archive(read_zip, path);
            }
            if (!rejects_type(state_, type)) output_.add(path);
        } else {
            output_.add(path);
        }
        if (state_.walk_count % files_per_status == 0) {
            form_.panel(1, std::to_string(state_.walk_count));
            form_.yield();
        }
    }

    void read_archive(decltype(read_zip)& read, const std::string& path) {
        const std::int32_t errors_before = state_.archive_error_count;
        read({files_, form_.outside.encodings, state_}, path, output_);
        if (state_.archive_error_count != errors_before) output_.show_report();
    }

    Tavrel& form_;
    run_state& state_;
    file_system& files_;
    walk_output& output_;
    std::int32_t last_shown_ = 0;
};

void walk(Tavrel& form, walk_output& output) {
    run_state& state = form.state;
    const walk_rules rules = {
        .excluded = state.exclude_dir_text, .limit = state.limits.directories, .ends_at_repeat = true};
    search_visitor visitor(form, output);
    const std::span<std::string> selected = state.selected_dirs.range(1, state.selected_dir_count);
    const walk_result result = walk_tree(form.outside.files, selected, state.dir_queue, rules, visitor);
    if (result.ending != walk_course::quit && (result.limit_reached || output.full()))
        form.inform("文件或目录太多，清单只含前 " + std::to_string(state.walk_count) + " 个文件。");
}

void write_advice(line_writer& report) {
    for (const char* line : {"", "压缩包错误的验证方法", "1.选中所列的一个文件", "2.复制",
                             "3.放在地址栏,或者贴到 <开始\\运行>,回车,即可运行."})
        report.line(line);
}

}  // namespace

void walk_directories(Tavrel& form) {
    run_state& state = form.state;
    test_current_directory(form);
    state.walk_count = 0;
    state.file_list.clear();

    state.archive_error_path = form.data_path(data_file::archive_errors);
    state.archive_error_count = 0;
    file_system& disk = form.outside.files;
    line_writer report(disk.overwrite_file(state.archive_error_path), disk.data_files());
    walk_output output(state, report);
    if (state.scan_archives == 1) {
        report.line("压缩包错误清单");
        output.show_report();
    }
    {
        const wide_path_panel room(form.StatusBar1);
        walk(form, output);
    }
    if (state.scan_archives == 1) form.panel(2, "");
    if (state.archive_error_count > 0) write_advice(report);
    // The list does not need the report.
    if (!report.finish())
        report_write_failure(form, state.archive_error_path, report.error());
    else if (state.archive_error_count > 0 && !state.quit_requested)
        form.outside.desktop.open_document(state.archive_error_path);
}

void list_files(Tavrel& form) {
    run_state& state = form.state;
    写Tavrel环境文件(form);
    walk_directories(form);
    if (state.quit_requested) return;
    state.file_count = state.walk_count;
    state.file_len.assign(state.file_count, 0);
    state.first_root = !state.dir_queue.empty() ? state.dir_queue[1] : std::string();
    form.work_aside([&state] { sort_text_array(state.file_list, 1, state.file_count); });
    form.panel(1, "搜索出:" + std::to_string(state.file_count));
}

}  // namespace corvane
