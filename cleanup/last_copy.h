// Keeps the last living copy of a file. The rows of the list tell which paths are copies of each other: rows
// that share a path belong together. Asked before each marked path goes. Used by the deletion of files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cleanup/archive_contents.h"
#include "platform/file_system.h"

namespace corvane {

class Tavrel;

class last_copy {
  public:
    // Reads the groups and marks off the rows as they stand. The texts of the list's cells must stay valid,
    // which they do while its columns live.
    explicit last_copy(Tavrel& form);

    // True when `path`, of a row of `length` bytes, may go: it is still the regular file of that length, and
    // another member of its group is still there: on the disk, another physical file or a second link of this
    // one, of that length, not in a recycle directory and not taken in this run; in an archive, a file of
    // that name and length while the archive stands and neither it nor anything in it is marked. With
    // `by_content` what keeps a file on the disk must be equal byte for byte, in an archive of its checksum;
    // that yields between blocks. An archive entry itself is not looked for.
    bool may_go(std::string_view path, std::int64_t length, bool by_content);
    // The same for an entry that stands in its archive as `member`: what keeps it must have its checksum.
    bool may_go(std::string_view path, const archive_member& member);
    // `path` has gone or is on its way: it keeps nobody any more.
    void take(std::string_view path);
    // It stays after all.
    void give_back(std::string_view path);

  private:
    // What is asked to go.
    struct leaving {
        std::string_view path;
        std::int64_t length;
        bool by_content;
        bool on_disk;
        file_facts facts;                  // on the disk
        std::optional<std::uint32_t> crc;  // once it is known
    };

    bool has_keeper(leaving file);
    bool is_keeper(std::string_view keeper, leaving& file);
    bool is_entry_keeper(std::string_view keeper, leaving& file);
    bool has_checksum(leaving& file, std::uint32_t crc);
    const archive_member* member_at(std::string_view entry, std::int64_t length);
    bool is_same_entry(std::string_view a, std::string_view b);
    bool lies_in_recycle_directory(std::string_view path);
    bool is_below_recycle_directory(const std::string& folder);
    bool same_content(std::string_view a, std::string_view b, std::int64_t length);
    std::optional<std::uint32_t> checksum_of(std::string_view path, std::int64_t length);

    std::size_t root_of(std::size_t member);
    std::size_t member_of(std::string_view path);

    Tavrel& form_;
    file_system& files_;
    archive_shelf shelf_;
    std::unordered_map<std::string_view, std::size_t> number_;  // of each path
    std::vector<std::size_t> parent_;                           // groups as a forest
    std::vector<std::string_view> paths_;
    struct group {
        std::vector<std::size_t> numbers;
        std::size_t next = 0;  // where the last keeper stood
    };
    std::unordered_map<std::size_t, group> groups_;  // by root
    std::unordered_map<std::string, bool> recycle_folders_;
    std::unordered_set<std::string_view> taken_;
    std::unordered_set<std::string_view> touched_archives_;  // marked themselves, or an entry of theirs is
    std::unordered_set<std::string_view> trusted_archives_;  // kept a file in this run: they and theirs stay
};

}  // namespace corvane
