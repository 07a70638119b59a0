#include "core/environment.h"

#include "core/main_form.h"
#include "core/text_file.h"

namespace corvane {

namespace {
constexpr char directory_list_name[] = "比较文件_目录清单.txt";
}

bool 写Tavrel环境文件(Tavrel& form) {
    const std::string path = form.data_path(directory_list_name);
    line_writer writer(form.outside.files, path);
    for (std::int16_t i = 1; i <= form.state.selected_dir_count; ++i)
        writer.line(form.state.selected_dirs[static_cast<std::size_t>(i)]);
    if (writer.finish()) return true;
    form.complain(path + "\r\n" + writer.error());
    return false;
}

void read_environment(Tavrel& form) {
    run_state& state = form.state;
    state.selected_dirs.assign(1, {});
    line_reader reader(form.outside.files, form.data_path(directory_list_name));
    std::string_view line;
    while (static_cast<std::int32_t>(state.selected_dirs.size()) <= state.limits.selected_directories &&
           reader.next(line))
        state.selected_dirs.emplace_back(line);
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size() - 1);
}

}  // namespace corvane
