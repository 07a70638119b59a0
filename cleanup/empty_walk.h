// The walk of the empty-directory search. Says of each directory visited whether it holds nothing: no file,
// no directory, no link, nothing that could not be seen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/text_column.h"
#include "core/walk/walk_links.h"

namespace corvane {

class Tavrel;
struct run_state;

class empty_walk {
  public:
    enum class ending { finished, cancelled, quit };

    explicit empty_walk(Tavrel& form);

    // Walks the selected directories once. Fills dir_queue and walk_count; Command28 ends it behind the
    // directory in hand, the closing of the program at the next name.
    ending run();

    // In the order of the visit, from 1. The last one of a cancelled walk is not finished.
    std::int32_t visited_count() const { return visited_.size(); }
    std::string_view visited(std::int32_t k) const { return visited_[k]; }
    // False for what could not be read to its end, and for a link.
    bool is_empty(std::int32_t k) const;
    // Directories were left out because a limit was reached.
    bool limit_reached() const { return full_; }

  private:
    void queue_roots();
    void enqueue(std::string directory);
    // False: the program is closing.
    bool list_one(const std::string& directory);
    void take_directory(const std::string& directory, std::string found);
    void take_file();
    void show_failure(const std::string& name);
    std::string figure() const;
    // Files and queue entries so far, and what counts like them.
    std::int64_t entries() const;

    Tavrel& form_;
    walk_links links_;
    text_column visited_;
    std::vector<std::int64_t> marks_{0};  // entries() at the start of each visit
    // Entries that are neither files nor queued, less links that are queued without being an entry again.
    std::int64_t beside_ = 0;
    std::int32_t first_link_ = 0;  // the visit from which on links are listed; 0: none
    bool full_ = false;
};

}  // namespace corvane
