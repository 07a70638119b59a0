#include "search/zip_reader.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "core/archive_entry.h"
#include "core/main_form.h"
#include "search/archive_input.h"
#include "search/walk_output.h"

namespace corvane {

namespace {

constexpr char end_signature[] = "504B0506";
constexpr char long_end_signature[] = "504B0606";  // stands first in large archives
constexpr std::int64_t end_record_length = 22;
constexpr std::int64_t longest_tail = 5'000'000;
constexpr std::int64_t end_reserve = 40;  // no header starts in the last bytes of the file
constexpr std::size_t header_length = 46;
constexpr std::size_t leading_block_length = 17;
constexpr std::uint16_t longest_name = 0x200;
constexpr std::uint32_t kept_elsewhere = 0xFFFFFFFF;  // the number does not fit its field

enum class tail_search { found, missing, unreadable };

// Looks for the last end record in the file's tail, and reads it. It never stands at the very start.
tail_search find_end_record(archive_input& archive) {
    constexpr std::int64_t piece = 64 * 1024;
    const std::int64_t first = std::max<std::int64_t>(1, archive.length() - longest_tail);
    std::vector<std::byte> tail_buffer(piece + 3);
    // Each piece holds three bytes of the one behind it: a signature may lie across both.
    for (std::int64_t end = archive.length() - 3; end > first;) {
        const std::int64_t start = std::max(first, end - piece);
        const std::int64_t count = archive.read_beside(
            start, std::span(tail_buffer.data(), static_cast<std::size_t>(end - start + 3)));
        if (count < 0) return tail_search::unreadable;
        for (std::int64_t at = count - 4; at >= 0; --at) {
            if (std::memcmp(tail_buffer.data() + at, "PK\5\6", 4) != 0) continue;
            return archive.read(start + at) ? tail_search::found : tail_search::unreadable;
        }
        end = start;
    }
    return tail_search::missing;
}

// The length of an entry whose own field says that it is kept elsewhere: the first number of the extra field
// of kind 1.
std::uint64_t long_length(const archive_input& archive, std::size_t extra, std::size_t extra_length) {
    const std::size_t end = std::min(extra + extra_length, archive_input::buffer_size);
    while (extra + 12 <= end) {
        const std::size_t length = archive.u16_at(extra + 2);
        if (archive.u16_at(extra) == 1 && length >= 8)
            return archive.u32_at(extra + 4) | static_cast<std::uint64_t>(archive.u32_at(extra + 8)) << 32;
        extra += 4 + length;
    }
    return kept_elsewhere;
}

}  // namespace

void read_zip(Tavrel& form, const std::string& path, walk_output& output) {
    run_state& state = form.state;
    state.archive_damaged = 0;
    archive_input archive(form, path);
    if (!archive.is_open() || !archive.read(archive.length() - end_record_length)) return;
    if (archive.hex32_forward_at(1) != end_signature) {
        const tail_search end_record = find_end_record(archive);
        if (end_record == tail_search::missing) {
            state.archive_damaged = -1;
            output.report(path + "  已损坏,请检查");
        }
        if (end_record != tail_search::found) return;
    }
    const std::uint32_t directory = archive.u32_at(17);
    if (directory == kept_elsewhere) return;
    const std::int64_t limit = archive.length() - end_reserve;
    std::string name;
    std::string entry;
    for (std::int64_t position = directory; position < limit;) {
        if (!archive.read(position)) return;
        const std::size_t shift = archive.hex16_at(1) == "4453" ? leading_block_length : 0;
        const std::string signature = archive.hex32_forward_at(1);
        if (signature == end_signature || signature == long_end_signature) return;
        const std::string crc_text = archive.hex32_at(17 + shift);
        std::uint64_t uncompressed_size = archive.u32_at(25 + shift);
        const std::uint16_t name_length = archive.u16_at(29 + shift);
        const std::uint16_t extra_length = archive.u16_at(31 + shift);
        const std::uint16_t comment_length = archive.u16_at(33 + shift);
        if (name_length > longest_name) return;
        const std::size_t name_index = header_length + 1 + shift;
        if (!archive.name_at(name_index, name_length, name)) return;
        if (comment_length > 0) output.report(path + "  *" + name + "   有附加的信息,可疑");
        position +=
            static_cast<std::int64_t>(header_length + shift) + name_length + extra_length + comment_length;
        if (crc_text == "00000000" && name.ends_with('/')) continue;
        if (uncompressed_size == kept_elsewhere)
            uncompressed_size = long_length(archive, name_index + name_length, extra_length);
        entry.clear();
        append_archive_entry(entry, state.current_path, name, crc_text, uncompressed_size);
        if (!output.add(entry)) return;
    }
}

}  // namespace corvane
