// What is inside an archive by what its directory says now. Used by the deletion inside archives and by the
// check on the last copy.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/archives/archive_sink.h"
#include "platform/file_system.h"

namespace corvane {

class Tavrel;

// True for the type ".RAR" in either case; any other archive is a ZIP.
bool is_rar_archive(std::string_view path);

struct archive_member {
    std::string name;      // as the file list has it
    std::string raw_name;  // as archive_record tells; empty where it is not known
    std::uint32_t crc = 0;
    std::uint64_t length = 0;
    bool directory = false;
};

class archive_contents : private archive_sink {
  public:
    archive_contents(Tavrel& form, const std::string& path);
    // The index looks into the members.
    archive_contents(const archive_contents&) = delete;
    archive_contents& operator=(const archive_contents&) = delete;

    // False: there is no archive, or its directory was not read to its end and there may be more members.
    bool is_whole() const { return whole_; }
    const std::vector<archive_member>& members() const { return members_; }
    // True when a file of that name is inside.
    bool has(std::string_view name) const;
    // The file of that name; null when there is none or more than one.
    const archive_member* file(std::string_view name) const;

  private:
    bool take(const archive_record& record) override;
    void report(std::string_view) override {}

    std::size_t most_members_;  // as many as the file list may hold
    std::vector<archive_member> members_;
    std::unordered_multimap<std::string_view, std::size_t> numbers_;  // of the files, by name
    bool whole_ = false;
};

// Keeps the contents of archives that are asked for again and again. An archive that has changed on the disk
// is read anew.
class archive_shelf {
  public:
    explicit archive_shelf(Tavrel& form) : form_(form) {}

    // Valid until the next call.
    const archive_contents& contents(const std::string& path);

  private:
    struct shelved {
        file_facts facts;
        std::unique_ptr<archive_contents> contents;
    };

    Tavrel& form_;
    std::unordered_map<std::string, shelved> shelf_;
    std::size_t members_ = 0;
};

}  // namespace corvane
