#include "tests/support/archive_probe.h"

#include "core/archives/archive_entry.h"
#include "core/archives/archive_input.h"
#include "core/archives/rar_reader.h"
#include "core/archives/zip_reader.h"
#include "search/walk_output.h"

namespace corvane {

namespace {

bool all_of(std::string_view text, std::string_view allowed) {
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

bool breaks_a_line(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char unit) {
        const auto byte = static_cast<unsigned char>(unit);
        return byte < 0x20 || byte == 0x7F;
    });
}

// An entry must come apart again into its four fields.
bool is_sound(std::string_view entry, std::string_view path) {
    if (breaks_a_line(entry) || std::count(entry.begin(), entry.end(), '*') != 3) return false;
    if (archive_path_of(entry) != path) return false;
    const std::size_t size = entry.rfind('*');
    const std::size_t crc = entry.rfind('*', size - 1);
    return size - crc == 9 && all_of(entry.substr(crc + 1, 8), "0123456789ABCDEF") &&
           all_of(entry.substr(size + 1), "0123456789");
}

}  // namespace

archive_probe::archive_probe(const std::string& type)
    : path_("/d/a." + type), least_member_(type == "zip" ? 46 : 1) {
    program_.state.current_path = path_;
}

std::string archive_probe::read(std::string bytes) {
    run_state& state = program_.state;
    const std::size_t length = bytes.size();
    program_.files.add_file(path_, std::move(bytes));
    program_.files.bytes_read.clear();
    state.entry_buffer.fill(std::byte{0});
    state.file_list.clear();
    state.walk_count = 0;
    state.archive_error_count = 0;
    line_writer report(program_.files.overwrite_file("/prog/err.txt"));
    walk_output output(state, report);
    const archive_context context{program_.files, program_.encodings, state};
    if (least_member_ == 1)
        read_rar(context, path_, output);
    else
        read_zip(context, path_, output);
    report.finish();

    if (program_.files.open_now != 0) return "left open";
    if (state.file_list.size() != state.walk_count) return "count";
    if (static_cast<std::size_t>(state.walk_count) > length / least_member_ + 1)
        return "more members than fit";
    std::size_t listed = 0;
    for (std::int32_t i = 1; i <= state.walk_count; ++i) {
        if (!is_sound(state.file_list[i], path_)) return "entry: " + std::string(state.file_list[i]);
        listed += state.file_list[i].size();
    }
    // A byte of a name becomes three at most, and the other fields have their longest. The records in the
    // last bytes of a file may have names that go on behind its end, in what the buffer held before.
    constexpr std::size_t buffer = archive_input::buffer_size;
    const auto records = static_cast<std::size_t>(state.walk_count);
    const std::size_t behind_end = std::min(records, buffer / 32 + 1) * buffer;
    if (listed > 3 * (length + behind_end) + records * (path_.size() + 32)) return "list too long";
    if (program_.files.bytes_read[path_] > static_cast<std::int64_t>(4 * length + 300'000))
        return "read too much";
    const std::vector<std::string> lines = program_.stored_lines("err.txt");
    if (lines.size() != static_cast<std::size_t>(state.archive_error_count)) return "report";
    for (const std::string& line : lines)
        if (breaks_a_line(line) || !line.starts_with(path_)) return "report: " + line;
    return {};
}

}  // namespace corvane
