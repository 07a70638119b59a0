// How much of the running task is done, in figures: what the console's line and that of the windows are made
// of. Fed from the models.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

class run_work {
  public:
    enum class phase { none, searching, checking, comparing };

    // Looks at the models. To be called often while a task runs.
    void follow(const Tavrel& form);

    phase now() const { return phase_; }
    // Changes with each phase that begins.
    int phases() const { return phases_; }
    // Files that the walk has found, or whose attributes were refreshed; while files are compared the work of
    // those that have been dealt with, in bytes: their lengths, and what it costs to open them.
    std::int64_t done() const { return done_; }
    std::int64_t total() const { return total_; }
    // Of the files that share their length with another one: bytes dealt with, of how many. 0 in other
    // phases.
    std::int64_t bytes_done() const { return bytes_done_; }
    std::int64_t bytes_total() const { return bytes_total_; }
    // 0 to 1; below 0 where the end is not known.
    double share() const;

  private:
    struct amount {
        std::int64_t work = 0;
        std::int64_t bytes = 0;
    };
    static phase phase_of(const Tavrel& form);
    // Of one file of the comparison; nobody reads one that is alone with its length.
    static amount amount_of(const Tavrel& form, std::int32_t i);
    void begin(const Tavrel& form, phase now);
    void follow_comparison(const Tavrel& form, std::int32_t reached);
    std::int64_t rest_of_group(const Tavrel& form);

    phase phase_ = phase::none;
    int phases_ = 0;
    std::int64_t total_ = 0;
    std::int64_t done_ = 0;
    std::int64_t bytes_total_ = 0;
    std::int64_t bytes_done_ = 0;
    std::int32_t place_ = 0;  // files that passed_ counts
    amount passed_;
    std::int64_t read_before_ = 0;  // bytes read when place_ was reached
    std::int32_t group_end_ = 0;
    std::int64_t group_rest_ = 0;  // bytes of the files from place_ to group_end_
};

}  // namespace corvane
