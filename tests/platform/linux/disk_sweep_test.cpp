// A sweep reads in the order of the disk and answers in the order of the list.
#include "platform/linux/disk_sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>

#include "platform/linux/linux_file_system.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

// A disk whose arm takes 1 ms a hundred places, and whose system remembers what was read.
struct arm_disk {
    explicit arm_disk(int count) {
        std::mt19937 random(11);
        for (int i = 0; i < count; ++i) {
            paths.push_back("/d/" + std::to_string(10000 + i));
            places[paths.back()] = random() % 100'000;
        }
        contents.resize(static_cast<std::size_t>(count));
    }
    std::vector<start_request> requests() {
        std::vector<start_request> asked;
        for (std::size_t i = 0; i < paths.size(); ++i)
            asked.push_back({paths[i], std::as_writable_bytes(std::span(&contents[i], 1)), 1});
        return asked;
    }
    void read(start_request& request) {
        const std::string path(request.path);
        if (remembered.insert(path).second) {
            const std::int64_t way = std::abs(static_cast<std::int64_t>(places.at(path)) - arm);
            now += 0.001 + 1e-5 * static_cast<double>(way);
            travelled += way;
            arm = static_cast<std::int64_t>(places.at(path));
        }
        request.buffer[0] = static_cast<std::byte>(path.back());
        request.count = 1;
    }
    disk_sweep sweep() {
        return {[this](std::string_view path) { return places.at(std::string(path)); },
                [this](start_request& request) { read(request); }, [this] { return now; }};
    }

    std::vector<std::string> paths;
    std::map<std::string, std::uint64_t> places;
    std::vector<char> contents;
    std::set<std::string> remembered;
    double now = 100;
    std::int64_t arm = 0;
    std::int64_t travelled = 0;
};

std::int64_t read_all(arm_disk& disk, disk_sweep& sweep) {
    std::vector<start_request> asked = disk.requests();
    std::int64_t calls = 0;
    for (std::size_t done = 0; done < asked.size(); ++calls) {
        const std::size_t answered = sweep.read(std::span(asked).subspan(done));
        for (std::size_t i = done; i < done + answered; ++i) {
            EXPECT_EQ(asked[i].count, 1);
            EXPECT_EQ(disk.contents[i], disk.paths[i].back());
        }
        done += answered;
    }
    return calls;
}

