#include "platform/request_pool.h"

#include <algorithm>
#include <system_error>

#include "platform/helper_thread.h"

namespace corvane {

namespace {

constexpr double clear_gain = 1.15;  // twice as many threads that answer less more than this are too many
constexpr int trusted_batches = 64;

}  // namespace

void request_pace::note(unsigned threads, std::size_t answered, double seconds) {
    // Too few to tell anything.
    if (threads < threads_ || answered < std::size_t{2} * threads || !(seconds > 0)) return;
    if (seconds * threads < waiting_seconds_ * static_cast<double>(answered)) {
        return forget();
    }
    const double rate = static_cast<double>(answered) / seconds;
    const bool is_better = best_ == 0 || !is_trying_ || rate > best_rate_ * clear_gain;
    if (!is_trying_ && best_ != 0 && --trusted_ > 0) return;
    if (!is_better) return settle();
    best_ = threads;
    best_rate_ = rate;
    if (threads_ >= most_threads) return settle();
    threads_ = std::min(threads_ * 2, most_threads);
    is_trying_ = true;
}

void request_pace::forget() {
    threads_ = warm_;
    best_ = 0;
    is_trying_ = false;
}

void request_pace::settle() {
    threads_ = best_;
    is_trying_ = false;
    trusted_ = trusted_batches;
}

unsigned request_pool::processors() {
    return std::clamp(std::thread::hardware_concurrency(), 1u, request_pace::most_threads);
}

request_pool::request_pool() = default;

request_pool::~request_pool() {
    {
        const std::lock_guard lock(guard_);
        ends_ = true;
    }
    called_.notify_all();
    for (std::thread& helper : helpers_) helper.join();
}

std::size_t request_pool::run(std::size_t count, std::size_t chunk, unsigned most, request_pace& pace,
                              const work& carry_out) {
    using clock = std::chrono::steady_clock;
    const clock::time_point start = clock::now();
    // A disk that makes threads wait gets several rows a thread, so that none waits long for the last one.
    if (pace.is_waiting())
        chunk = std::clamp<std::size_t>(count / (std::size_t{4} * pace.threads(most)), 1, chunk);
    batch asked{count, chunk, carry_out, time_limit(longest), {}, count};
    const std::size_t chunks = (count + chunk - 1) / chunk;
    const unsigned threads = std::min<unsigned>(
        pace.threads(most), static_cast<unsigned>(std::min<std::size_t>(chunks, request_pace::most_threads)));
    if (threads > 1) hire(threads - 1);
    {
        const std::lock_guard lock(guard_);
        batch_ = &asked;
        wanted_ = threads - 1;
    }
    for (unsigned helper = 1; helper < threads; ++helper) called_.notify_one();
    take_chunks(asked);
    if (threads > 1) {
        std::unique_lock lock(guard_);
        wanted_ = 0;
        finished_.wait(lock, [this] { return busy_ == 0; });
        batch_ = nullptr;
    }
    if (asked.failure) std::rethrow_exception(asked.failure);
    const std::size_t answered = std::min(asked.stopped.load(), asked.next.load());
    pace.note(threads, answered, std::chrono::duration<double>(clock::now() - start).count());
    return answered;
}

void request_pool::take_chunks(batch& asked) {
    try {
        take_chunks_until_failure(asked);
    } catch (...) {
        if (!asked.has_failed.exchange(true)) asked.failure = std::current_exception();
        asked.stopped.store(0);
    }
}

void request_pool::take_chunks_until_failure(batch& asked) {
    // Whoever takes a chunk answers its first question at least, so that the answers have no hole.
    while (asked.stopped.load() == asked.count) {
        if (asked.next.load() != 0 && asked.limit.passed()) return;
        const std::size_t first = asked.next.fetch_add(asked.chunk);
        if (first >= asked.count) return;
        const std::size_t end = std::min(first + asked.chunk, asked.count);
        const std::size_t stopped = asked.carry_out(first, end, asked.limit);
        if (stopped == end) continue;
        std::size_t known = asked.stopped.load();
        while (stopped < known && !asked.stopped.compare_exchange_weak(known, stopped)) {
        }
    }
}

void request_pool::help() {
    std::unique_lock lock(guard_);
    for (;;) {
        called_.wait(lock, [this] { return ends_ || wanted_ > 0; });
        if (ends_) return;
        --wanted_;
        ++busy_;
        batch& asked = *batch_;
        lock.unlock();
        take_chunks(asked);
        lock.lock();
        if (--busy_ == 0) finished_.notify_one();
    }
}

// A thread that the system refuses is done without.
void request_pool::hire(unsigned helpers) {
    if (helpers_.size() >= helpers) return;
    try {
        helpers_.reserve(helpers);  // a thread that has begun is not lost for want of room
        while (helpers_.size() < helpers) helpers_.push_back(start_helper([this] { help(); }));
    } catch (const std::system_error&) {
    }
}

}  // namespace corvane
