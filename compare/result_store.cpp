#include "compare/result_store.h"

#include <string>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {
constexpr std::int32_t rows_per_status = 101;
constexpr std::int32_t files_per_status = 1000;
}  // namespace

bool write_same_files(Tavrel& form) {
    run_state& state = form.state;
    if (state.result_count == 0) {
        form.outside.files.remove_data_file(state.same_file_path);
        return true;
    }
    bar_colours(form, 255, 0x400040, 0xC0C0C0);
    bar_scale(form, state.result_count);
    line_writer writer(form.outside.files, state.same_file_path);
    writer.line(padded_same_file_title());
    writer.number(state.result_count);
    for (std::int32_t n = 1; n <= state.result_count; ++n) {
        const std::int32_t a = state.same_pair[1][n];
        const std::int32_t b = state.same_pair[2][n];
        writer.number(state.file_len[a]);
        writer.line(state.file_list[a]);
        writer.line(state.file_list[b]);
        if (n % rows_per_status == 0) form.pic_gressbar1.draw(n);
    }
    if (writer.finish()) return true;
    report_write_failure(form, state.same_file_path, writer.error());
    return false;
}

bool write_different_files(Tavrel& form) {
    run_state& state = form.state;
    const std::string path = form.data_path(data_file::different_files);
    bar_colours(form, 0xA00000, 0x1744F7, 0xAAF0F0);
    bar_scale(form, state.file_count);
    line_writer writer(form.outside.files, path);
    state.different_count = 0;
    state.different_files.clear();
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        if (!state.file_has_twin[i]) {
            writer.line(state.file_list[i]);
            state.different_files.push_back(state.file_list[i]);
            ++state.different_count;
        }
        if (i % files_per_status == 0) bar_draw(form, i);
    }
    if (writer.finish()) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace corvane
