#include "core/archives/rar_reader.h"

#include <algorithm>

#include "core/archives/archive_input.h"
#include "core/archives/archive_sink.h"

namespace corvane {

namespace {
constexpr std::int64_t marker_length = 7;
constexpr std::int64_t end_reserve = 27;  // no block starts in the last bytes: keeps the end block out
}  // namespace

bool read_rar(const archive_context& context, const std::string& path, archive_sink& sink) {
    archive_state& state = context.state;
    state.archive_damaged = 0;
    archive_input archive(context, path);
    // Here index 0 is the first byte of the file. The marker is read as if it were a block.
    if (!archive.is_open() || !archive.read(1)) return false;
    const bool good = archive.hex8_at(2) == "72" && archive.hex16_at(3) == "1A21" && archive.u16_at(5) == 7;
    if (!good) {
        state.archive_damaged = -1;
        sink.report(path + "  已损坏,无法打开,请检查");
        return false;
    }
    const std::int64_t limit = archive.length() - end_reserve;
    std::int64_t position = marker_length + archive.u16_at(12);
    while (position < limit)
        if (!read_rar_block(state, archive, sink, position, position)) return false;
    return state.archive_damaged == 0;
}

bool read_rar_block(archive_state& state, archive_input& archive, archive_sink& sink, std::int64_t position,
                    std::int64_t& next) {
    if (!archive.read(position)) return false;
    const std::string head_type = archive.hex8_at(3);
    const std::string head_flags = archive.hex16_at(4);
    const std::uint16_t head_size = archive.u16_at(6);
    std::uint64_t pack_size = archive.u32_at(8);
    std::uint64_t unp_size = archive.u32_at(12);
    const std::string file_crc = archive.hex32_at(17);
    const std::uint16_t name_size = archive.u16_at(27);
    std::size_t name_index = 33;
    // With any other flag beside the one for large files, the high words are taken for the name.
    if (head_flags == "0100") {
        pack_size |= static_cast<std::uint64_t>(archive.u32_at(33)) << 32;
        unp_size |= static_cast<std::uint64_t>(archive.u32_at(37)) << 32;
        name_index = 41;
    }
    std::string name;
    if (!archive.name_at(name_index, name_size, name)) return false;

    // Past the end of the file all places are alike.
    next = position + head_size +
           static_cast<std::int64_t>(std::min(pack_size, static_cast<std::uint64_t>(archive.length())));
    if (head_size == 0) {
        state.archive_damaged = -1;
        next = archive.length();
    }
    if (head_type == "7A") return true;
    archive_record record;
    record.name = name;
    record.raw_name = archive.bytes_at(name_index, name_size);
    record.raw_name = record.raw_name.substr(0, record.raw_name.find('\0'));
    record.crc_text = file_crc;
    record.length = unp_size;
    record.directory = file_crc == "00000000" && (head_flags[2] == 'E' || head_flags[2] == 'F');
    return sink.take(record);
}

}  // namespace corvane
