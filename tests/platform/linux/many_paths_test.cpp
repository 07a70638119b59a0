// Calls of the Linux disk that take many paths: each answer is that of the call for one.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "core/state/proven_files.h"
#include "platform/linux/linux_existence.h"
#include "platform/linux/linux_file_system.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace disk = std::filesystem;

class ManyPaths : public scratch_folder {
  protected:
    void write(const std::string& path, const std::string& content) {
        disk::create_directories(disk::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }
    // 600 files of 30 directories, in ascending order, and among them what has no facts.
    std::vector<std::string> tree() {
        std::vector<std::string> paths;
        for (int i = 0; i < 600; ++i) {
            const std::string path =
                root + "d" + std::to_string(i / 20) + "/e/file" + std::to_string(i) + ".txt";
            write(path, std::string(static_cast<std::size_t>(i % 97), static_cast<char>('a' + i % 26)));
            paths.push_back(path);
        }
        mkfifo((root + "d3/fifo").c_str(), 0600);
        disk::create_symlink(root + "d1/e", root + "link");
        disk::create_symlink(paths[0], root + "d1/e/link_to_file");
        for (const char* odd :
             {"d3/fifo", "d3", "d3/e/", "gone", "gone/file", "d1//e/file20.txt", "link/file21.txt",
              "d1/e/link_to_file", "d1/e/../e/file22.txt", "d1/e/*", "d1/*e/file23.txt", "d1/e//file24.txt"})
            paths.push_back(root + odd);
        paths.emplace_back();
        paths.emplace_back("relative");
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    // The answers to all paths, asked as often as it takes.
    template <class Answer>
    std::vector<Answer> answers_to(const std::vector<std::string>& paths,
                                   std::size_t (file_system::*ask)(std::span<const std::string_view>,
                                                                   std::span<Answer>),
                                   const Answer& before) {
        const std::vector<std::string_view> views(paths.begin(), paths.end());
        std::vector<Answer> answers(paths.size(), before);
        file_system& asked = files;
        for (std::size_t done = 0; done < views.size();) {
            const std::size_t answered =
                (asked.*ask)(std::span(views).subspan(done), std::span(answers).subspan(done));
            EXPECT_GE(answered, 1u);
            done += answered;
        }
        return answers;
    }
    std::vector<file_facts> many(const std::vector<std::string>& paths) {
        return answers_to<file_facts>(paths, &file_system::many_facts, {});
    }
    void expect_the_same_facts(const std::vector<std::string>& paths) {
        const std::vector<file_facts> answers = many(paths);
        for (std::size_t i = 0; i < paths.size(); ++i) {
            const file_facts alone = files.facts(paths[i]);
            EXPECT_EQ(answers[i].exists, alone.exists) << paths[i];
            if (alone.exists) {
                EXPECT_TRUE(same_state(answers[i], alone)) << paths[i];
                EXPECT_EQ(answers[i].link_count, alone.link_count) << paths[i];
            }
        }
    }

    std::vector<std::uint8_t> many_exist(const std::vector<std::string>& paths) {
        return answers_to<std::uint8_t>(paths, &file_system::many_exist, 7);
    }
    void expect_the_same_existence(const std::vector<std::string>& paths) {
        const std::vector<std::uint8_t> answers = many_exist(paths);
        for (std::size_t i = 0; i < paths.size(); ++i)
            ASSERT_EQ(answers[i], path_exists(files, paths[i]) ? 1 : 0) << paths[i];
    }

    linux_file_system files;
};

TEST_F(ManyPaths, FactsAreThoseOfEachAlone) {
    std::vector<std::string> paths = tree();
    expect_the_same_facts(paths);
    EXPECT_TRUE(files.facts(root + "d1//e/file20.txt").exists) << "odd paths are real ones";
    // Neighbours that share nothing, and twice the same.
    std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
    paths.insert(paths.end(), 20, paths.front());
    expect_the_same_facts(paths);
}

TEST_F(ManyPaths, NamesThatAreMappedAreFoundFromTheirDirectory) {
    std::vector<std::string> paths;
    disk::create_directories(root + "li\nne");
    for (int i = 0; i < 40; ++i) {
        const std::string name = "li\nne/st*r\t" + std::to_string(i) + "\xFF";
        std::ofstream(root + name) << i;
    }
    const auto reader = files.open_directory(root);
    std::string_view name;
    entry_kind kind;
    ASSERT_TRUE(reader->next(name, kind));
    const std::string directory = root + std::string(name) + '/';
    const auto inside = files.open_directory(directory);
    while (inside->next(name, kind)) paths.push_back(directory + std::string(name));
    ASSERT_EQ(paths.size(), 40u);
    for (const file_facts& each : many(paths)) EXPECT_TRUE(each.exists);
    for (const std::uint8_t exists : many_exist(paths)) EXPECT_EQ(exists, 1);
    paths[20] += "no";
    expect_the_same_existence(paths);
}

TEST_F(ManyPaths, ADirectoryThatMayNotBeEnteredHidesItsFilesFromBoth) {
    const std::vector<std::string> paths = tree();
    disk::permissions(root + "d5", disk::perms::none);
    expect_the_same_facts(paths);
    expect_the_same_existence(paths);
    // It may be read, but not entered: the names are seen, the files are not. (The superuser enters it.)
    disk::permissions(root + "d6/e", disk::perms::owner_read);
    expect_the_same_existence(paths);
    disk::permissions(root + "d6/e", disk::perms::owner_all);
    disk::permissions(root + "d5", disk::perms::owner_all);
}

TEST_F(ManyPaths, WhatExistsIsWhatEachSaysAlone) {
    std::vector<std::string> paths = tree();
    disk::create_symlink("/nowhere/at/all", root + "d2/e/dangling");
    for (int i = 0; i < 600; i += 3)
        paths.push_back(root + "d" + std::to_string(i / 20) + "/e/gone" + std::to_string(i));
    for (const char* odd :
         {"d2/e/dangling", "d2/e/.", "d2/e/..", "d2/e/", "d2/e/file40.txt/", "d2/e/file40.txt/x"})
        paths.push_back(root + odd);
    std::sort(paths.begin(), paths.end());
    ASSERT_EQ(std::count(paths.begin(), paths.end(), root + "d2/e/dangling"), 1);
    expect_the_same_existence(paths);
    paths.insert(paths.end(), 20, paths[100]);
    expect_the_same_existence(paths);
    std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
    expect_the_same_existence(paths);
}

TEST_F(ManyPaths, WhatExistsIsFoundInADirectoryOfAnySize) {
    std::vector<std::string> paths;
    for (int i = 0; i < 5000; ++i) {
        const std::string path = root + "large/some name " + std::to_string(i);
        if (i % 5 != 4) write(path, "");
        paths.push_back(path);
    }
    expect_the_same_existence(paths);
    // A few of many, the last ones of the directory among them.
    std::vector<std::string> few;
    for (int i = 0; i < 5000; i += 500) few.push_back(paths[static_cast<std::size_t>(i)]);
    few.push_back(root + "large/not there");
    expect_the_same_existence(few);
    // None of them is there, and then the directory itself is not.
    std::vector<std::string> none;
    for (int i = 0; i < 100; ++i) none.push_back(root + "large/gone " + std::to_string(i));
    for (int i = 0; i < 100; ++i) none.push_back(root + "no directory/" + std::to_string(i));
    expect_the_same_existence(none);
}

TEST_F(ManyPaths, StartsAreThoseOfEachAlone) {
    const std::vector<std::string> paths = tree();
    std::vector<std::byte> memory(paths.size() * 64), alone(64);
    std::vector<start_request> requests;
    for (std::size_t i = 0; i < paths.size(); ++i)
        requests.push_back({paths[i], std::span(memory).subspan(i * 64, 64), i % 70});
    for (std::size_t done = 0; done < requests.size();)
        done += files.read_starts(std::span(requests).subspan(done));
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::int64_t count = files.read_start(paths[i], alone, i % 70);
        ASSERT_EQ(requests[i].count, count) << paths[i];
        EXPECT_TRUE(count < 0 || std::equal(alone.begin(), alone.begin() + count, requests[i].buffer.begin()))
            << paths[i];
    }
}

TEST_F(ManyPaths, DirectoriesHaveTheEntriesOfEachAlone) {
    tree();
    std::string large = root + "large";
    for (int i = 0; i < 3000; ++i)
        write(large + "/a name that fills the buffer sooner " + std::to_string(i), "");
    std::vector<std::string> paths = {root,   root + "gone", large, root + "d1/e", root + "d1/e/file20.txt",
                                      "/proc"};
    for (int i = 2; i < 30; ++i) paths.push_back(root + "d" + std::to_string(i) + "/e");
    std::vector<outcome_with<directory_reader>> opened;
    while (opened.size() < paths.size()) {
        auto more = files.open_directories(std::span(paths).subspan(opened.size()));
        ASSERT_GE(more.size(), 1u);
        std::move(more.begin(), more.end(), std::back_inserter(opened));
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const auto alone = files.open_directory(paths[i]);
        ASSERT_EQ(bool(opened[i]), bool(alone)) << paths[i];
        if (!alone) {
            EXPECT_EQ(opened[i].number, alone.number) << paths[i];
            continue;
        }
        EXPECT_EQ(opened[i]->identity(), alone->identity());
        std::string_view name, name_alone;
        entry_kind kind, kind_alone;
        while (alone->next(name_alone, kind_alone)) {
            ASSERT_TRUE(opened[i]->next(name, kind)) << paths[i];
            EXPECT_EQ(name, name_alone);
            EXPECT_EQ(kind, kind_alone);
        }
        EXPECT_FALSE(opened[i]->next(name, kind));
        EXPECT_FALSE(opened[i]->failed());
    }
}

TEST_F(ManyPaths, WithoutADescriptorLeftFactsComeAllTheSame) {
    const std::vector<std::string> paths = tree();
    // A sanitizer looks at the first start of a kind of thread through a descriptor: they have started
    // before.
    many(paths);
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const std::vector<file_facts> answers = many(paths);
    setrlimit(RLIMIT_NOFILE, &before);
    for (std::size_t i = 0; i < paths.size(); ++i)
        EXPECT_EQ(answers[i].exists, files.facts(paths[i]).exists) << paths[i];
    setrlimit(RLIMIT_NOFILE, &none);
    const std::vector<std::uint8_t> found = many_exist(paths);
    setrlimit(RLIMIT_NOFILE, &before);
    for (std::size_t i = 0; i < paths.size(); ++i)
        EXPECT_EQ(found[i], path_exists(files, paths[i]) ? 1 : 0) << paths[i];
}

TEST_F(ManyPaths, ADirectoryOnceReadAnswersForAllThatItHoldsHoweverLongThatTook) {
    std::vector<std::string> paths;
    for (int i = 100; i < 160; ++i) write(paths.emplace_back(root + "d/" + std::to_string(i)), "x");
    const std::vector<std::string_view> views(paths.begin(), paths.end());
    std::vector<std::uint8_t> answers(paths.size(), 7);
    const time_limit passed(std::chrono::milliseconds(0));
    EXPECT_EQ(answer_existence(linux_attributes(), views, answers, 0, views.size(), passed), views.size());
    EXPECT_EQ(std::count(answers.begin(), answers.end(), 1), 60);
}

}  // namespace
}  // namespace corvane
