// What a deletion is about to touch, told in its question: how many files, how much, and what of it cannot
// come back.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class Tavrel;

struct deletion_stake {
    std::int32_t files = 0;    // different paths that are marked
    std::int32_t entries = 0;  // of these, inside archives
    double bytes = 0;
};

// By the marks of the list as they stand, the way a run takes them.
deletion_stake stake_of(const Tavrel& form);

// What the marks would free, as the line below the list and panel 5 say it: "已标记:..." with the words of
// the stake.
std::string mark_words(const Tavrel& form);
std::string mark_words(const deletion_stake& stake);

// The same in one breath, above the list: "标记 128 个, 3.2 GB, 148 组", of so many groups; empty without a
// mark.
std::string mark_line(const deletion_stake& stake, std::int32_t groups);

// "3 个文件, 17.4 KB; 其中压缩包内 1 个, 不能恢复"; empty without a mark.
std::string stake_words(const deletion_stake& stake);

}  // namespace corvane
