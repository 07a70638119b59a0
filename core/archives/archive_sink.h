// What the readers of archive directories hand on: one record for each file or directory inside. The walk
// takes them into the file list, the deletion looks its entries up in them.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

// The views are valid until the sink returns.
struct archive_record {
    // From code page 936, or from UTF-8 where the record says so; what would break a line or an entry mapped.
    std::string_view name;
    // The bytes of the name, of a ZIP those of its Unicode form where it has a valid one. Empty where it is
    // not certain what a tool takes for the name.
    std::string_view raw_name;
    std::string_view crc_text;  // eight upper-case hexadecimal digits
    std::uint64_t length = 0;   // unpacked, in bytes
    bool directory = false;
};

class archive_sink {
  public:
    virtual ~archive_sink() = default;
    // False ends the reading of this archive.
    virtual bool take(const archive_record& record) = 0;
    // Something about the archive that the user is to know.
    virtual void report(std::string_view line) = 0;
};

}  // namespace corvane
