// The walk of the empty-directory search. Says of each directory visited whether it holds nothing: no file,
// no directory, no link, nothing that could not be seen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/text/text_column.h"
#include "core/walk/tree_walk.h"

namespace corvane {

class Tavrel;

class empty_walk : private walk_visitor {
  public:
    explicit empty_walk(Tavrel& form) : form_(form) {}

    // Walks the selected directories once. Fills dir_queue and walk_count; Command28 ends it behind the
    // directory in hand, the closing of the program at the next name.
    walk_course run();

    // In the order of the visit, from 1. The last one of a cancelled walk is not finished.
    std::int32_t visited_count() const { return visited_.size(); }
    std::string_view visited(std::int32_t k) const { return visited_[k]; }
    // False for what could not be read to its end, and for a link.
    bool is_empty(std::int32_t k) const;
    // Directories were left out because a limit was reached.
    bool limit_reached() const { return limit_reached_; }

  private:
    walk_course enter(const std::string& directory) override;
    walk_course entry(const std::string& directory, std::string_view name, entry_kind kind) override;
    walk_course leave(const std::string& directory, directory_reading reading,
                      const std::string& last_name) override;
    void links_begin() override;
    void show_directory(const std::string& directory);
    void take_file();
    void show_failure(const std::string& name);
    std::string figure() const;

    Tavrel& form_;
    text_column visited_;
    column<char> holds_something_;  // 1 also for what could not be seen; parallel to visited_
    std::int32_t first_link_ = 0;   // the visit from which on links are listed; 0: none
    bool limit_reached_ = false;
};

}  // namespace corvane
