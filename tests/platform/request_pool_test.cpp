#include "platform/request_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <set>
#include <thread>
#include <vector>

namespace corvane {
namespace {

struct pool_case {
    request_pool pool;
    request_pace pace{4, 1.0};

    std::size_t run(std::size_t count, std::size_t chunk, unsigned most, const request_pool::work& work) {
        return pool.run(count, chunk, most, pace, work);
    }
};

TEST(RequestPool, AsksEachQuestionOnceWhateverTheChunksAndThreads) {
    pool_case c;
    for (const std::size_t chunk : {1, 7, 64, 1000})
        for (const unsigned most : {1u, 2u, 4u})
            for (const std::size_t count : {1, 2, 63, 64, 65, 500}) {
                std::vector<std::atomic<int>> asked(count);
                const std::size_t answered =
                    c.run(count, chunk, most, [&](std::size_t first, std::size_t end, const time_limit&) {
                        EXPECT_LE(end - first, chunk);
                        for (std::size_t i = first; i < end; ++i) ++asked[i];
                        return end;
                    });
                EXPECT_EQ(answered, count);
                for (const std::atomic<int>& each : asked) EXPECT_EQ(each, 1);
            }
}

TEST(RequestPool, UsesTheCallersThreadAloneForOneChunk) {
    pool_case c;
    std::set<std::thread::id> threads;
    c.run(5, 8, 4, [&](std::size_t, std::size_t end, const time_limit&) {
        threads.insert(std::this_thread::get_id());
        return end;
    });
    EXPECT_EQ(threads, std::set<std::thread::id>{std::this_thread::get_id()});
}

// A chunk that waits for another thread to come in would wait for ever in a pool of one.
TEST(RequestPool, ThreadsWorkAtTheSameTime) {
    pool_case c;
    std::mutex guard;
    std::condition_variable came;
    std::set<std::thread::id> threads;
    bool met = true;
    c.run(2, 1, 2, [&](std::size_t, std::size_t end, const time_limit&) {
        std::unique_lock lock(guard);
        threads.insert(std::this_thread::get_id());
        came.notify_all();
        met &= came.wait_for(lock, std::chrono::seconds(20), [&] { return threads.size() == 2; });
        return end;
    });
    EXPECT_TRUE(met);
    EXPECT_EQ(threads.size(), 2u);
}

TEST(RequestPool, ReturnsWhenTheLastThreadIsAtRest) {
    pool_case c;
    std::atomic<bool> entered = false;
    std::atomic<int> inside = 0;
    const std::thread::id caller = std::this_thread::get_id();
    c.run(2, 1, 2, [&](std::size_t, std::size_t end, const time_limit&) {
        ++inside;
        if (std::this_thread::get_id() == caller) {
            // Done only when the other one is in the midst of its own.
            while (!entered) std::this_thread::yield();
        } else {
            entered = true;
            for (int turn = 0; turn < 1000; ++turn) std::this_thread::yield();
        }
        --inside;
        return end;
    });
    EXPECT_EQ(inside, 0);
}

TEST(RequestPool, WhatAThreadThrowsIsThrownOnWithAllAtRest) {
    pool_case c;
    for (int turn = 0; turn < 50; ++turn) {
        std::atomic<int> inside = 0;
        EXPECT_THROW(c.run(64, 1, 4,
                           [&](std::size_t first, std::size_t end, const time_limit&) {
                               ++inside;
                               const bool fails = first % 16 == 7;
                               --inside;
                               if (fails) throw std::bad_alloc();
                               return end;
                           }),
                     std::bad_alloc);
        EXPECT_EQ(inside, 0);
    }
    // The pool works on.
    EXPECT_EQ(c.run(8, 1, 4, [](std::size_t, std::size_t end, const time_limit&) { return end; }), 8u);
}

TEST(RequestPool, AnswersHaveNoHoleWhereAThreadStopped) {
    pool_case c;
    for (int turn = 0; turn < 200; ++turn) {
        const std::size_t answered =
            c.run(400, 4, 4, [](std::size_t first, std::size_t end, const time_limit&) {
                // Each chunk that holds a question of 50 stops before it, but for its own first one.
                for (std::size_t i = first + 1; i < end; ++i)
                    if (i % 50 == 49) return i;
                return end;
            });
        EXPECT_EQ(answered, 49u) << "the first unanswered question, whatever was answered behind it";
    }
}

TEST(RequestPool, BeginsNothingAfterTheLimitButAnswersTheFirst) {
    pool_case c;
    const auto start = std::chrono::steady_clock::now();
    const std::size_t answered =
        c.run(1'000'000, 1, 2, [](std::size_t first, std::size_t, const time_limit& limit) {
            while (!limit.passed()) std::this_thread::yield();
            return first + 1;
        });
    EXPECT_GE(answered, 1u);
    EXPECT_LE(answered, 2u) << "one a thread";
    EXPECT_GE(std::chrono::steady_clock::now() - start, request_pool::longest);
}

TEST(RequestPool, IsAtRestWhenItReturns) {
    pool_case c;
    std::atomic<int> at_work = 0;
    for (int turn = 0; turn < 500; ++turn) {
        c.run(64, 2, 4, [&](std::size_t, std::size_t end, const time_limit&) {
            ++at_work;
            std::this_thread::yield();
            --at_work;
            return end;
        });
        ASSERT_EQ(at_work, 0);
    }
}

// What a pace settles on when so many threads get `rate(threads)` answers a second.
unsigned settled(request_pace& pace, double (*rate)(unsigned)) {
    for (int batch = 0; batch < 20; ++batch) {
        const unsigned threads = pace.threads(request_pace::most_threads);
        pace.note(threads, 1000, 1000 / rate(threads));
    }
    return pace.threads(request_pace::most_threads);
}

TEST(RequestPace, ADiskThatAnswersFromMemoryIsAskedByTheProcessors) {
    request_pace pace(2, 1e-3);
    EXPECT_EQ(settled(pace, [](unsigned) { return 100'000.0; }), 2u);
}

TEST(RequestPace, ADeviceThatGainsFromManyGetsThem) {
    request_pace pace(2, 1e-3);
    EXPECT_EQ(settled(pace, [](unsigned threads) { return 50.0 * threads; }), request_pace::most_threads);
}

TEST(RequestPace, ADeviceWithOneHeadKeepsTheProcessors) {
    request_pace pace(2, 1e-3);
    EXPECT_EQ(settled(pace, [](unsigned) { return 100.0; }), 2u);
}

TEST(RequestPace, StopsWhereMoreThreadsGainNoMore) {
    request_pace pace(1, 1e-3);
    EXPECT_EQ(settled(pace, [](unsigned threads) { return 100.0 * std::min(threads, 4u); }), 4u);
}

TEST(RequestPace, ComesBackWhenTheDiskAnswersFromMemory) {
    request_pace pace(2, 1e-3);
    settled(pace, [](unsigned threads) { return 50.0 * threads; });
    EXPECT_EQ(settled(pace, [](unsigned) { return 100'000.0; }), 2u);
}

TEST(RequestPace, NeverMoreThanAreAllowed) {
    request_pace pace(8, 1e-3);
    EXPECT_EQ(pace.threads(4), 4u);
}

}  // namespace
}  // namespace corvane
