#include "core/archives/physical_file.h"

#include <string>

#include "core/archives/archive_entry.h"
#include "core/text/text_case.h"

namespace corvane {

namespace {

constexpr std::int64_t second_ns = 1'000'000'000;

// One name in one directory, reached by two paths. What cannot be told apart counts as one.
bool is_one_link(file_system& files, std::string_view a, std::string_view b) {
    const std::size_t cut_a = a.rfind(files.separator());
    const std::size_t cut_b = b.rfind(files.separator());
    if (cut_a == std::string_view::npos || cut_b == std::string_view::npos) return true;
    const std::string_view name_a = a.substr(cut_a + 1);
    const std::string_view name_b = b.substr(cut_b + 1);
    if (files.ignores_case() ? upper_case(name_a) != upper_case(name_b) : name_a != name_b) return false;
    file_identity folder_a, folder_b;
    if (!files.identity(std::string(a.substr(0, cut_a + 1)), folder_a) ||
        !files.identity(std::string(b.substr(0, cut_b + 1)), folder_b))
        return true;
    return folder_a == folder_b;
}

// What comes over a network may have lost what is finer than 100 nanoseconds.
bool same_moment(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t unit_ns = 100;
    return a == b || ((a % unit_ns == 0 || b % unit_ns == 0) && a / unit_ns == b / unit_ns);
}

// A file and its image in a stack of mounts. Both times of a true copy differ: its change time is that of the
// copying. Where a mount makes the change time up from the other one, only the index is left.
bool is_seen_through_stack(const file_facts& a, const file_facts& b) {
    if ((!a.stacked && !b.stacked) || a.identity.device == b.identity.device) return false;
    if (a.length != b.length || !same_moment(a.modified_ns, b.modified_ns) ||
        !same_moment(a.changed_ns, b.changed_ns))
        return false;
    if (a.identity.index == b.identity.index) return true;
    return a.stacked != b.stacked && a.changed_ns % second_ns != 0;
}

}  // namespace

bool same_physical_file(file_system& files, std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (is_archive_member(a) != is_archive_member(b)) return false;
    if (is_archive_member(a)) {
        const std::string_view archive_a = archive_path_of(a);
        const std::string_view archive_b = archive_path_of(b);
        return archive_a != archive_b && same_physical_file(files, archive_a, archive_b);
    }
    return same_physical_file(files, a, files.facts(a), b, files.facts(b));
}

bool same_physical_file(file_system& files, std::string_view a, const file_facts& facts_a, std::string_view b,
                        const file_facts& facts_b) {
    if (a == b) return true;
    if (!facts_a.exists || !facts_b.exists) return false;
    if (facts_a.identity != facts_b.identity) return is_seen_through_stack(facts_a, facts_b);
    return facts_a.link_count < 2 || is_one_link(files, a, b);
}

}  // namespace corvane
