// A group: the files of one length, in a row of the columns. Opening one reads what is needed to tell its
// files apart; the comparison then asks it whether two files are the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "compare/held_contents.h"
#include "compare/read_ahead.h"
#include "core/state/file_columns.h"
#include "platform/file_system.h"

namespace corvane {

// What a group calls while it reads. All are set, but for the last two if need be.
struct group_events {
    // Lets waiting events run; false when the program is closing.
    std::function<bool()> keep_going;
    // A file is about to be touched.
    std::function<void(std::string_view path)> touches;
    // A file's signature is about to be taken.
    std::function<void(std::string_view path)> shows;
    // True while each file must be told before it is touched: then none is read ahead.
    std::function<bool()> one_at_a_time = {};
    // So many bytes of contents have been read.
    std::function<void(std::int64_t bytes)> has_read = {};
};

// Bytes of a file's start that a signature is the checksum of.
constexpr std::int64_t signature_block = 65536;
// Up to this length the bytes themselves are the signature, the first one lowest.
constexpr std::int64_t direct_signature_length = 4;

enum class sameness {
    different,
    by_rule,    // equal signatures, or name, time and signature: the contents themselves were not compared
    by_bytes,   // this group has read both
    as_before,  // an earlier comparison has, and neither file has changed since
};

class file_group {
  public:
    // The columns are prepared: sized, filled, ordered by length and name. All outlive the group.
    file_group(file_system& disk, file_columns& files, group_events events);

    std::int32_t end() const { return end_; }
    bool archive_flag() const { return archive_flag_; }
    // Set only while the file that opened the group is compared.
    void clear_archive_flag() { archive_flag_ = false; }

    // Opens the group of file i, which has a length other than 0. Three or more files, or two of which one
    // may be an archive member, get signatures and are ordered by them. False when the program is closing.
    bool open(std::int32_t i);

    // The next file after j that could be the same as i, at most end(); end() + 1 when there is none. Files
    // of another suffix are passed over where only equal suffixes are compared.
    std::int32_t next_candidate(std::int32_t i, std::int32_t j) const;

    bool signatures_differ(std::int32_t i, std::int32_t j) const;
    // Whether i and j, with equal signatures if the group has any, are the same file by the rules.
    sameness same(std::int32_t i, std::int32_t j);
    // Grows whenever same() has read contents: what was known about the files before may have changed.
    std::int32_t readings() const { return readings_; }

  private:
    using signed_file = std::pair<std::int32_t, std::int32_t>;  // signature and file

    void find_end(std::int32_t i);
    bool compute_signatures(std::int32_t i);
    bool has_signature(std::int32_t j) const;
    void read_signature(std::int32_t j);
    read_ahead::start start_of(std::int32_t j, bool reads_signatures, std::span<const std::int32_t> next);
    read_ahead::start own_start_of(std::int32_t j, std::span<const std::int32_t> next);
    void plan_unheld(std::span<const std::int32_t> files);
    bool may_read_ahead() const { return !events_.one_at_a_time || !events_.one_at_a_time(); }
    void plan_signatures(std::int32_t first, std::int32_t last);
    void plan_later_groups();
    bool plan_later_group(std::int32_t first, std::int32_t last);
    void plan_comparisons(std::int32_t first, std::int32_t last, bool ordered);
    void plan_signed_run(std::span<const signed_file> run);
    void plan(std::int32_t j);
    bool plan_is_full() const {
        return planned_.size() >= read_ahead::most_files || planned_bytes_ >= read_ahead::most_bytes;
    }
    void hold(std::span<const std::int32_t> members);
    void whole_file_signature(std::int32_t j);
    void mark_bad(std::int32_t j);
    void count(std::int64_t bytes) const {
        if (events_.has_read && bytes > 0) events_.has_read(bytes);
    }
    void chain_suffixes(std::int32_t i);
    bool accepted_unread(std::int32_t i, std::int32_t j) const;
    bool equal_contents(std::int32_t i, std::int32_t j);
    bool take_known_contents(const std::vector<std::int32_t>& members);
    void compare_contents(const std::vector<std::int32_t>& members);
    void keep_contents(const std::vector<std::int32_t>& members, const std::vector<std::int32_t>& classes,
                       std::int32_t count);
    bool known_together(std::int32_t i, std::int32_t j) const;
    std::size_t place(std::int32_t i) const { return static_cast<std::size_t>(i - first_); }

    file_system& disk_;
    file_columns& files_;
    group_events events_;
    // As it stood when the suffix column was filled: the option may be switched while a comparison runs.
    const bool same_suffix_only_;
    // Of the list as a whole: what a group reads may then depend on the one behind it.
    const bool members_listed_;
    std::int64_t last_length_ = 0;
    std::int32_t first_ = 0;
    std::int32_t end_ = 0;
    bool archive_flag_ = false;
    bool signature_mode_ = false;
    held_contents contents_;
    read_ahead ahead_;
    bool is_mixed_ = false;  // some signatures were known, some have been read
    read_ahead own_ahead_;   // for the contents of a mixed group
    std::vector<read_ahead::wanted_start> planned_;
    std::size_t planned_bytes_ = 0;
    std::vector<signed_file> signed_;          // of a later group
    std::vector<std::int32_t> content_class_;  // by place; 0 not known yet, -1 unreadable
    std::int32_t next_class_ = 1;
    std::int32_t readings_ = 0;
    std::vector<std::int32_t> next_of_suffix_;  // by place; empty unless only equal suffixes are compared
};

}  // namespace corvane
