// Which paths are copies of each other by the rows of the list: rows that share a path belong together,
// wherever they stand. Used by the gate; what the rows say is a claim that it proves.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace corvane {

class list_view;

class copy_groups {
  public:
    // The texts of the list's cells must stay valid, which they do while its columns live.
    // `turn` lets waiting events run, now and then: they may set other marks, the rows are those that they
    // were.
    explicit copy_groups(
        const list_view& list, const std::function<void()>& turn = [] {});

    struct group {
        std::vector<std::string_view> paths;
        std::size_t next = 0;  // where the last keeper stood: the search for the next one begins there
    };
    // Null for a path of no group.
    group* group_of(std::string_view path);

    // The marked paths, red or blue, in the order of the rows; a path that is marked twice stands here twice.
    const std::vector<std::string_view>& marked() const { return marked_; }

  private:
    std::size_t member_of(std::string_view path);
    std::size_t root_of(std::size_t member);

    std::unordered_map<std::string_view, std::size_t> number_;
    std::vector<std::size_t> parent_;                // groups as a forest
    std::unordered_map<std::size_t, group> groups_;  // by root
    std::vector<std::string_view> marked_;
};

}  // namespace corvane
