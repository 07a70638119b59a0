// What Windows is asked about many files at once, of which more than one thread takes some.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/windows/volume_serials.h"
#include "platform/windows/windows_file_system.h"
#include "tests/platform/windows/scratch_drive.h"

namespace corvane {
namespace {

using ManyQuestions = scratch_drive;

TEST_F(ManyQuestions, AreAnsweredAsOneByOne) {
    make_file(L"a", "1");
    make_file(L"b", "22");
    const std::string a = root + "a", b = root + "b", none = root + "none";
    const std::vector<std::string_view> paths{a, none, b};
    std::vector<file_facts> facts(3);
    std::vector<std::uint8_t> there(3, 7);
    ask_all(3, [&](std::size_t done) {
        return files.many_facts(std::span(paths).subspan(done), std::span(facts).subspan(done));
    });
    EXPECT_EQ(facts[0].length, 1);
    EXPECT_FALSE(facts[1].exists);
    EXPECT_EQ(facts[2].length, 2);
    ask_all(3, [&](std::size_t done) {
        return files.many_exist(std::span(paths).subspan(done), std::span(there).subspan(done));
    });
    EXPECT_EQ(there, (std::vector<std::uint8_t>{1, 0, 1}));
}

TEST_F(ManyQuestions, AreAnsweredByManyThreadsAsEachAlone) {
    std::vector<std::string> paths;
    for (const wchar_t* folder : {L"一", L"two"}) {
        make_directory(folder);
        for (int i = 0; i < 90; ++i) {
            const std::wstring name = std::wstring(folder) + L"\\f" + std::to_wstring(i);
            if (i % 9 != 4) make_file(name, "content " + std::to_string(i * i));
            paths.push_back(root + text_of(name));
        }
    }
    const std::vector<std::string_view> asked(paths.begin(), paths.end());
    std::vector<file_facts> told(paths.size());
    ask_all(asked.size(), [&](std::size_t done) {
        return files.many_facts(std::span(asked).subspan(done), std::span(told).subspan(done));
    });
    std::vector<std::array<std::byte, 16>> buffers(paths.size());
    std::vector<start_request> requests;
    for (std::size_t i = 0; i < paths.size(); ++i) requests.push_back({asked[i], buffers[i], 16});
    ask_all(requests.size(),
            [&](std::size_t done) { return files.read_starts(std::span(requests).subspan(done)); });
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const bool is_there = i % 90 % 9 != 4;
        const std::string content = "content " + std::to_string(i % 90 * (i % 90));
        EXPECT_EQ(told[i].exists, is_there) << paths[i];
        EXPECT_EQ(requests[i].count, is_there ? static_cast<std::int64_t>(content.size()) : -1) << paths[i];
        if (!is_there) continue;
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(buffers[i].data()), content.size()), content);
        const file_facts alone = files.facts(paths[i]);
        EXPECT_TRUE(same_state(told[i], alone)) << paths[i];
        EXPECT_EQ(told[i].link_count, alone.link_count);
    }
}

TEST(OnNetwork, SharesAreAndDrivesOfThisMachineAreNot) {
    EXPECT_TRUE(is_on_network("\\\\server\\share\\x"));
    EXPECT_TRUE(is_on_network("\\\\server\\share\\folder\\x"));
    EXPECT_FALSE(is_on_network("C:\\x"));
}

TEST_F(ManyQuestions, OfADriveOfThisMachineAreNotTakenForThoseOfAShare) {
    make_file(L"a", "1");
    EXPECT_FALSE(files.facts(root + "a").stacked);
}

}  // namespace
}  // namespace corvane
