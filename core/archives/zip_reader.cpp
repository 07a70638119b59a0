#include "core/archives/zip_reader.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "core/archives/archive_input.h"
#include "core/archives/archive_sink.h"
#include "core/archives/checksum.h"
#include "core/text/utf8.h"

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
constexpr std::uint16_t unicode_flag = 0x800;  // the name is UTF-8
constexpr std::uint16_t long_lengths = 1;      // kinds of extra fields
constexpr std::uint16_t unicode_name = 0x7075;
constexpr std::uint32_t kept_elsewhere = 0xFFFFFFFF;  // the number does not fit its field

enum class tail_search { found, missing, unreadable };

// Looks for the last end record in the file's tail, and reads it. It never stands at the very start.
tail_search find_end_record(archive_input& archive) {
    constexpr std::int64_t piece = 64 * std::int64_t{1024};
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

// A field of the extra data behind a name: its kind and its index and length in the buffer.
struct extra_field {
    std::uint16_t kind;
    std::size_t start;
    std::size_t length;
};

// Takes the field at `at`, which moves behind it. False: no whole one is left in the buffer.
bool next_extra_field(const archive_input& archive, std::size_t& at, std::size_t end, extra_field& field) {
    end = std::min(end, archive_input::buffer_size);
    if (at + 4 > end) return false;
    field = {archive.u16_at(at), at + 4, archive.u16_at(at + 2)};
    at = field.start + field.length;
    return at <= end;
}

// What the extra data says instead of the header's own fields.
struct better_fields {
    std::uint64_t length = kept_elsewhere;
    std::string_view name;  // empty: the header's
};

// The Unicode form of a name: a version, the checksum of the name that it stands for, the form itself. Tools
// take it in place of the name if all of that is in order.
std::string_view unicode_form(const archive_input& archive, const extra_field& field,
                              std::string_view raw_name) {
    constexpr std::size_t before = 5;
    if (field.length <= before || static_cast<unsigned char>(archive.bytes_at(field.start, 1)[0]) > 1 ||
        archive.u32_at(field.start + 1) != checksum(std::as_bytes(std::span(raw_name))))
        return {};
    const std::string_view form = archive.bytes_at(field.start + before, field.length - before);
    return is_utf8(form) && form.find('\0') == std::string_view::npos ? form : std::string_view();
}

better_fields read_extra(const archive_input& archive, std::size_t extra, std::size_t extra_length,
                         std::string_view raw_name) {
    better_fields found;
    bool has_length = false;
    bool has_name = false;
    extra_field field;
    for (std::size_t at = extra; next_extra_field(archive, at, extra + extra_length, field);) {
        if (field.kind == long_lengths && field.length >= 8 && !has_length) {
            has_length = true;
            found.length = archive.u32_at(field.start) |
                           static_cast<std::uint64_t>(archive.u32_at(field.start + 4)) << 32;
        }
        if (field.kind == unicode_name && !has_name) {
            has_name = true;
            found.name = unicode_form(archive, field, raw_name);
        }
    }
    return found;
}

// Puts the buffer on the end record. False: there is none, which is reported, or it cannot be read.
bool read_end_record(archive_input& archive, archive_state& state, const std::string& path,
                     archive_sink& sink) {
    if (!archive.is_open() || !archive.read(archive.length() - end_record_length)) return false;
    if (archive.hex32_forward_at(1) == end_signature) return true;
    const tail_search end_record = find_end_record(archive);
    if (end_record == tail_search::missing) {
        state.archive_damaged = -1;
        sink.report(path + "  已损坏,请检查");
    }
    return end_record == tail_search::found;
}

// True when the end record in the buffer, which the reading has come to at `position`, is that of the
// directory that was read: of as many records, from the same place, and with nothing behind its comment.
// Where two end records disagree a tool may see another directory.
bool ends_directory(const archive_input& archive, std::int64_t position, std::uint32_t directory,
                    std::uint32_t records) {
    if (archive.hex32_forward_at(1) == long_end_signature)
        return archive.u32_at(33) == records && archive.u32_at(49) == directory;
    return archive.u16_at(11) == (records & 0xFFFF) && archive.u32_at(17) == directory &&
           position + end_record_length + archive.u16_at(21) == archive.length();
}

}  // namespace

bool read_zip(const archive_context& context, const std::string& path, archive_sink& sink) {
    context.state.archive_damaged = 0;
    archive_input archive(context, path);
    if (!read_end_record(archive, context.state, path, sink)) return false;
    const std::uint32_t directory = archive.u32_at(17);
    if (directory == kept_elsewhere) return false;
    const std::int64_t limit = archive.length() - end_reserve;
    std::string name;
    std::uint32_t records = 0;
    std::int64_t position = directory;
    for (; position < limit; ++records) {
        if (!archive.read(position)) return false;
        const std::size_t shift = archive.hex16_at(1) == "4453" ? leading_block_length : 0;
        const std::string signature = archive.hex32_forward_at(1);
        if (signature == end_signature || signature == long_end_signature)
            return ends_directory(archive, position, directory, records);
        const bool is_unicode = (archive.u16_at(9 + shift) & unicode_flag) != 0;
        const std::string crc_text = archive.hex32_at(17 + shift);
        const std::uint32_t uncompressed_size = archive.u32_at(25 + shift);
        const std::uint16_t name_length = archive.u16_at(29 + shift);
        const std::uint16_t extra_length = archive.u16_at(31 + shift);
        const std::uint16_t comment_length = archive.u16_at(33 + shift);
        if (name_length > longest_name) return false;
        const std::size_t name_index = header_length + 1 + shift;
        if (!(is_unicode ? archive.utf8_name_at(name_index, name_length, name)
                         : archive.name_at(name_index, name_length, name)))
            return false;
        if (comment_length > 0) sink.report(path + "  *" + name + "   有附加的信息,可疑");
        position +=
            static_cast<std::int64_t>(header_length + shift) + name_length + extra_length + comment_length;

        archive_record record;
        record.name = name;
        record.raw_name = archive.bytes_at(name_index, name_length);
        record.crc_text = crc_text;
        record.length = uncompressed_size;
        record.directory = crc_text == "00000000" && name.ends_with('/');
        const std::size_t extra = name_index + name_length;
        if (extra_length > 0) {
            const better_fields better = read_extra(archive, extra, extra_length, record.raw_name);
            if (uncompressed_size == kept_elsewhere) record.length = better.length;
            if (!is_unicode && !better.name.empty()) record.raw_name = better.name;
        }
        // Extra data beyond the buffer may hold another name, and a name with a zero byte is cut by a tool
        // that writes the archive anew.
        if ((!is_unicode && extra + extra_length > archive_input::buffer_size) ||
            archive.bytes_at(name_index, name_length).find('\0') != std::string_view::npos)
            record.raw_name = {};
        if (!sink.take(record)) return false;
    }
    // No header starts here; where a directory ends in front of it, its end record does.
    return archive.read(position) && archive.hex32_forward_at(1) == end_signature &&
           ends_directory(archive, position, directory, records);
}

}  // namespace corvane
