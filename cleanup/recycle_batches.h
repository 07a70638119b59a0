// Paths on their way to the recycle bin, in batches of 1,000: the unit in which a run reports its progress.
// Used by the deletion of files and of empty directories.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace corvane {

class Tavrel;

class recycle_batches {
  public:
    static constexpr std::size_t batch_size = 1000;

    // `path` is a full path of the disk.
    void add(std::string path);
    std::size_t batch_count() const { return batches_.size(); }

    // Hands every batch to the recycle bin, yielding at each. After each batch the bar moves to it, panel 5
    // reads "已删除:" with its number times 1,000, and the elapsed time is shown. What the bin refuses stays
    // on the disk. Ends early when the program is closing. `may_go` is asked for each path by its number from
    // 0 on, right before it goes; without it all go.
    void send(Tavrel& form, const std::function<bool(std::size_t)>& may_go = {});

  private:
    std::vector<std::vector<std::string>> batches_;
};

}  // namespace corvane
