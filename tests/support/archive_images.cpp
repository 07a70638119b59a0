#include "tests/support/archive_images.h"

#include <span>

#include "core/archives/checksum.h"

namespace corvane {

std::string numbered(char letter, int number) {
    return std::string(1, letter).append(std::to_string(100'000 + number));
}

std::string low_bytes(std::uint64_t number, int count) {
    std::string bytes;
    for (int at = 0; at < count; ++at) bytes += static_cast<char>(number >> (8 * at) & 0xFF);
    return bytes;
}

std::string zip_unicode_name(const std::string& name, const std::string& utf8) {
    const std::uint32_t stands_for = checksum(std::as_bytes(std::span(name)));
    return low_bytes(0x7075, 2) + low_bytes(5 + utf8.size(), 2) + "\1" + low_bytes(stands_for, 4) + utf8;
}

std::string zip_local_file(const zip_member& member) {
    return std::string("PK\3\4") + low_bytes(10, 2) + low_bytes(member.flags, 2) + low_bytes(0, 6) +
           low_bytes(member.crc, 4) + low_bytes(member.data.size(), 4) + low_bytes(member.size, 4) +
           low_bytes(member.name.size(), 2) + low_bytes(0, 2) + member.name + member.data;
}

std::string zip_central_header(const zip_member& member, std::uint32_t local_offset) {
    return member.before + member.signature + low_bytes(20, 2) + low_bytes(10, 2) +
           low_bytes(member.flags, 2) + low_bytes(0, 6) + low_bytes(member.crc, 4) +
           low_bytes(member.data.size(), 4) + low_bytes(member.size, 4) + low_bytes(member.name.size(), 2) +
           low_bytes(member.extra.size(), 2) + low_bytes(member.comment.size(), 2) + low_bytes(0, 8) +
           low_bytes(local_offset, 4) + member.name + member.extra + member.comment;
}

std::string zip_end_record(std::uint32_t directory_offset, std::uint32_t directory_size,
                           std::uint16_t entries, const std::string& comment) {
    return std::string("PK\5\6") + low_bytes(0, 4) + low_bytes(entries, 2) + low_bytes(entries, 2) +
           low_bytes(directory_size, 4) + low_bytes(directory_offset, 4) + low_bytes(comment.size(), 2) +
           comment;
}

std::string zip_image(const std::vector<zip_member>& members, const std::string& comment) {
    std::string files;
    std::string directory;
    for (const zip_member& member : members) {
        directory += zip_central_header(member, static_cast<std::uint32_t>(files.size()));
        files += zip_local_file(member);
    }
    const auto offset = static_cast<std::uint32_t>(files.size());
    const auto size = static_cast<std::uint32_t>(directory.size());
    return files + directory +
           zip_end_record(offset, size, static_cast<std::uint16_t>(members.size()), comment);
}

namespace {

// A block's checksum: the lower half of the CRC-32 of what follows it in the header.
std::string with_checksum(const std::string& header) {
    return low_bytes(checksum(std::as_bytes(std::span(header))), 2) + header;
}

}  // namespace

std::string rar_marker() {
    return std::string("Rar!\x1A\7\0", 7);
}

std::string rar_main_header(std::uint16_t flags, const std::string& comment) {
    return with_checksum(std::string("\x73") + low_bytes(flags, 2) + low_bytes(13 + comment.size(), 2) +
                         low_bytes(0, 6)) +
           comment;
}

std::string rar_file(const rar_block& block) {
    const auto chosen = [](std::uint32_t given, std::size_t natural) {
        return given == automatic ? natural : given;
    };
    const std::size_t head_size = 32 + block.sizes_high.size() + block.name.size();
    return with_checksum(low_bytes(block.type, 1) + low_bytes(block.flags, 2) +
                         low_bytes(chosen(block.head_size, head_size), 2) +
                         low_bytes(chosen(block.pack_size, block.data.size()), 4) + low_bytes(block.size, 4) +
                         low_bytes(3, 1) + low_bytes(block.crc, 4) + low_bytes(0x5A21'8000, 4) +
                         low_bytes(29, 1) + low_bytes(0x30, 1) +
                         low_bytes(chosen(block.name_size, block.name.size()), 2) + low_bytes(0x20, 4) +
                         block.sizes_high + block.name) +
           block.data;
}

std::string rar_end_block() {
    return std::string("\xC4\x3D\x7B\x00\x40\x07\x00", 7);
}

std::string rar_image(const std::vector<rar_block>& blocks) {
    std::string bytes = rar_marker() + rar_main_header();
    for (const rar_block& block : blocks) bytes += rar_file(block);
    return bytes + rar_end_block();
}

std::vector<std::pair<std::string, std::string>> zip_seeds() {
    const zip_member text{.name = "docs/a.txt", .crc = 0x1A2B3C4D, .size = 5, .data = "hello"};
    std::vector<zip_member> many;
    for (int i = 0; i < 120; ++i) many.push_back({.name = numbered('f', i), .crc = 7, .size = 9});
    const std::string long_sizes = low_bytes(1, 2) + low_bytes(8, 2) + low_bytes(5'000'000'000, 8);
    return {
        {"empty", zip_image({})},
        {"one", zip_image({text})},
        {"commented", zip_image({text}, std::string(100, 'c'))},
        {"member_comment", zip_image({{.name = "a", .crc = 1, .size = 1, .comment = "note"}, text})},
        {"directory", zip_image({{.name = "docs/"}, {.name = "docs/none"}, text})},
        {"code_page", zip_image({{.name = "\xD6\xD0\xCE\xC4.txt", .crc = 2, .size = 2},
                                 {.name = "a*b\n\x85\xFF\x80\xC4", .crc = 3, .size = 3, .extra = "\xE3-"}})},
        {"leading_block", zip_image({{.name = "a", .before = std::string("SD").append(15, 'x')}, text})},
        {"long_length", zip_image({{.name = "big", .crc = 4, .size = 0xFFFFFFFF, .extra = long_sizes}})},
        {"unicode_name",
         zip_image(
             {{.name = "\xD6\xD0", .crc = 5, .size = 6, .extra = zip_unicode_name("\xD6\xD0", "中.txt")},
              {.name = "a", .crc = 6, .size = 6, .extra = long_sizes + zip_unicode_name("b", "c")},
              {.name = "中", .crc = 7, .size = 6, .extra = zip_unicode_name("中", "c"), .flags = 0x800}})},
        {"long_name", zip_image({text, {.name = std::string(513, 'n')}, text})},
        {"many", zip_image(many)}};
}

std::vector<std::pair<std::string, std::string>> rar_seeds() {
    const rar_block text{.name = "docs\\a.txt", .crc = 0x1A2B3C4D, .size = 5, .data = "hello"};
    std::vector<rar_block> many;
    for (int i = 0; i < 120; ++i) many.push_back({.name = numbered('f', i), .crc = 7, .size = 9});
    const std::string comment(40, 'c');
    return {
        {"empty", rar_image({})},
        {"one", rar_image({text})},
        {"two", rar_image({text, {.name = "b", .crc = 1, .size = 2, .flags = 0x9030, .data = "bb"}})},
        {"commented", rar_marker() + rar_main_header(2, comment) + rar_file(text) + rar_end_block()},
        {"sub_block", rar_image({text, {.name = "CMT", .crc = 5, .size = 9, .type = 0x7A, .data = comment}})},
        {"directory", rar_image({{.name = "docs", .flags = 0x80E0}, text})},
        {"large", rar_image({{.name = "big",
                              .crc = 2,
                              .size = 3,
                              .flags = 0x0100,
                              .data = "abc",
                              .sizes_high = low_bytes(0, 4) + low_bytes(1, 4)}})},
        {"encrypted",
         rar_image({{.name = "secret", .crc = 6, .size = 4, .flags = 0x8404, .data = "salt1234"}})},
        {"unicode", rar_image({{.name = std::string("a\xD6\xD0\0\4N-e", 8), .crc = 8, .flags = 0x8200}})},
        {"no_head_size", rar_image({text, {.name = "end", .crc = 9, .head_size = 0}, text})},
        {"many", rar_image(many)}};
}

}  // namespace corvane
