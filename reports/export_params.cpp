#include "reports/export_params.h"

#include <string>
#include <string_view>
#include <unordered_set>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"
#include "reports/current_list.h"

namespace corvane {

namespace {

// The text behind the last dot of the path; all of it where there is none.
std::string_view text_behind_dot(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? path : path.substr(dot + 1);
}

// Whether the path has more than `levels` separators. `fold` is then the path up to and with the separator
// that comes after so many others. What stands inside an archive is no path of the disk.
bool lies_deeper(std::string_view entry, std::int32_t levels, char separator, std::string_view& fold) {
    const std::string_view path = archive_path_of(entry);
    std::int32_t count = 0;
    for (std::size_t at = path.find(separator); at != std::string_view::npos;
         at = path.find(separator, at + 1)) {
        if (++count <= levels) continue;
        fold = path.substr(0, at + 1);
        return true;
    }
    return false;
}

}  // namespace

void out_sele_Click(Tavrel& form) {
    form.Frame6.visible = true;
}

void Frame6_DblClick(Tavrel& form) {
    form.Frame6.visible = false;
    read_export_params(form);
}

void read_export_params(Tavrel& form) {
    form.state.export_levels = whole_number(form.Text3.text);
    form.state.export_skip_types = upper_case(trimmed(form.Text4.text));
}

bool take_file_list(Tavrel& form) {
    if (hold_file_list(form)) return true;
    if (!form.state.quit_requested) form.complain("没有文件，请重新选择目录,重新搜索");
    return false;
}

bool filter_export_list(Tavrel& form) {
    if (!take_file_list(form)) return false;
    run_state& state = form.state;
    const std::string& skipped = state.export_skip_types;
    if (is_blank(skipped)) {
        copy_export_list(form);
        return true;
    }
    const char separator = form.outside.files.separator();
    state.export_list.clear_and_share(state.file_list);
    std::unordered_set<std::string_view> folds;
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        const std::string_view path = state.file_list[i];
        if (skipped.find(upper_case(text_behind_dot(path))) != std::string::npos) continue;
        std::string_view fold;
        if (state.export_levels <= 0 || !lies_deeper(path, state.export_levels, separator, fold))
            state.export_list.push_entry(state.file_list.entry(i));
        else if (folds.insert(fold).second)
            state.export_list.push_back(fold);
    }
    state.export_count = state.export_list.size();
    return true;
}

void copy_export_list(Tavrel& form) {
    run_state& state = form.state;
    state.export_list.clear_and_share(state.file_list);
    state.export_list.reserve(state.file_count);
    for (std::int32_t i = 1; i <= state.file_count; ++i)
        state.export_list.push_entry(state.file_list.entry(i));
    state.export_count = state.file_count;
}

}  // namespace corvane
