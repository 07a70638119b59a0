// The one gate before anything leaves the disk. Whatever has twins, be it on its way to the recycle bin,
// deleted for good or taken out of an archive, is asked about here right before it goes.
//
// The promise: a path may go only while a keeper is proven at that moment. A keeper is another member of its
// group that
//   - is alive: there, a regular file of the row's length, not in a recycle directory, and not taken in this
//   run;
//   - is physically another one: a second link of the same file counts, the same file by a second road (a
//   bind
//     mount, a link above it, the two sides of a stacked mount) does not, and neither does an entry of the
//     same archive by whatever path;
//   - has the same content now: both sides stand as they did when this run of the program compared their
//   bytes
//     (identity, length, modification and change time), or they are compared byte for byte on the spot. An
//     entry that keeps is looked up in its archive's directory as it is now, and its checksum held against
//     the file's.
// What lies in a protected folder never goes, by whatever road it is reached; it can keep others.
// Nothing is believed that can be asked: no mark, row, stored file or column. An archive that has kept a file
// stays as it is for the rest of the run, and an archive of which anything is marked keeps nobody.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "cleanup/archive_contents.h"
#include "cleanup/content_check.h"
#include "cleanup/copy_groups.h"
#include "core/state/proven_files.h"
#include "core/tasks/protected_folders.h"
#include "core/text/text_hash.h"
#include "platform/file_system.h"

namespace corvane {

class Tavrel;

enum class gate_verdict {
    may_go,
    gone,       // it is no longer there, or went in this run already
    last_copy,  // no other member of its group is alive
    changed,    // it or its copies are no longer what was compared
    covered     // it lies in a protected folder
};

class deletion_gate {
  public:
    // Reads groups and marks off the rows as they stand. The texts of the list's cells must stay valid, which
    // they do while its columns live.
    explicit deletion_gate(Tavrel& form);

    // A first look at a path of a row of `length` bytes, without reading contents: what fails here fails for
    // good. An archive entry itself is not looked for.
    gate_verdict looks_free(std::string_view path, std::int64_t length);
    // The proof. Yields while it reads. In a view that is no list of copies there is nothing to prove but
    // that the path is still the regular file of that length.
    gate_verdict ask(std::string_view path, std::int64_t length);
    // The same for an entry that stands in its archive as `member`: what keeps it must have its checksum.
    gate_verdict ask(std::string_view path, const archive_member& member);

    // `path` has gone or is on its way: it keeps nobody any more.
    void take(std::string_view path);
    // It stays after all.
    void give_back(std::string_view path);
    bool is_taken(std::string_view path) const { return taken_.count(path) != 0; }

  private:
    // What is asked to go.
    struct leaving {
        std::string_view path;
        std::int64_t length;
        bool proves;  // contents are looked at, too
        bool on_disk;
        file_facts facts;                  // on the disk
        std::optional<std::uint32_t> crc;  // once it is known
    };
    enum class keeping { keeps, absent, differs };

    gate_verdict judge(leaving file);
    keeping keeps(std::string_view keeper, leaving& file);
    keeping entry_keeps(std::string_view keeper, leaving& file);
    bool has_same_bytes(std::string_view keeper, const file_facts& kept, leaving& file);
    bool proven_equal(std::string_view a, const file_facts& facts_a, std::string_view b,
                      const file_facts& facts_b) const;
    bool has_checksum(leaving& file, std::uint32_t crc);
    const archive_member* member_at(std::string_view entry, std::int64_t length);
    bool lies_in_recycle_directory(std::string_view path);
    bool is_below_recycle_directory(const std::string& folder);
    // A number for each archive, the same by whatever path.
    std::size_t archive_number(std::string_view path);

    Tavrel& form_;
    file_system& files_;
    content_check contents_;
    protection protected_;
    copy_groups groups_;
    archive_shelf shelf_;
    // What this gate has compared itself, beside what the comparison has proven.
    struct known_state {
        std::int32_t star;
        file_state facts;
    };
    std::unordered_map<std::string, known_state, text_hash, std::equal_to<>> compared_;
    std::int32_t next_star_ = 0;  // counts down: the comparison's stars are positive
    std::unordered_set<std::string, text_hash, std::equal_to<>> taken_;
    std::unordered_set<std::size_t> touched_archives_;  // marked themselves, or an entry of theirs is
    std::unordered_set<std::size_t> trusted_archives_;  // kept a file in this run: they and theirs stay
    std::unordered_map<std::string, std::size_t> archive_numbers_;
    struct known_archive {
        std::string path;
        file_facts facts;
        std::size_t number;
    };
    std::unordered_multimap<std::int64_t, known_archive> archives_;  // by length
    std::unordered_map<std::string, bool> recycle_folders_;
};

}  // namespace corvane
