// Which paths are copies of each other, for marks: pairs that share a path are one group, wherever they
// stand. Made for a million pairs at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "core/text/text_column.h"

namespace corvane {

class pair_groups {
  public:
    explicit pair_groups(std::size_t pairs);

    struct members {
        std::int32_t first;
        std::int32_t second;
    };
    // The entries are those of text columns that outlive the object; neither is blank. Members are numbered
    // from 0 on in the order in which they come.
    members add(const char* first, const char* second);
    // After the last pair: puts the members in order.
    void close();

    std::int32_t member_count() const { return static_cast<std::int32_t>(entries_.size()); }
    std::string_view path(std::int32_t member) const { return text_arena::text_at(entry(member)); }
    std::int32_t group_count() const { return static_cast<std::int32_t>(starts_.size()) - 1; }
    // In the order of their numbers.
    std::span<const std::int32_t> group(std::int32_t number) const;
    // The group of each member.
    const std::vector<std::int32_t>& numbers() const { return numbers_; }

  private:
    const char* entry(std::int32_t member) const { return entries_[static_cast<std::size_t>(member)]; }
    std::int32_t member_of(const char* entry);
    std::int32_t root_of(std::int32_t member);

    struct slot {
        std::uint32_t hash = 0;  // its upper half
        std::int32_t member = -1;
    };
    std::vector<slot> slots_;  // open addressing
    std::vector<const char*> entries_;
    std::vector<std::int32_t> parents_;  // groups as a forest
    std::vector<std::int32_t> numbers_;  // of each member's group
    std::vector<std::int32_t> ordered_;  // members, group by group
    std::vector<std::int32_t> starts_;   // of each group in ordered_, and the end
    const char* last_entry_ = nullptr;
    std::int32_t last_member_ = -1;
};

}  // namespace corvane
