// What a deletion is about to touch, told in its question: how many files, how much, and what of it cannot
// come back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/list_view.h"

namespace corvane {

class Tavrel;

struct deletion_stake {
    std::int32_t files = 0;    // different paths that are marked
    std::int32_t entries = 0;  // of these, inside archives
    double bytes = 0;
};

// By the marks of the list as they stand, the way a run takes them.
deletion_stake stake_of(const Tavrel& form);

// The same for a list of millions, some rows at a time.
class stake_count {
  public:
    // Looks at up to `most` further rows; true when all are counted. Begins anew where the list, or whether
    // blue marks count, has changed since.
    bool go_on(const Tavrel& form, std::int64_t most);
    // What is counted so far.
    const deletion_stake& stake() const { return stake_; }

  private:
    void begin(const Tavrel& form);
    // False for a path that is there; `cell` says where in the list it stands.
    bool add(const list_view& list, std::string_view path, std::uint32_t cell);

    // A path that was met: where it stands, twice the row and one more for the second column, and a part of
    // its hash. No cell: a free place.
    struct met_path {
        std::uint32_t hash = 0;
        std::uint32_t cell = 0;
    };

    list_revisions of_;
    bool blue_counts_ = false;
    std::int32_t next_ = 1;
    deletion_stake stake_;
    std::vector<met_path> met_;  // open addressing
};

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
