// Archives as bytes, laid out by the public formats: what the tests of the readers feed them. Contents are
// stored, and checksums are whatever a member says, so that every field can be set.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

// The letter and six digits, in the order of the numbers.
std::string numbered(char letter, int number);

// The lowest `count` bytes of a number, low to high.
std::string low_bytes(std::uint64_t number, int count);

struct zip_member {
    std::string name;
    std::uint32_t crc = 0;
    std::uint32_t size = 0;
    std::string comment{};
    std::string extra{};
    std::string data{};
    std::string before{};  // bytes in front of the central header
    std::string signature = "PK\1\2";
    std::uint16_t flags = 0;  // 0x800: the name is UTF-8
};

// The extra field with the Unicode form of a name.
std::string zip_unicode_name(const std::string& name, const std::string& utf8);

std::string zip_local_file(const zip_member& member);
std::string zip_central_header(const zip_member& member, std::uint32_t local_offset = 0);
std::string zip_end_record(std::uint32_t directory_offset, std::uint32_t directory_size,
                           std::uint16_t entries, const std::string& comment = {});
// A whole archive.
std::string zip_image(const std::vector<zip_member>& members, const std::string& comment = {});

constexpr std::uint32_t automatic = 0xFFFF'FFFF;

struct rar_block {
    std::string name;
    std::uint32_t crc = 0;
    std::uint32_t size = 0;
    std::uint16_t flags = 0x8000;
    std::uint8_t type = 0x74;
    std::string data{};
    std::string sizes_high{};             // the two high words, with the flag for large files
    std::uint32_t pack_size = automatic;  // the length of the data
    std::uint32_t head_size = automatic;  // what the header takes
    std::uint32_t name_size = automatic;
};

std::string rar_marker();
// `comment` stands inside the header, as the oldest archives have it.
std::string rar_main_header(std::uint16_t flags = 0, const std::string& comment = {});
std::string rar_file(const rar_block& block);
std::string rar_end_block();
// A whole archive.
std::string rar_image(const std::vector<rar_block>& blocks);

// Archives that reach every turn of the readers: names, for the files of a corpus, and bytes.
std::vector<std::pair<std::string, std::string>> zip_seeds();
std::vector<std::pair<std::string, std::string>> rar_seeds();

}  // namespace corvane
