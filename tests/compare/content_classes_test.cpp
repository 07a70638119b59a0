#include "compare/content_classes.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

const std::function<bool()> always = [] { return true; };

std::vector<std::int32_t> classes_of(memory_file_system& files, const std::vector<std::string>& contents,
                                     std::int64_t length) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        paths.push_back("/f" + std::to_string(i));
        files.add_file(paths.back(), contents[i]);
    }
    std::vector<content_candidate> candidates;
    for (const std::string& path : paths) candidates.push_back({path, {}});
    return classify_contents(files, candidates, length, always);
}

// Two places have one class exactly if their contents are equal.
void expect_right(const std::vector<std::string>& contents, const std::vector<std::int32_t>& classes) {
    std::map<std::string, std::int32_t> class_of;
    std::map<std::int32_t, std::string> content_of;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        ASSERT_NE(classes[i], unreadable_content);
        EXPECT_EQ(class_of.emplace(contents[i], classes[i]).first->second, classes[i]);
        EXPECT_EQ(content_of.emplace(classes[i], contents[i]).first->second, contents[i]);
    }
}

TEST(ContentClasses, TellContentsApartWhereverTheyDiffer) {
    for (const std::size_t length : {1u, 100u, 65536u, 65537u, 131072u, 131073u, 700'000u}) {
        std::vector<std::string> contents(8, std::string(length, 'a'));
        for (std::size_t i = 0; i < 4; ++i) contents[i][length * i / 4] = 'b';
        contents[4][length - 1] = 'c';
        memory_file_system files;
        expect_right(contents, classes_of(files, contents, static_cast<std::int64_t>(length)));
    }
}

TEST(ContentClasses, HoldForRandomFamilies) {
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        const std::size_t length = 1 + random() % 300'000;
        std::vector<std::string> contents(2 + random() % 20, std::string(length, 'a'));
        for (std::string& content : contents)
            for (unsigned long change = random() % 3; change > 0; --change) content[random() % length] = 'b';
        memory_file_system files;
        expect_right(contents, classes_of(files, contents, static_cast<std::int64_t>(length)));
    }
}

