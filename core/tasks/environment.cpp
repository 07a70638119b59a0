#include "core/tasks/environment.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/settings/environment_table.h"
#include "core/tasks/progress.h"
#include "core/text/date_text.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

bool finish(Tavrel& form, line_writer& writer, const std::string& path) {
    if (writer.finish()) return true;
    if (!form.state.program_dir_locked) report_write_failure(form, path, writer.error());
    return false;
}

bool write_settings(Tavrel& form) {
    const std::string path = form.data_path(data_file::environment);
    line_writer writer(form.outside.files, path);
    for (int line = 1; line <= environment_lines; ++line) {
        const auto held = form.state.held_lines.find(line);
        writer.line(held != form.state.held_lines.end() ? held->second : environment_text(form.state, line));
    }
    return finish(form, writer, path);
}

bool write_selected_directories(Tavrel& form) {
    const std::string path = form.data_path(data_file::selected_directories);
    line_writer writer(form.outside.files, path);
    for (std::int16_t i = 1; i <= form.state.selected_dir_count; ++i)
        writer.line(form.state.selected_dirs[i]);
    return finish(form, writer, path);
}

bool read_lines(Tavrel& form, const std::string& path) {
    line_reader reader(form.outside.files, path);
    std::string_view text;
    for (int line = 1; line <= environment_lines; ++line)
        if (!reader.next(text) || !take_environment_line(form.state, line, text)) return false;
    return true;
}

void set_action_text(run_state& state) {
    if (state.shut_action == 0) state.shut_action = 1;
    if (const char* words = end_action_words(state.shut_action)) state.shutdown_action_text = words;
}

void read_selected_directories(Tavrel& form) {
    run_state& state = form.state;
    state.selected_dirs.clear();
    state.selected_dir_count = 0;
    const std::string path = form.data_path(data_file::selected_directories);
    if (!form.outside.files.attributes(path).exists) return form.inform(path + "  不存在");
    line_reader reader(form.outside.files, path);
    if (!reader.is_open()) return form.complain(path + "\r\n" + reader.error());
    std::string_view line;
    bool full = false;
    while (!full && reader.next(line)) {
        full = state.selected_dirs.size() >= state.limits.selected_directories;
        if (!full) state.selected_dirs.push_back(std::string(line));
    }
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size());
    state.walked_dirs = state.result_dirs = state.selected_dirs;
    if (full) form.complain(path + "\r\n只取前 " + std::to_string(state.selected_dir_count) + " 行。");
}

}  // namespace

const char* end_action_words(int shut_action) {
    static constexpr std::array<const char*, 5> words = {nullptr, "关闭程序.", "关闭所有程序,重启windows.",
                                                         "重新启动计算机.", "关闭计算机."};
    const bool known = shut_action >= 0 && shut_action < static_cast<int>(words.size());
    return known ? words[static_cast<std::size_t>(shut_action)] : nullptr;
}

std::int16_t stored_place(int twips) {
    return static_cast<std::int16_t>(std::clamp<int>(twips, std::numeric_limits<std::int16_t>::min(),
                                                     std::numeric_limits<std::int16_t>::max()));
}

void keep_options_place(settings& values, const form_model& options) {
    if (options.window != window_state::normal) return;
    values.optform_left = stored_place(options.place.left);
    values.optform_top = stored_place(options.place.top);
    values.optform_width = stored_place(options.place.width);
    values.optform_height = stored_place(options.place.height);
}

void collect_environment(Tavrel& form) {
    run_state& state = form.state;
    if (form.window == window_state::normal) {
        state.main_left = stored_place(form.place.left);
        state.main_top = stored_place(form.place.top);
        state.main_width = stored_place(form.place.width);
        state.main_height = stored_place(form.place.height);
    }
    const local_time now = form.outside.screen.now();
    state.last_used = date_text(now) + "  " + time_text(now);
    state.export_levels = whole_number(form.Text3.text);
    state.export_skip_types = form.Text4.text;
    const form_model* options = form.child("Form_no_dire");
    if (options != nullptr) keep_options_place(state, *options);
    state.error_trail_on = form.debug_err.value;
}

bool 写Tavrel环境文件(Tavrel& form) {
    collect_environment(form);
    const bool settings_written = write_settings(form);
    return write_selected_directories(form) && settings_written;
}

void set_for_this_run(run_state& state, std::string_view setting, std::int32_t number) {
    const auto table = environment_table();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const environment_entry& entry) { return setting == entry.name; });
    if (found == table.end()) throw std::logic_error("no setting of that name");
    state.held_lines.try_emplace(found->line, environment_text(state, found->line));
    set_setting_number(state, found->line, number);
}

void read_environment(Tavrel& form) {
    run_state& state = form.state;
    const std::string path = form.data_path(data_file::environment);
    const path_attributes found = form.outside.files.attributes(path);
    if (!found.exists || found.directory) {
        if (写Tavrel环境文件(form) && !state.program_dir_locked)
            form.inform(path + "  第一次运行，已自动建立环境文件");
        return;
    }
    if (read_lines(form, path)) {
        form.place = {state.main_left, state.main_top, state.main_width, state.main_height};
        if (state.tree_levels < 1) state.tree_levels = 4;
    } else {
        form.outside.files.remove_data_file(path);
    }
    form.Text3.text = std::to_string(state.export_levels);
    form.Text4.text = state.export_skip_types;
    set_action_text(state);
    state.list_font_size =
        std::clamp<std::int32_t>(state.list_font_size, smallest_list_font, largest_list_font);
    form.debug_err.value = state.error_trail_on != 0 ? -1 : 0;
    read_selected_directories(form);
}

}  // namespace corvane
