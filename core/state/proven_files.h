// The files of which this run of the program has itself compared the bytes, and how they stood then. Filled
// by the comparison for files in pairs, emptied when the next one begins; asked by the deletion, which else
// compares anew. A slice of the run state.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// What of a file's facts tells that it has changed. Kept for each proven file, so it is small: `place` is a
// number of its identity.
struct file_state {
    std::uint64_t place = 0;
    std::int64_t length = 0;
    std::int64_t changed_ns = 0;
    std::int32_t date_high = 0;
    std::int32_t date_low = 0;
};

inline file_state state_of(const file_facts& facts) {
    return {file_identity_hash()(facts.identity), facts.length, facts.changed_ns, facts.date_high,
            facts.date_low};
}

// True when the file is there and nothing tells that it has changed.
inline bool same_state(const file_state& state, const file_facts& facts) {
    return facts.exists && state.place == file_identity_hash()(facts.identity) &&
           state.length == facts.length && state.changed_ns == facts.changed_ns &&
           state.date_high == facts.date_high && state.date_low == facts.date_low;
}

class proven_files {
  public:
    struct proof {
        file_state facts;       // at the first reading
        std::int32_t star = 0;  // files of one star have been compared with the same file, byte by byte
        std::size_t path = 0;   // a number of the path
    };

    // Gives the memory back.
    void clear() { *this = {}; }
    // Room for `count` of them in all.
    void reserve(std::size_t count) { proofs_.reserve(count); }
    // `state` is that of before the file was read, confirmed after it. Of a path that is noted twice the last
    // counts.
    void note(std::string_view path, std::int32_t star, const file_state& state) {
        proofs_.push_back({state, star, number_of(path)});
        in_order_ = false;
    }
    // Null when the bytes of that path were not compared. Valid until something is noted. By a chance that
    // need not be reckoned with it is the proof of another path: the state that it holds is then that of
    // another file, and proves nothing of this one.
    const proof* find(std::string_view path) const {
        put_in_order();
        const std::size_t number = number_of(path);
        const auto behind =
            std::upper_bound(proofs_.begin(), proofs_.end(), number,
                             [](std::size_t wanted, const proof& each) { return wanted < each.path; });
        return behind == proofs_.begin() || (behind - 1)->path != number ? nullptr : &*(behind - 1);
    }
    std::size_t size() const { return proofs_.size(); }

  private:
    // Without the texts, which are most of a list's memory.
    static std::size_t number_of(std::string_view path) { return std::hash<std::string_view>()(path); }

    // Only a deletion looks anything up: the order is made for its first question.
    void put_in_order() const {
        if (in_order_) return;
        std::stable_sort(proofs_.begin(), proofs_.end(),
                         [](const proof& a, const proof& b) { return a.path < b.path; });
        in_order_ = true;
    }

    mutable std::vector<proof> proofs_;
    mutable bool in_order_ = true;
};

struct proof_state {
    proven_files proven;
};

}  // namespace corvane
