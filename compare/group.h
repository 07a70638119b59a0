// A group: the files of one length, in a row of the columns. Opening one reads what is needed to tell its
// files apart; the comparison then asks it whether two files are the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "core/model/run_state.h"

namespace corvane {

class Tavrel;

// Contents that the signature pass has read and that are held until the group is left. Bounded.
class held_contents {
  public:
    void clear();
    // False when the bound is reached; `bytes` is then not held.
    bool hold(std::int32_t place, std::span<const std::byte> bytes);
    // Places move with their files: place i takes what stood at old_places[i].
    void reorder(const std::vector<std::int32_t>& old_places);
    // Places count from 0 within the group. Empty when nothing is held.
    std::span<const std::byte> at(std::int32_t place) const;

  private:
    static constexpr std::size_t memory_bound = 16 << 20;

    struct extent {
        std::size_t offset = 0;
        std::size_t length = 0;
    };

    std::vector<std::byte> bytes_;
    std::vector<extent> extents_;
};

class file_group {
  public:
    explicit file_group(Tavrel& form);

    std::int32_t end() const { return end_; }
    bool archive_flag() const { return archive_flag_; }
    // Set only while the file that opened the group is compared.
    void clear_archive_flag() { archive_flag_ = false; }

    // Opens the group of file i, which has a length other than 0. Three or more files, or two of which one
    // may be an archive member, get signatures and are ordered by them. False when quit_requested was met.
    bool open(std::int32_t i);

    // The next file after j that could be the same as i, at most end(); end() + 1 when there is none. Files
    // of another suffix are passed over where only equal suffixes are compared.
    std::int32_t next_candidate(std::int32_t i, std::int32_t j) const;

    bool signatures_differ(std::int32_t i, std::int32_t j) const;
    // Whether i and j, with equal signatures if the group has any, are the same file by the rules.
    bool same(std::int32_t i, std::int32_t j);

  private:
    void find_end(std::int32_t i);
    bool compute_signatures(std::int32_t i);
    void read_signature(std::int32_t j, std::vector<std::byte>& buffer);
    void whole_file_signature(std::int32_t j, std::vector<std::byte>& buffer);
    void mark_bad(std::int32_t j);
    void chain_suffixes(std::int32_t i);
    bool accepted_unread(std::int32_t i, std::int32_t j) const;
    bool equal_contents(std::int32_t i, std::int32_t j);
    std::size_t place(std::int32_t i) const { return static_cast<std::size_t>(i - first_); }

    Tavrel& form_;
    run_state& state_;
    // As it stood when the suffix column was filled: the option may be switched while a comparison runs.
    const bool same_suffix_only_;
    std::int64_t last_length_ = 0;
    std::int32_t first_ = 0;
    std::int32_t end_ = 0;
    bool archive_flag_ = false;
    bool signature_mode_ = false;
    held_contents contents_;
    std::vector<std::int32_t> content_class_;  // by place; 0 not known yet, -1 unreadable
    std::int32_t next_class_ = 1;
    std::vector<std::int32_t> next_of_suffix_;  // by place; empty unless only equal suffixes are compared
};

}  // namespace corvane
