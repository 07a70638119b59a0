#include "compare/result_store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "compare/group.h"
#include "core/archives/archive_entry.h"
#include "core/archives/checksum.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {
constexpr std::int32_t rows_per_status = 101;
constexpr std::int32_t files_per_status = 1000;

// The CRC-32 of a file's content, where the comparison has come to know it.
std::int64_t known_checksum(const file_columns& files, std::int32_t i) {
    const auto signature = static_cast<std::uint32_t>(files.file_crc[i]);
    const std::int64_t length = files.file_len[i];
    if (length == 0) return 0;
    if (is_archive_member(files.file_list[i])) return signature;
    // No signature was taken, or it happens to be 0, which reads the same.
    if (signature == 0) return result_state::no_checksum;
    if (length <= direct_signature_length) {
        std::array<std::byte, direct_signature_length> bytes{};
        for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = std::byte(signature >> (8 * at) & 0xFF);
        return checksum(std::span(bytes).first(static_cast<std::size_t>(length)));
    }
    const bool is_whole =
        length <= signature_block || (!files.file_start_crc.empty() && files.file_start_crc[i].has_value());
    return is_whole ? signature : result_state::no_checksum;
}

std::int64_t known_checksum(const file_columns& files, std::int32_t a, std::int32_t b) {
    const std::int64_t first = known_checksum(files, a);
    return first != result_state::no_checksum ? first : known_checksum(files, b);
}

}  // namespace

bool write_same_files(Tavrel& form) {
    run_state& state = form.state;
    state.pair_checksum.clear();
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
        state.pair_checksum.push_back(known_checksum(state, a, b));
        if (n % rows_per_status == 0) bar_draw(form, n);
    }
    if (finish_file(form, writer)) return true;
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
    state.different_packed = {};
    // The texts are those of the list; the room is taken once.
    state.different_files.clear_and_share(state.file_list);
    const auto twins = std::count(state.file_has_twin.begin(), state.file_has_twin.end(), 1);
    state.different_files.reserve(state.file_count - static_cast<std::int32_t>(twins));
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        if (!state.file_has_twin[i]) {
            writer.line(state.file_list[i]);
            state.different_files.push_entry(state.file_list.entry(i));
            ++state.different_count;
        }
        if (i % files_per_status == 0) bar_draw(form, i);
    }
    if (finish_file(form, writer)) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace corvane
