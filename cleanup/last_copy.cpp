#include "cleanup/last_copy.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/archive_entry.h"
#include "core/main_form.h"
#include "core/text_format.h"

namespace corvane {

namespace {

constexpr std::int64_t block_size = 1 << 20;
// Up to this length a file is its own signature, which an archive's checksum can meet by chance: such an
// entry is no proof of a copy.
constexpr std::int64_t unsigned_length = 4;

bool is_marked(const list_view& list, std::int32_t row, int column) {
    const std::uint32_t colour = list.colour(row, column);
    return colour == cell_colour::mark_red || colour == cell_colour::mark_blue;
}

}  // namespace

last_copy::last_copy(Tavrel& form) : form_(form), files_(form.outside.files) {
    const list_view& list = form.ListView1;
    if (form.state.list_mode != 0 || list.column_count() < 5) return;
    const auto count = static_cast<std::size_t>(list.row_count());
    number_.reserve(count * 2);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view a = list.text_cell(row, 3);
        const std::string_view b = list.text_cell(row, 4);
        for (const auto& [path, column] : {std::pair(a, 3), std::pair(b, 4)})
            if (is_marked(list, row, column)) touched_archives_.insert(archive_path_of(path));
        if (is_blank(a) || is_blank(b)) continue;
        const std::size_t root_a = root_of(member_of(a));
        const std::size_t root_b = root_of(member_of(b));
        parent_[root_b] = root_a;
    }
    for (std::size_t member = 0; member < paths_.size(); ++member)
        groups_[root_of(member)].numbers.push_back(member);
}

std::size_t last_copy::member_of(std::string_view path) {
    const auto [place, is_new] = number_.try_emplace(path, paths_.size());
    if (is_new) {
        paths_.push_back(path);
        parent_.push_back(place->second);
    }
    return place->second;
}

std::size_t last_copy::root_of(std::size_t member) {
    while (parent_[member] != member) {
        parent_[member] = parent_[parent_[member]];
        member = parent_[member];
    }
    return member;
}

void last_copy::take(std::string_view path) {
    const auto found = number_.find(path);
    if (found != number_.end()) taken_.insert(found->first);
}

void last_copy::give_back(std::string_view path) {
    taken_.erase(path);
}

bool last_copy::may_go(std::string_view path, std::int64_t length, bool by_content) {
    const bool on_disk = !is_archive_member(path);
    if (trusted_archives_.count(archive_path_of(path)) != 0) return false;
    file_facts facts;
    if (on_disk) {
        facts = files_.facts(path);
        if (!facts.exists || facts.length != length) return false;
    }
    // Only a list of equal files has copies; elsewhere the user removes what has none.
    if (form_.state.list_mode != 0) return true;
    const auto found = number_.find(path);
    if (found == number_.end()) return false;
    // From where the last keeper was found on: in a group of many marked files the search goes round once.
    group& members = groups_[root_of(found->second)];
    for (std::size_t step = 0; step < members.numbers.size(); ++step) {
        const std::size_t at = (members.next + step) % members.numbers.size();
        const std::string_view keeper = paths_[members.numbers[at]];
        if (keeper == path || !is_keeper(keeper, path, facts, length, on_disk && by_content)) continue;
        members.next = at;
        return true;
    }
    return false;
}

bool last_copy::is_keeper(std::string_view keeper, std::string_view path, const file_facts& facts,
                          std::int64_t length, bool by_content) {
    if (taken_.count(keeper) != 0) return false;
    if (is_archive_member(keeper)) return length > unsigned_length && is_entry_keeper(keeper);
    const file_facts kept = files_.facts(keeper);
    if (!kept.exists || kept.length != length || lies_in_recycle_directory(keeper)) return false;
    if (facts.exists && kept.identity == facts.identity) {
        // One physical file: a second link keeps it, a second road to the same link does not.
        return facts.link_count >= 2 && !is_same_entry(keeper, path);
    }
    return !by_content || same_content(path, keeper, length);
}

bool last_copy::is_entry_keeper(std::string_view keeper) {
    const std::string_view archive = archive_path_of(keeper);
    if (touched_archives_.count(archive) != 0 || taken_.count(archive) != 0 ||
        !files_.facts(archive).exists || lies_in_recycle_directory(archive))
        return false;
    trusted_archives_.insert(archive);
    return true;
}

// One name in one directory, reached by two paths.
bool last_copy::is_same_entry(std::string_view a, std::string_view b) {
    const char separator = files_.separator();
    const std::size_t cut_a = a.rfind(separator);
    const std::size_t cut_b = b.rfind(separator);
    if (cut_a == std::string_view::npos || cut_b == std::string_view::npos) return a == b;
    if (a.substr(cut_a) != b.substr(cut_b)) return false;
    file_identity folder_a, folder_b;
    // What cannot be told apart is no second link.
    if (!files_.identity(std::string(a.substr(0, cut_a + 1)), folder_a) ||
        !files_.identity(std::string(b.substr(0, cut_b + 1)), folder_b))
        return true;
    return folder_a == folder_b;
}

bool last_copy::lies_in_recycle_directory(std::string_view path) {
    const std::size_t cut = path.rfind(files_.separator());
    const std::string folder(path.substr(0, cut == std::string_view::npos ? path.size() : cut + 1));
    const auto known = recycle_folders_.find(folder);
    if (known != recycle_folders_.end()) return known->second;
    return recycle_folders_[folder] = is_below_recycle_directory(folder);
}

bool last_copy::is_below_recycle_directory(const std::string& folder) {
    std::string resolved = files_.resolve(folder);
    if (resolved.empty() || resolved.back() != files_.separator()) resolved += files_.separator();
    for (std::size_t at = resolved.find(files_.separator(), 1); at != std::string::npos;
         at = resolved.find(files_.separator(), at + 1))
        if (files_.is_recycle_directory(resolved.substr(0, at + 1))) return true;
    return false;
}

bool last_copy::same_content(std::string_view a, std::string_view b, std::int64_t length) {
    std::string error;
    const std::unique_ptr<file_reader> reader_a = files_.open_file(a, error);
    const std::unique_ptr<file_reader> reader_b = files_.open_file(b, error);
    if (!reader_a || !reader_b) return false;
    reader_a->will_read(0);
    reader_b->will_read(0);
    const auto most = static_cast<std::size_t>(std::min(length, block_size)) + 1;
    std::vector<std::byte> bytes_a(most), bytes_b(most);
    for (std::int64_t at = 0; at < length;) {
        form_.yield();
        if (form_.state.quit_requested) return false;
        const std::int64_t wanted = std::min(length - at, block_size);
        // One byte more at the end: a file that has grown is not the one that was listed.
        const auto asked = static_cast<std::size_t>(wanted + (at + wanted == length ? 1 : 0));
        if (reader_a->read_at(at, std::span(bytes_a.data(), asked)) != wanted) return false;
        if (reader_b->read_at(at, std::span(bytes_b.data(), asked)) != wanted) return false;
        if (std::memcmp(bytes_a.data(), bytes_b.data(), static_cast<std::size_t>(wanted)) != 0) return false;
        at += wanted;
    }
    return true;
}

}  // namespace corvane
