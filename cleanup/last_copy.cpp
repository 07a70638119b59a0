#include "cleanup/last_copy.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/archives/checksum.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

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

last_copy::last_copy(Tavrel& form) : form_(form), files_(form.outside.files), shelf_(form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (!view.holds_copies || list.column_count() <= view.second_path) return;
    const auto count = static_cast<std::size_t>(list.row_count());
    number_.reserve(count * 2);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view a = list.text_cell(row, view.first_path);
        const std::string_view b = list.text_cell(row, view.second_path);
        for (const auto& [path, column] : {std::pair(a, view.first_path), std::pair(b, view.second_path)})
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
    if (is_archive_member(path)) return has_keeper({path, length, false, false, {}, {}});
    const file_facts facts = files_.facts(path);
    if (!facts.exists || facts.length != length) return false;
    return has_keeper({path, length, by_content, true, facts, {}});
}

bool last_copy::may_go(std::string_view path, const archive_member& member) {
    return has_keeper({path, static_cast<std::int64_t>(member.length), true, false, {}, member.crc});
}

bool last_copy::has_keeper(leaving file) {
    if (trusted_archives_.count(archive_path_of(file.path)) != 0) return false;
    // Only a list of equal files has copies; elsewhere the user removes what has none.
    if (!shown_view(form_).holds_copies) return true;
    const auto found = number_.find(file.path);
    if (found == number_.end()) return false;
    // From where the last keeper was found on: in a group of many marked files the search goes round once.
    group& members = groups_[root_of(found->second)];
    for (std::size_t step = 0; step < members.numbers.size(); ++step) {
        const std::size_t at = (members.next + step) % members.numbers.size();
        const std::string_view keeper = paths_[members.numbers[at]];
        if (keeper == file.path || !is_keeper(keeper, file)) continue;
        members.next = at;
        return true;
    }
    return false;
}

bool last_copy::is_keeper(std::string_view keeper, leaving& file) {
    if (taken_.count(keeper) != 0) return false;
    if (is_archive_member(keeper)) return is_entry_keeper(keeper, file);
    const file_facts kept = files_.facts(keeper);
    if (!kept.exists || kept.length != file.length || lies_in_recycle_directory(keeper)) return false;
    if (file.on_disk && kept.identity == file.facts.identity) {
        // One physical file: a second link keeps it, a second road to the same link does not.
        return file.facts.link_count >= 2 && !is_same_entry(keeper, file.path);
    }
    if (!file.by_content) return true;
    return file.on_disk ? same_content(file.path, keeper, file.length)
                        : checksum_of(keeper, file.length) == file.crc;
}

bool last_copy::is_entry_keeper(std::string_view keeper, leaving& file) {
    const std::string_view archive = archive_path_of(keeper);
    if (file.length <= unsigned_length || touched_archives_.count(archive) != 0 ||
        taken_.count(archive) != 0 || lies_in_recycle_directory(archive))
        return false;
    const archive_member* member = member_at(keeper, file.length);
    if (member == nullptr || (file.by_content && !has_checksum(file, member->crc))) return false;
    trusted_archives_.insert(archive);
    return true;
}

bool last_copy::has_checksum(leaving& file, std::uint32_t crc) {
    if (!file.crc) file.crc = checksum_of(file.path, file.length);
    return file.crc == crc;
}

// The one file of that name and length that is inside now.
const archive_member* last_copy::member_at(std::string_view entry, std::int64_t length) {
    const std::string_view archive = archive_path_of(entry);
    const archive_contents& contents = shelf_.contents(std::string(archive));
    const archive_member* member = contents.file(entry.substr(archive.size() + 1));
    return member != nullptr && member->length == static_cast<std::uint64_t>(length) ? member : nullptr;
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

namespace {

// A file that is read block by block.
class block_reader {
  public:
    block_reader(file_system& files, std::string_view path, std::int64_t length)
        : length_(length), bytes_(static_cast<std::size_t>(std::min(length, block_size)) + 1) {
        file_ = files.open_file(path).object;
        if (file_) file_->will_read(0);
    }
    // The block at `at`, which is below the length. Empty: it cannot be read, or the file is no longer of
    // that length.
    std::span<const std::byte> block(std::int64_t at) {
        if (!file_) return {};
        const std::int64_t wanted = std::min(length_ - at, block_size);
        // One byte more at the end: a file that has grown is not the one that was listed.
        const auto asked = static_cast<std::size_t>(wanted + (at + wanted == length_ ? 1 : 0));
        if (file_->read_at(at, std::span(bytes_.data(), asked)) != wanted) return {};
        return {bytes_.data(), static_cast<std::size_t>(wanted)};
    }

  private:
    std::int64_t length_;
    std::vector<std::byte> bytes_;
    std::unique_ptr<file_reader> file_;
};

}  // namespace

bool last_copy::same_content(std::string_view a, std::string_view b, std::int64_t length) {
    block_reader reader_a(files_, a, length);
    block_reader reader_b(files_, b, length);
    for (std::int64_t at = 0; at < length; at += block_size) {
        form_.yield();
        if (form_.state.quit_requested) return false;
        const std::span<const std::byte> block_a = reader_a.block(at);
        const std::span<const std::byte> block_b = reader_b.block(at);
        if (block_a.empty() || block_a.size() != block_b.size() ||
            std::memcmp(block_a.data(), block_b.data(), block_a.size()) != 0)
            return false;
    }
    return true;
}

// Nothing when the file cannot be read, or the program is closing.
std::optional<std::uint32_t> last_copy::checksum_of(std::string_view path, std::int64_t length) {
    block_reader reader(files_, path, length);
    checksum_stream sum;
    for (std::int64_t at = 0; at < length; at += block_size) {
        form_.yield();
        if (form_.state.quit_requested) return {};
        const std::span<const std::byte> block = reader.block(at);
        if (block.empty()) return {};
        sum.add(block);
    }
    return sum.value();
}

}  // namespace corvane
