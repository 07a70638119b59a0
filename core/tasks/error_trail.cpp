#include "core/tasks/error_trail.h"

#include <algorithm>
#include <string>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {
constexpr std::int32_t kept_records = 49;

struct run_record {
    double size;
    double seconds;
};

run_record record_of(std::string_view line) {
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) return {parse_decimal(line), 0};
    return {parse_decimal(line.substr(0, comma)), parse_decimal(line.substr(comma + 1))};
}
}  // namespace

void debug_err_Click(Tavrel& form) {
    form.debug_err.value = form.debug_err.value != 0 ? 0 : -1;
    form.state.error_trail_on = form.debug_err.value;
}

void debug_err_anly_Click(Tavrel& form) {
    line_reader reader(form.outside.files, form.data_path(data_file::trail));
    if (!reader.is_open()) return;
    std::string_view path;
    reader.next(path);
    form.txt_disp_err_file.text = path;
    form.Check1.value = 1;
    form.Frame_err.visible = true;
}

void Command46_Click(Tavrel& form) {
    const outcome result = form.outside.desktop.show_in_file_manager(form.txt_disp_err_file.text);
    if (!result) form.complain(result.reason);
}

void Command47_Click(Tavrel& form) {
    form.Frame_err.visible = false;
    if (form.Check1.value == 0) return;
    run_state& state = form.state;
    state.avoid_files.clear();
    state.avoid_count = 0;
    read_avoid_list(form);
    const std::string& path = form.txt_disp_err_file.text;
    for (std::int32_t i = 1; i <= state.avoid_count; ++i)
        if (state.avoid_files[i] == path) return;
    state.avoid_files.push_back(path);
    state.avoid_count = state.avoid_files.size();
    const std::string list = form.data_path(data_file::avoided_files);
    line_writer writer(form.outside.files, list);
    for (std::int32_t i = 1; i <= state.avoid_count; ++i) writer.line(state.avoid_files[i]);
    if (!writer.finish()) report_write_failure(form, list, writer.error());
}

void read_avoid_list(Tavrel& form) {
    line_reader reader(form.outside.files, form.data_path(data_file::avoided_files));
    if (!reader.is_open()) return;
    form.state.avoid_files.clear();
    std::string_view line;
    while (reader.next(line)) form.state.avoid_files.push_back(line);
    form.state.avoid_count = form.state.avoid_files.size();
}

void note_in_trail(Tavrel& form, std::string_view path) {
    if (form.state.error_trail_on != -1) return;
    std::string line;
    if (const data_encoding* const encoding = form.outside.files.data_files())
        encoding->append_bytes(line, path);
    else
        line = path;
    form.outside.files.put_text(form.data_path(data_file::trail), line += "\r\n");
}

void read_run_records(Tavrel& form) {
    run_state& state = form.state;
    state.run_rate = 0;
    state.run_lines.clear();
    line_reader reader(form.outside.files, form.data_path(data_file::run_records));
    std::string_view line;
    while (state.run_lines.size() < 30'000 && reader.next(line)) state.run_lines.push_back(line);
    state.run_line_count = static_cast<std::int16_t>(state.run_lines.size());

    double total = 0;
    for (std::int32_t i = 1; i <= state.run_line_count; ++i) {
        const run_record record = record_of(state.run_lines[i]);
        if (record.seconds > 0) total += record.size;
    }
    if (!(total > 0)) return;
    for (std::int32_t i = 1; i <= state.run_line_count; ++i) {
        const run_record record = record_of(state.run_lines[i]);
        if (record.seconds > 0 && record.size > 0)
            state.run_rate += (record.size / total) * (record.seconds / record.size);
    }
}

void write_run_record(Tavrel& form, std::int32_t size, std::int32_t seconds) {
    run_state& state = form.state;
    // As they stand now: not every task has read them, and another program may have added one.
    read_run_records(form);
    const std::string path = form.data_path(data_file::run_records);
    line_writer writer(form.outside.files, path);
    for (std::int32_t i = std::max(1, state.run_line_count - kept_records + 1); i <= state.run_line_count;
         ++i)
        writer.line(state.run_lines[i]);
    if (seconds > 0) {
        writer.add(std::to_string(size));
        writer.add(",");
        writer.line(std::to_string(seconds));
    }
    if (!writer.finish()) report_write_failure(form, path, writer.error());
}

}  // namespace corvane
