// The states of many files of Windows: taken from the list of their directory, and right whatever that says.
#include <algorithm>
#include <set>
#include <vector>

#include "platform/windows/listed_numbers.h"
#include "platform/windows/windows_facts.h"
#include "tests/platform/windows/scratch_drive.h"

namespace corvane {
namespace {

class ManyStates : public scratch_drive {
  protected:
    static constexpr std::size_t run = listed_numbers::least_run;

    // Files "f00", "f01" and so on, their lengths rising from 1, in a directory that ends in the separator.
    std::vector<std::string> make_files(const std::wstring& directory, std::size_t count) {
        std::vector<std::string> paths;
        for (std::size_t i = 0; i < count; ++i) {
            std::wstring name = std::to_wstring(i);
            name = L"f" + std::wstring(name.size() < 2 ? 1 : 0, L'0') + name;
            make_file(directory + name, std::string(i + 1, 'x'));
            paths.push_back(root + text_of(directory + name));
        }
        return paths;
    }
    std::vector<file_facts> states(const std::vector<std::string>& paths) {
        const std::vector<std::string_view> asked(paths.begin(), paths.end());
        std::vector<file_facts> answers(paths.size());
        ask_all(asked.size(), [&](std::size_t done) {
            return files.many_states(std::span(asked).subspan(done), std::span(answers).subspan(done));
        });
        return answers;
    }
    void expect_states_of_facts(const std::vector<std::string>& paths) {
        const std::vector<file_facts> told = states(paths);
        for (std::size_t i = 0; i < paths.size(); ++i) {
            const file_facts facts = files.facts(paths[i]);
            EXPECT_EQ(told[i].exists, facts.exists) << paths[i];
            EXPECT_TRUE(same_state(told[i], facts)) << paths[i];
            EXPECT_EQ(told[i].stacked, facts.stacked) << paths[i];
        }
    }
    // A slow machine may take longer than the list is believed: then once more.
    static bool is_held(listed_numbers& numbers, const std::string& first, const file_facts& facts,
                        const std::string& path) {
        for (int attempt = 0; attempt < 20; ++attempt) {
            numbers.hold(first, facts, run);
            if (numbers.holds(path)) return true;
        }
        return false;
    }
    void replace(const std::wstring& from, const std::wstring& to) {
        ASSERT_TRUE(
            MoveFileExW((wide_root + from).c_str(), (wide_root + to).c_str(), MOVEFILE_REPLACE_EXISTING))
            << GetLastError();
    }
};

TEST_F(ManyStates, AreWhatOpeningEachFileTells) {
    make_directory(L"一");
    make_directory(L"一\\under");
    make_directory(L"other");
    std::vector<std::string> paths = make_files(L"一\\", 3 * run);
    const std::vector<std::string> under = make_files(L"一\\under\\", run);
    const std::vector<std::string> few = make_files(L"other\\", run - 1);
    // A directory within the row of another one's files, one with too few, and what is no file at all.
    paths.insert(paths.begin() + run + 2, under.begin(), under.end());
    paths.insert(paths.end(), few.begin(), few.end());
    paths.insert(paths.begin() + 3, {root + "一\\missing", root + "一\\under", "relative", root + "一\\a*b"});
    make_file(L"一\\照片 \xD83D\xDE00.jpg", "picture");
    paths.insert(paths.begin() + 9, root + "一\\照片 \U0001F600.jpg");
    expect_states_of_facts(paths);
    EXPECT_TRUE(states(paths)[9].exists);
    EXPECT_EQ(states(paths)[9].length, 7);
}

TEST_F(ManyStates, OfTwoNamesOfOneFileHaveOneNumber) {
    std::vector<std::string> paths = make_files(L"", run);
    ASSERT_TRUE(CreateHardLinkW((wide_root + L"second").c_str(), (wide_root + L"f03").c_str(), nullptr));
    paths.push_back(root + "second");
    const std::vector<file_facts> told = states(paths);
    EXPECT_EQ(told[3].identity, told.back().identity);
    std::set<std::uint64_t> numbers;
    for (const file_facts& each : told) numbers.insert(each.identity.index);
    EXPECT_EQ(numbers.size(), run);
}

TEST_F(ManyStates, TellWhatHasHappenedSinceTheListWasRead) {
    std::vector<std::string> paths = make_files(L"", run + 6);
    make_file(L"longer", std::string(1000, 'y'));
    make_directory(L"folder");
    ASSERT_TRUE(states(paths)[1].exists);
    // All within the second for which the list is held, unless the machine is slow: it must not matter.
    replace(L"longer", L"f01");
    ASSERT_TRUE(DeleteFileW((wide_root + L"f02").c_str()));
    ASSERT_TRUE(DeleteFileW((wide_root + L"f03").c_str()));
    replace(L"folder", L"f03");
    const HANDLE grown = CreateFileW((wide_root + L"f04").c_str(), FILE_APPEND_DATA | SYNCHRONIZE, 7, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(grown, "more", 4, &written, nullptr));
    make_file(L"new", "123");
    paths.push_back(root + "new");
    const std::vector<file_facts> told = states(paths);
    EXPECT_EQ(told[1].length, 1000);
    EXPECT_FALSE(told[2].exists);
    EXPECT_FALSE(told[3].exists);
    EXPECT_EQ(told[4].length, 9) << "while it is still open";
    CloseHandle(grown);
    EXPECT_TRUE(same_state(told.back(), files.facts(paths.back())));
    EXPECT_EQ(told.back().length, 3);
    // Facts are never those of a list.
    file_identity known;
    ASSERT_TRUE(files.identity(paths[1], known));
    EXPECT_EQ(files.facts(paths[1]).identity, known);
}

TEST_F(ManyStates, ReachAFileThatIsHeldByAnother) {
    const std::vector<std::string> paths = make_files(L"", run);
    const HANDLE held =
        CreateFileW((wide_root + L"f05").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    expect_states_of_facts(paths);
    CloseHandle(held);
}

TEST_F(ManyStates, AreThoseOfADirectoryThatIsTooLongToBeListed) {
    const std::vector<std::string> all = make_files(L"", 20 * run + 200);
    std::vector<std::string> paths(all.begin(), all.begin() + run);
    paths.insert(paths.end(), all.end() - run, all.end());
    expect_states_of_facts(paths);
}

TEST_F(ManyStates, NumbersOfAListThatAgreesWithNoOpenFileAreNotTaken) {
    const std::vector<std::string> paths = make_files(L"", run);
    file_facts facts = files.facts(paths[2]);
    listed_numbers numbers;
    file_identity found;
    EXPECT_TRUE(is_held(numbers, paths[2], facts, paths[5]));
    ASSERT_TRUE(numbers.find(paths[5], found));
    EXPECT_EQ(found, files.facts(paths[5]).identity);
    EXPECT_FALSE(numbers.find(root + "missing", found));
    ++facts.identity.index;
    EXPECT_TRUE(is_held(numbers, paths[2], facts, paths[5])) << "it is not read again for each file";
    EXPECT_FALSE(numbers.find(paths[5], found));
    EXPECT_FALSE(numbers.holds(root + "sub\\f05"));
    EXPECT_FALSE(numbers.holds(root.substr(0, root.size() - 1)));
    numbers.hold("X:\\missing\\f", facts, run);
    EXPECT_FALSE(numbers.find("X:\\missing\\f", found));
}

TEST_F(ManyStates, AListEndsWhereItGrowsTooLong) {
    const std::size_t count = 8 * run + 64 + 40;
    const std::vector<std::string> paths = make_files(L"", count);
    listed_numbers numbers;
    numbers.hold(paths[0], files.facts(paths[0]), run);
    std::size_t known = 0;
    for (const std::string& path : paths) {
        file_identity found;
        if (!numbers.find(path, found)) continue;
        ++known;
        EXPECT_EQ(found, files.facts(path).identity);
    }
    EXPECT_LE(known, count - 40);
    numbers.hold(paths[0], files.facts(paths[0]), count);
    EXPECT_EQ(std::count_if(paths.begin(), paths.end(),
                            [&](const std::string& path) {
                                file_identity found;
                                return numbers.find(path, found);
                            }),
              static_cast<std::ptrdiff_t>(count));
}

TEST_F(ManyStates, ARunEndsWhereAnotherDirectoryBegins) {
    const std::vector<std::string_view> paths{"C:\\a\\1", "C:\\a\\2", "C:\\a\\b\\1", "C:\\a\\3", "d"};
    EXPECT_EQ(listed_numbers::run_at(paths, 0), 2u);
    EXPECT_EQ(listed_numbers::run_at(paths, 1), 1u);
    EXPECT_EQ(listed_numbers::run_at(paths, 3), 1u);
    EXPECT_EQ(listed_numbers::run_at(paths, 4), 1u);
}

TEST_F(ManyStates, StateOfAPathAloneIsThatOfARegularFile) {
    make_file(L"f", "12345");
    make_directory(L"d");
    file_facts told, none;
    ASSERT_TRUE(tell_state(wide_root + L"f", told));
    const file_facts facts = files.facts(root + "f");
    told.identity = facts.identity;
    EXPECT_TRUE(same_state(told, facts));
    for (const std::wstring& path : {wide_root + L"d", wide_root + L"missing", std::wstring(),
                                     std::wstring(L"x"), wide_root + std::wstring(40'000, L'a')})
        EXPECT_FALSE(tell_state(path, none));
    EXPECT_FALSE(none.exists);
}

}  // namespace
}  // namespace corvane
