#include "compare/preparation.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/archives/archive_entry.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

// Cuts the text behind the last "*", and the "*", off the entry, and returns it.
std::string cut_field(text_column& list, std::int32_t index) {
    const std::string_view entry = list[index];
    const std::size_t star = entry.rfind('*');
    std::string field(entry.substr(star + 1));
    list.set(index, entry.substr(0, star));
    return field;
}

// Hexadecimal digits as a signed 32-bit number; reading stops at the first other character.
std::int32_t parse_hexadecimal(std::string_view text) {
    std::uint32_t number = 0;
    for (const char unit : text) {
        if (unit >= '0' && unit <= '9')
            number = number << 4 | static_cast<std::uint32_t>(unit - '0');
        else if ((unit | 0x20) >= 'a' && (unit | 0x20) <= 'f')
            number = number << 4 | static_cast<std::uint32_t>((unit | 0x20) - 'a' + 10);
        else
            break;
    }
    return static_cast<std::int32_t>(number);
}

void take_facts(file_columns& files, std::int32_t i, const file_facts& facts) {
    files.file_ok[i] = facts.exists;
    if (!facts.exists) return;
    files.file_len[i] = facts.length;
    files.file_date_hi[i] = facts.date_high;
    files.file_date_lo[i] = facts.date_low;
    files.file_place[i] = file_identity_hash()(facts.identity);
    files.file_changed[i] = facts.changed_ns;
}

// The facts of the list's files, in rising order of their numbers; many are asked for at once.
class listed_facts {
  public:
    listed_facts(file_system& disk, const file_columns& files) : disk_(disk), files_(files) {}

    // Of a file of the disk behind all that were asked about before.
    const file_facts& of(std::int32_t i) {
        if (next_ == answered_ || numbers_[next_] != i) ask(i);
        return facts_[next_++];
    }

  private:
    static constexpr std::size_t most_at_once = 1024;

    void ask(std::int32_t i) {
        numbers_.clear();
        paths_.clear();
        for (; i <= files_.file_count && paths_.size() < most_at_once; ++i) {
            const std::string_view name = files_.file_list[i];
            if (name.empty() || is_archive_member(name)) continue;
            numbers_.push_back(i);
            paths_.push_back(name);
        }
        facts_.resize(paths_.size());
        answered_ = disk_.many_states(paths_, facts_);
        next_ = 0;
    }

    file_system& disk_;
    const file_columns& files_;
    std::vector<std::int32_t> numbers_;
    std::vector<std::string_view> paths_;
    std::vector<file_facts> facts_;
    std::size_t answered_ = 0;
    std::size_t next_ = 0;
};

// A member's text as the comparison knows it, without its checksum and length.
std::string_view without_fields(std::string_view entry) {
    if (!is_archive_member(entry)) return entry;
    entry = entry.substr(0, entry.rfind('*'));
    return entry.substr(0, entry.rfind('*'));
}

}  // namespace

void blank_avoided_files(file_columns& files, const trail_state& trail) {
    std::unordered_set<std::string_view> avoided;
    for (std::int32_t a = 1; a <= trail.avoid_count; ++a) avoided.insert(trail.avoid_files[a]);
    if (avoided.empty()) return;
    for (std::int32_t i = 1; i <= files.file_count; ++i)
        if (avoided.count(without_fields(files.file_list[i])) != 0) files.file_list.set(i, "");
}

file_state listed_state(const file_columns& files, std::int32_t i) {
    return {files.file_place[i], files.file_len[i], files.file_changed[i], files.file_date_hi[i],
            files.file_date_lo[i]};
}

bool is_as_listed(const file_columns& files, std::int32_t i, const file_facts& facts) {
    return same_state(listed_state(files, i), facts);
}

void size_columns(file_columns& files, result_state& result) {
    const std::int32_t count = files.file_count;
    files.file_len.assign(count, 0);
    for (column<std::int32_t>* values : {&files.file_date_hi, &files.file_date_lo, &files.file_crc})
        values->assign(count, 0);
    files.file_place.assign(count, 0);
    files.file_changed.assign(count, 0);
    files.file_rank = {};
    files.file_start_crc.clear();
    files.contents_known = {};
    for (column<std::uint8_t>* flags :
         {&files.file_ok, &files.file_bad, &files.file_matched, &files.file_has_twin, &files.file_in_archive})
        flags->assign(count, 0);
    files.file_ext.clear();
    for (column<std::int32_t>& row : result.same_pair) row.clear();
    result.result_count = 0;
    result.same_bytes = 0;
    result.different_count = 0;
}

bool refresh_attributes(file_system& disk, file_columns& files, result_state& result, bool& members_seen,
                        const std::function<bool(std::int32_t)>& reaches) {
    members_seen = false;
    files.listed_ns = disk.now_ns();
    result.total_bytes = 0;
    result.size_unit.clear();
    listed_facts facts(disk, files);
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        const std::string_view name = files.file_list[i];
        files.file_ok[i] = !name.empty();
        if (name.empty()) continue;
        if (is_archive_member(name)) {
            files.file_len[i] = parse_number(cut_field(files.file_list, i));
            members_seen = true;
        } else {
            take_facts(files, i, facts.of(i));
        }
        result.total_bytes += static_cast<double>(files.file_len[i]);
        if (!reaches(i)) return false;
    }
    return true;
}

void take_member_signatures(file_columns& files) {
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        if (!is_archive_member(files.file_list[i])) continue;
        files.file_crc[i] = parse_hexadecimal(cut_field(files.file_list, i));
        files.file_in_archive[i] = 1;
    }
}

void fill_suffix_column(file_columns& files) {
    files.suffix_texts.clear();
    files.file_ext.assign(files.file_count, 0);
    std::unordered_map<std::string, std::int32_t> numbers{{std::string(), 0}};
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        const std::string_view name = files.file_list[i];
        const std::size_t dot = name.rfind('.');
        if (dot == std::string_view::npos) continue;
        const auto next = static_cast<std::int32_t>(numbers.size());
        files.file_ext[i] = numbers.emplace(upper_case(name.substr(dot + 1)), next).first->second;
    }
    files.suffix_texts.resize(numbers.size());
    for (const auto& [text, number] : numbers) files.suffix_texts[static_cast<std::size_t>(number)] = text;
}

}  // namespace corvane
