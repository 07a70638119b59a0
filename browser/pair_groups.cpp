#include "browser/pair_groups.h"

#include <bit>
#include <functional>

namespace corvane {

namespace {

std::size_t at(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

}  // namespace

pair_groups::pair_groups(std::size_t pairs) : slots_(std::bit_ceil(4 * pairs + 4)) {
    entries_.reserve(2 * pairs);
    parents_.reserve(2 * pairs);
}

// The rows of a star stand together and share the entry of its centre: that one is not looked up again.
pair_groups::members pair_groups::add(const char* first, const char* second) {
    if (first != last_entry_) {
        last_member_ = member_of(first);
        last_entry_ = first;
    }
    const members both{last_member_, member_of(second)};
    const std::int32_t root_a = root_of(both.first);
    const std::int32_t root_b = root_of(both.second);
    // The lower number leads: groups come in the order of their first members.
    if (root_a < root_b)
        parents_[at(root_b)] = root_a;
    else
        parents_[at(root_a)] = root_b;
    return both;
}

std::int32_t pair_groups::member_of(const char* entry) {
    const std::string_view text = text_arena::text_at(entry);
    const std::uint64_t hash = std::hash<std::string_view>()(text);
    const auto mark = static_cast<std::uint32_t>(hash >> 32);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        slot& found = slots_[place];
        if (found.member < 0) {
            found = {mark, member_count()};
            entries_.push_back(entry);
            parents_.push_back(found.member);
            return found.member;
        }
        if (found.hash == mark && (entries_[at(found.member)] == entry || path(found.member) == text))
            return found.member;
    }
}

std::int32_t pair_groups::root_of(std::int32_t member) {
    while (parents_[at(member)] != member) {
        parents_[at(member)] = parents_[at(parents_[at(member)])];
        member = parents_[at(member)];
    }
    return member;
}

void pair_groups::close() {
    slots_ = {};
    numbers_.resize(entries_.size());
    std::int32_t groups = 0;
    for (std::int32_t member = 0; member < member_count(); ++member) {
        const std::int32_t root = root_of(member);
        numbers_[at(member)] = root == member ? groups++ : numbers_[at(root)];
    }
    starts_.assign(at(groups) + 1, 0);
    for (const std::int32_t number : numbers_) ++starts_[at(number) + 1];
    for (std::size_t number = 1; number < starts_.size(); ++number) starts_[number] += starts_[number - 1];
    std::vector<std::int32_t> next(starts_.begin(), starts_.end());
    ordered_.resize(entries_.size());
    for (std::int32_t member = 0; member < member_count(); ++member)
        ordered_[at(next[at(numbers_[at(member)])]++)] = member;
}

std::span<const std::int32_t> pair_groups::group(std::int32_t number) const {
    const auto start = at(starts_[at(number)]);
    return std::span(ordered_).subspan(start, at(starts_[at(number) + 1]) - start);
}

}  // namespace corvane
