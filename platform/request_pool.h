// Carries out many small questions to the disk on a bounded number of threads while the caller waits. Used by
// the disks of both systems for their calls that take many paths.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace corvane {

// When no further question is to be begun.
class time_limit {
  public:
    explicit time_limit(std::chrono::milliseconds from_now) : end_(clock::now() + from_now) {}
    bool passed() const { return clock::now() >= end_; }

  private:
    using clock = std::chrono::steady_clock;
    clock::time_point end_;
};

// How many threads ask. A disk that answers from memory is asked by as many as there are processors. One that
// makes a thread wait is tried with twice as many as long as that answers more in the same time; what has won
// is kept for a while. The device is not asked what it is: a virtual one does not know.
class request_pace {
  public:
    // A thread that gets its answer later than `waiting_seconds` has waited for something.
    request_pace(unsigned processors, double waiting_seconds)
        : warm_(processors), waiting_seconds_(waiting_seconds), threads_(processors) {}

    unsigned threads(unsigned most) const { return threads_ < most ? threads_ : most; }
    // The disk makes threads wait: it is asked by more of them than there are processors.
    bool is_waiting() const { return threads_ > warm_; }
    // Answers a second with as many threads as were found best for a disk that makes them wait; 0 while that
    // is not known.
    double settled_rate() const { return best_ != 0 && !is_trying_ ? best_rate_ : 0; }
    // Begins anew.
    void forget();
    // `threads` have answered `answered` questions in `seconds`.
    void note(unsigned threads, std::size_t answered, double seconds);

    static constexpr unsigned most_threads = 32;

  private:
    void settle();

    const unsigned warm_;
    const double waiting_seconds_;
    unsigned threads_;      // for the next questions
    unsigned best_ = 0;     // of those tried; 0: nothing is known of a disk that waits
    double best_rate_ = 0;  // answers a second with them
    bool is_trying_ = false;
    int trusted_ = 0;  // how often the best are still believed to be that
};

class request_pool {
  public:
    // Carries out the questions first to end - 1 in their order, until the limit has passed but always the
    // first of them; returns where it stopped. Runs on several threads at once.
    using work = std::function<std::size_t(std::size_t first, std::size_t end, const time_limit& limit)>;

    request_pool();
    ~request_pool();
    request_pool(const request_pool&) = delete;
    request_pool& operator=(const request_pool&) = delete;

    // Questions 0 to count - 1, at most `chunk` in a row to one thread, on at most `most` threads, the
    // caller's included. Returns how many were answered from the first on, at least one; all threads are at
    // rest then, also when what a thread threw is thrown on.
    std::size_t run(std::size_t count, std::size_t chunk, unsigned most, request_pace& pace,
                    const work& carry_out);

    // A disk makes nobody wait longer than this before it lets the caller look around.
    static constexpr std::chrono::milliseconds longest{50};
    static unsigned processors();

  private:
    struct batch {
        std::size_t count;
        std::size_t chunk;
        const work& carry_out;
        time_limit limit;
        std::atomic<std::size_t> next{0};
        std::atomic<std::size_t> stopped;  // the first question that was left unanswered
        std::atomic<bool> has_failed{false};
        std::exception_ptr failure{};  // the first one; the caller's once all threads are at rest
    };

    void help();
    static void take_chunks(batch& asked);
    static void take_chunks_until_failure(batch& asked);
    void hire(unsigned helpers);

    std::mutex guard_;
    std::condition_variable called_;
    std::condition_variable finished_;
    batch* batch_ = nullptr;
    unsigned wanted_ = 0;  // helpers that may still join
    unsigned busy_ = 0;
    bool ends_ = false;
    std::vector<std::thread> helpers_;
};

}  // namespace corvane
