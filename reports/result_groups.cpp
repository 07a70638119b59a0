#include "reports/result_groups.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

#include "core/text/text_format.h"
#include "reports/stored_pairs.h"

namespace corvane {

namespace {

// The paths of the pairs, each once, and which of them belong together.
class path_sets {
  public:
    void add(const stored_pair& pair, std::int64_t checksum) {
        if (pair.first == pair.second || is_blank(pair.first) || is_blank(pair.second)) return;
        if (contradicts(pair.first, pair.length) || contradicts(pair.second, pair.length)) return;
        const std::int32_t a = root(place_of(pair.first, pair.length));
        const std::int32_t b = root(place_of(pair.second, pair.length));
        // The earlier one stays the root, so a group keeps the place of its first path.
        const auto [earlier, later] = std::minmax(a, b);
        parents_[later] = earlier;
        checksums_[earlier] = std::max({checksums_[earlier], checksums_[later], checksum});
    }

    std::vector<std::int32_t> kept(const std::function<bool(std::string_view)>& keeps) const {
        std::vector<std::int32_t> kept;
        for (std::int32_t i = 1; i <= paths_.size(); ++i)
            if (!keeps || keeps(paths_[i])) kept.push_back(i);
        return kept;
    }

    result_groups take(std::vector<std::int32_t> kept) {
        std::vector<std::int32_t> roots(static_cast<std::size_t>(paths_.size()) + 1);
        for (const std::int32_t i : kept) roots[static_cast<std::size_t>(i)] = root(i);
        std::sort(kept.begin(), kept.end(), [&](std::int32_t a, std::int32_t b) {
            const std::int32_t group_a = roots[static_cast<std::size_t>(a)];
            const std::int32_t group_b = roots[static_cast<std::size_t>(b)];
            return group_a != group_b ? group_a < group_b : paths_[a] < paths_[b];
        });
        result_groups result;
        result.paths.clear_and_share(paths_);
        for (std::size_t at = 0; at < kept.size();) {
            const std::int32_t group = roots[static_cast<std::size_t>(kept[at])];
            std::size_t end = at;
            while (end < kept.size() && roots[static_cast<std::size_t>(kept[end])] == group) ++end;
            if (end - at >= 2) {
                result.groups.push_back({lengths_[group], checksums_[group], result.paths.size() + 1,
                                         static_cast<std::int32_t>(end - at)});
                for (; at < end; ++at) result.paths.push_entry(paths_.entry(kept[at]));
            }
            at = end;
        }
        return result;
    }

  private:
    bool contradicts(std::string_view path, std::int64_t length) const {
        const auto found = places_.find(path);
        return found != places_.end() && lengths_[found->second] != length;
    }

    std::int32_t place_of(std::string_view path, std::int64_t length) {
        const auto found = places_.find(path);
        if (found != places_.end()) return found->second;
        paths_.push_back(path);
        const std::int32_t place = paths_.size();
        places_.emplace(paths_[place], place);
        parents_.push_back(place);
        lengths_.push_back(length);
        checksums_.push_back(-1);
        return place;
    }

    std::int32_t root(std::int32_t place) {
        while (parents_[place] != place) {
            parents_[place] = parents_[parents_[place]];
            place = parents_[place];
        }
        return place;
    }

    text_column paths_;
    std::unordered_map<std::string_view, std::int32_t> places_;  // the texts are those of paths_
    // Index as paths_.
    column<std::int32_t> parents_;
    column<std::int64_t> lengths_;
    column<std::int64_t> checksums_;
};

}  // namespace

std::int64_t result_groups::spare_count() const {
    std::int64_t count = 0;
    for (const equal_group& group : groups) count += group.count - 1;
    return count;
}

std::int64_t result_groups::spare_bytes() const {
    std::int64_t bytes = 0;
    for (const equal_group& group : groups) bytes += group.spare_bytes();
    return bytes;
}

result_groups read_result_groups(file_system& files, const std::string& store,
                                 const column<std::int64_t>& checksums,
                                 const std::function<bool(std::string_view)>& keeps,
                                 const std::function<void(const std::function<void()>&)>& carry_out) {
    auto sets = std::make_unique<path_sets>();
    carry_out([&] {
        stored_pair_reader reader(files, store);
        stored_pair pair;
        for (std::int32_t n = 1; reader.next(pair); ++n)
            sets->add(pair, n <= checksums.size() ? checksums[n] : -1);
    });
    result_groups result;
    std::vector<std::int32_t> kept = sets->kept(keeps);
    carry_out([&] {
        result = sets->take(std::move(kept));
        sets.reset();  // takes its time, too
    });
    return result;
}

}  // namespace corvane
