// A volume that goes away while its files are compared: suspended and unplugged, or a share that broke off.
#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

// Two volumes with the same files; that of /mnt goes at the given yield of the comparison. What the pairs
// are.
std::vector<std::string> compare_while_it_goes(std::int64_t yield, bool& gone) {
    test_program p;
    std::vector<std::string> on_mount;
    for (int i = 0; i < 12; ++i)
        for (const char* folder : {"/d/", "/e/", "/mnt/usb/"}) {
            const std::string path = folder + std::to_string(i);
            p.files.add_file(
                path, std::string(static_cast<std::size_t>(1000 + i / 3), static_cast<char>('a' + i % 3)));
            if (path.starts_with("/mnt")) on_mount.push_back(path);
        }
    p.search({"/d", "/e", "/mnt/usb"});
    const std::int64_t first = p.screen.yields;
    p.screen.on_yield = [&] {
        if (gone || p.screen.yields - first < yield) return;
        gone = true;
        for (const std::string& path : on_mount) p.files.erase(path);
    };
    p.form.run("Picture3_Click");
    EXPECT_FALSE(p.form.task_runs());
    EXPECT_EQ(p.screen.messages.back().title, "检查同内容文件完毕");
    return p.stored_pairs();
}

TEST(VanishedVolume, WhatIsGoneIsUnreadableAndTheRestIsPairedAtEveryMoment) {
    for (std::int64_t yield = 1; yield < 400; ++yield) {
        bool gone = false;
        const std::vector<std::string> pairs = compare_while_it_goes(yield, gone);
        if (!gone) {
            EXPECT_GT(yield, 20);  // it has gone at many moments before
            return;
        }
        for (int i = 0; i < 12; ++i) {
            const std::string name = std::to_string(i);
            // Both sides stayed: they are paired with each other, or in one star with what was there before.
            bool paired = false;
            for (const std::string& pair : pairs)
                paired |= pair.find("/e/" + name + " ") != std::string::npos || pair.ends_with("/e/" + name);
            EXPECT_TRUE(paired) << "yield " << yield << " " << name;
        }
    }
    FAIL() << "a comparison of 36 files with 400 yields";
}

}  // namespace
}  // namespace corvane