TEST(ContentClasses, MoreFilesThanMayBeOpenAtOnce) {
    std::vector<std::string> contents;
    for (int i = 0; i < 450; ++i) contents.push_back(std::string(70'000, 'x') + std::to_string(1000 + i % 7));
    memory_file_system files;
    expect_right(contents, classes_of(files, contents, 70'004));
}

TEST(ContentClasses, AnUnreadableShortOrGrownFileEqualsNothing) {
    memory_file_system files;
    files.add_file("/f1", "equal").unreadable = true;
    const std::vector<std::int32_t> classes =
        classes_of(files, {"equal", "equal", "equa", "equal+", "equal"}, 5);
    EXPECT_EQ(classes[0], classes[4]);
    for (const std::size_t i : {1u, 2u, 3u}) EXPECT_EQ(classes[i], unreadable_content);
}

TEST(ContentClasses, HeldBytesAreNotReadAgain) {
    memory_file_system files;
    const std::string content(65536, 'h');
    files.add_file("/a", content);
    files.add_file("/b", content);
    const std::span<const std::byte> held = std::as_bytes(std::span(content));
    const std::vector<content_candidate> candidates{{"/a", held}, {"/b", held}};
    const std::vector<std::int32_t> classes = classify_contents(files, candidates, 65536, always);
    EXPECT_EQ(classes[0], classes[1]);
    EXPECT_EQ(files.total_opened(), 0);
}

TEST(ContentClasses, ADifferenceAtTheEndIsFoundBeforeTheMiddleIsRead) {
    memory_file_system files;
    std::string other(10'000'000, 'a');  // NOLINT(bugprone-string-constructor): large on purpose
    const std::string content = other;
    other.back() = 'b';
    classes_of(files, {content, other}, 10'000'000);
    EXPECT_LE(files.bytes_read["/f0"], 131072);
}

TEST(ContentClasses, GivesUpWhenAskedTo) {
    memory_file_system files;
    const std::string content(1'000'000, 'a');
    files.add_file("/a", content);
    files.add_file("/b", content);
    int asked = 0;
    const std::vector<content_candidate> candidates{{"/a", {}}, {"/b", {}}};
    const std::vector<std::int32_t> classes =
        classify_contents(files, candidates, 1'000'000, [&asked] { return ++asked < 3; });
    EXPECT_EQ(classes, (std::vector<std::int32_t>{unreadable_content, unreadable_content}));
}

// Equal files that cost no memory, and what was asked of them in its order.
struct fetch_case {
    fetch_case(int count, std::int64_t length) {
        for (int i = 0; i < count; ++i) {
            paths.push_back("/f" + std::to_string(i));
            files.add_file(paths.back(), "end").hole = length - 3;
        }
        std::vector<content_candidate> candidates;
        for (const std::string& path : paths) candidates.push_back({path, {}});
        files.read_events = &events;
        const std::vector<std::int32_t> classes = classify_contents(files, candidates, length, always);
        for (const std::int32_t each : classes) EXPECT_EQ(each, classes.front());
    }

    std::vector<std::string> paths;
    memory_file_system files;
    std::vector<read_event> events;
};

TEST(ContentClasses, AllFilesAreFetchedBeforeTheFirstIsRead) {
    const fetch_case c(3, 1'000'000);
    ASSERT_GT(c.events.size(), 4u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(c.events[i].is_fetch);
        EXPECT_EQ(c.events[i].path, c.paths[i]);
    }
    EXPECT_FALSE(c.events[3].is_fetch);
}

TEST(ContentClasses, EachByteIsFetchedOnceAndBeforeItIsRead) {
    const std::int64_t length = 50'000'000;
    const fetch_case c(2, length);
    std::map<std::string, std::map<std::int64_t, std::int64_t>> fetched;  // end by start
    for (const read_event& each : c.events) {
        auto& known = fetched[each.path];
        if (each.is_fetch) {
            const auto next = known.lower_bound(each.from);
            EXPECT_TRUE(next == known.end() || each.end <= next->first);
            EXPECT_TRUE(next == known.begin() || std::prev(next)->second <= each.from);
            known.emplace(each.from, each.end);
        } else {
            // Stretches that touch count as one.
            std::int64_t at = each.from;
            for (auto part = known.upper_bound(at); part != known.begin() && at < each.end;) {
                part = std::prev(part);
                ASSERT_LT(at, part->second) << each.path << " read at " << at;
                at = part->second;
                part = known.upper_bound(at);
            }
            EXPECT_GE(at, each.end) << each.path;
        }
    }
    for (const auto& [path, known] : fetched) {
        std::int64_t sum = 0;
        for (const auto& [from, end] : known) sum += end - from;
        EXPECT_EQ(sum, length) << path;
    }
}

TEST(ContentClasses, WhatIsFetchedAheadIsBoundedForAllFilesTogether) {
    for (const auto& [files, length] : {std::pair(10, 60'000'000), std::pair(150, 2'000'000)}) {
        const fetch_case c(files, length);
        std::int64_t ahead = 0, most = 0;
        for (const read_event& each : c.events) {
            ahead += (each.is_fetch ? 1 : -1) * (each.end - each.from);
            most = std::max(most, ahead);
        }
        EXPECT_GT(most, 1 << 20);
        EXPECT_LE(most, 20 << 20) << "a window of 16 MiB, and a quarter of it when the next one is asked for";
    }
}

TEST(ContentClasses, NothingIsFetchedOfMoreFilesThanMayBeOpen) {
    const fetch_case c(300, 100'000);
    for (const read_event& each : c.events) EXPECT_FALSE(each.is_fetch);
}

}  // namespace
}  // namespace corvane