TEST(DiskSweep, TravelsOverTheDiskOnceForWhatTheListJumpsAboutFor) {
    arm_disk in_list_order(512), swept(512);
    std::vector<start_request> asked = in_list_order.requests();
    for (start_request& each : asked) in_list_order.read(each);
    disk_sweep sweep = swept.sweep();
    read_all(swept, sweep);
    EXPECT_EQ(swept.remembered.size(), 512u);
    EXPECT_LE(swept.travelled, 100'000) << "once over it; the list goes some 170 times as far";
    EXPECT_GT(in_list_order.travelled, 100 * swept.travelled);
}

TEST(DiskSweep, NoCallTakesLongerThanItMay) {
    arm_disk disk(300);
    disk_sweep sweep = disk.sweep();
    std::vector<start_request> asked = disk.requests();
    for (std::size_t done = 0; done < asked.size();) {
        const double start = disk.now;
        done += sweep.read(std::span(asked).subspan(done));
        // The last reading of the sweep may begin within its time.
        EXPECT_LE(disk.now - start, 0.035 + 1.001);
    }
}

TEST(DiskSweep, OfAnotherListAnswersThatList) {
    arm_disk disk(40);
    disk_sweep sweep = disk.sweep();
    std::vector<start_request> asked = disk.requests();
    sweep.read(asked);
    std::reverse(asked.begin(), asked.end());
    for (start_request& each : asked) each.count = -1;
    for (std::size_t done = 0; done < asked.size();) {
        const std::size_t answered = sweep.read(std::span(asked).subspan(done));
        for (std::size_t i = done; i < done + answered; ++i) EXPECT_EQ(asked[i].count, 1);
        done += answered;
    }
}

// A pace that has found the disk to give so many answers a second, however many threads ask.
request_pace settled_at(double rate) {
    request_pace pace(2, 1e-4);
    for (int batch = 0; batch < 8; ++batch) {
        const unsigned threads = pace.threads(request_pace::most_threads);
        pace.note(threads, 1000, 1000 / rate);
    }
    return pace;
}

TEST(DiskSweep, IsTriedOnlyWhereTheDiskIsSlowWhateverTheThreads) {
    arm_disk disk(1);
    disk_sweep sweep = disk.sweep();
    request_pace unknown(2, 1e-4), quick = settled_at(5000), slow = settled_at(150);
    EXPECT_FALSE(sweep.is_wanted(unknown));
    EXPECT_FALSE(sweep.is_wanted(quick));
    EXPECT_TRUE(sweep.is_wanted(slow));
}

TEST(DiskSweep, IsKeptWhereItGainsAndLeftWhereItDoesNot) {
    for (const bool gains : {true, false}) {
        arm_disk disk(600);
        disk_sweep sweep = disk.sweep();
        // In the order of the list the disk gives some 3 a second; 1,500 it does not give by any sweep.
        request_pace pace = settled_at(gains ? 3 : 1500);
        ASSERT_TRUE(sweep.is_wanted(pace));
        read_all(disk, sweep);
        EXPECT_EQ(sweep.is_wanted(pace), gains);
        if (gains) continue;
        for (int call = 1; call < disk_sweep::rest_calls; ++call) EXPECT_FALSE(sweep.is_wanted(pace));
        EXPECT_TRUE(sweep.is_wanted(pace)) << "tried again later";
    }
}

TEST(DiskSweep, WhatAnswersFromMemoryIsLeftToTheThreads) {
    arm_disk disk(600);
    for (const std::string& path : disk.paths) disk.remembered.insert(path);
    disk_sweep sweep = disk.sweep();
    request_pace pace = settled_at(150);
    ASSERT_TRUE(sweep.is_wanted(pace));
    read_all(disk, sweep);
    EXPECT_FALSE(sweep.is_wanted(pace));
    EXPECT_EQ(pace.settled_rate(), 0) << "measured anew";
    EXPECT_EQ(pace.threads(request_pace::most_threads), 2u);
}

using PlaceOnDisk = scratch_folder;

TEST_F(PlaceOnDisk, OfWhatIsNoReadableFileIsTheStart) {
    EXPECT_EQ(place_on_disk(root + "gone"), 0u);
    EXPECT_EQ(place_on_disk(root), 0u);
    std::ofstream(root + "file") << std::string(100'000, 'x');
    EXPECT_NE(place_on_disk(root + "file"), 0u);
}

TEST_F(PlaceOnDisk, TheRealReadingGivesTheBytesOfEachFile) {
    std::vector<std::string> paths;
    for (int i = 100; i < 160; ++i) {
        paths.push_back(root + std::to_string(i));
        std::ofstream(paths.back()) << i;
    }
    std::vector<std::array<std::byte, 4>> buffers(paths.size());
    std::vector<start_request> asked;
    for (std::size_t i = 0; i < paths.size(); ++i) asked.push_back({paths[i], buffers[i], 3});
    linux_file_system files;
    double now = 0;
    disk_sweep sweep(
        place_on_disk,
        [&](start_request& each) { each.count = files.read_start(each.path, each.buffer, each.expected); },
        [&] { return now += 0.001; });
    for (std::size_t done = 0; done < asked.size();) done += sweep.read(std::span(asked).subspan(done));
    for (std::size_t i = 0; i < asked.size(); ++i) {
        ASSERT_EQ(asked[i].count, 3) << i;
        EXPECT_EQ(std::to_string(100 + i), std::string(reinterpret_cast<const char*>(buffers[i].data()), 3));
    }
}

}  // namespace
}  // namespace corvane
