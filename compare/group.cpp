#include "compare/group.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>

#include "compare/column_order.h"
#include "compare/content_classes.h"
#include "core/archives/archive_entry.h"
#include "core/archives/checksum.h"
#include "core/text/text_case.h"

namespace corvane {

namespace {

// Classes from here on are those of earlier comparisons: nothing of the files was read here.
constexpr std::int32_t first_known_class = 1 << 30;

}  // namespace

file_group::file_group(file_system& disk, file_columns& files, group_events events)
    : disk_(disk),
      files_(files),
      events_(std::move(events)),
      same_suffix_only_(!files.file_ext.empty()),
      members_listed_(std::find(files.file_in_archive.begin(), files.file_in_archive.end(), 1) !=
                      files.file_in_archive.end()) {}

bool file_group::open(std::int32_t i) {
    if (is_archive_member(files_.file_list[i])) archive_flag_ = true;
    signature_mode_ = false;
    if (files_.file_len[i] != last_length_) {
        first_ = i;
        contents_.clear();
        own_ahead_.drop();
        is_mixed_ = false;
        next_of_suffix_.clear();
        find_end(i);
        content_class_.assign(static_cast<std::size_t>(std::max(end_ - i, 0)) + 1, 0);
        next_class_ = 1;
    }
    if ((i + 1 < end_ || (i + 1 == end_ && archive_flag_)) && !compute_signatures(i)) return false;
    if (same_suffix_only_ && end_ > i) chain_suffixes(i);
    return true;
}

void file_group::find_end(std::int32_t i) {
    last_length_ = files_.file_len[i];
    for (std::int32_t j = i + 1; j <= files_.file_count; ++j) {
        // Before the length is looked at: a member of the next length counts for this group.
        if (is_archive_member(files_.file_list[j])) archive_flag_ = true;
        if (files_.file_len[j] != last_length_) {
            end_ = j - 1;
            return;
        }
        end_ = j;
    }
}

bool file_group::compute_signatures(std::int32_t i) {
    signature_mode_ = true;
    bool all_known = true, all_read = true;
    for (std::int32_t j = i; j <= end_; ++j) {
        const std::string_view name = files_.file_list[j];
        events_.touches(name);
        if (!events_.keep_going()) return false;
        events_.shows(name);
        if (has_signature(j)) {
            all_read = false;
            continue;
        }
        all_known = false;
        read_signature(j);
        events_.keep_going();
    }
    is_mixed_ = !all_known && !all_read;
    contents_.reorder(sort_group(files_, i, end_));
    return true;
}

bool file_group::has_signature(std::int32_t j) const {
    if (files_.file_crc[j] == 0) return false;
    // The history knows the signature of a long file's start, and here that of the whole is wanted.
    return !archive_flag_ || last_length_ <= signature_block || is_archive_member(files_.file_list[j]);
}

// What can be read ahead is `next`, files of this group, and, in a list of plain files, what the groups
// behind it cannot do without. An empty `next` stands for the signatures of this group.
read_ahead::start file_group::start_of(std::int32_t j, bool reads_signatures,
                                       std::span<const std::int32_t> next) {
    const bool ahead = may_read_ahead();
    const std::string_view path = files_.file_list[j];
    if (!ahead) ahead_.drop();
    if (!ahead_.holds(path)) {
        planned_.clear();
        planned_bytes_ = 0;
        plan(j);
        if (ahead) {
            plan_unheld(next);
            if (reads_signatures)
                plan_signatures(j + 1, end_);
            else if (signature_mode_)
                plan_comparisons((next.empty() ? j : next.back()) + 1, end_, true);
            if (!members_listed_) plan_later_groups();
        }
        ahead_.read(disk_, planned_, events_.keep_going);
    }
    return ahead_.take(path);
}

// Of a group with signatures that were read and others that were known: what is held ahead is of the groups
// behind it already, and stays.
read_ahead::start file_group::own_start_of(std::int32_t j, std::span<const std::int32_t> next) {
    const std::string_view path = files_.file_list[j];
    if (!may_read_ahead()) own_ahead_.drop();
    if (!own_ahead_.holds(path)) {
        planned_.clear();
        planned_bytes_ = 0;
        plan(j);
        if (may_read_ahead()) plan_unheld(next);
        own_ahead_.read(disk_, planned_, events_.keep_going);
    }
    return own_ahead_.take(path);
}

void file_group::plan_unheld(std::span<const std::int32_t> files) {
    for (std::size_t n = 0; n < files.size() && !plan_is_full(); ++n)
        if (contents_.at(files[n] - first_).empty()) plan(files[n]);
}

void file_group::plan(std::int32_t j) {
    const std::int64_t length = files_.file_len[j];
    planned_.push_back({files_.file_list[j], static_cast<std::size_t>(std::min(length, signature_block)),
                        length <= signature_block});
    planned_bytes_ += planned_.back().length + 1;
}

void file_group::plan_signatures(std::int32_t first, std::int32_t last) {
    for (std::int32_t j = first; j <= last && !plan_is_full(); ++j)
        if (files_.file_crc[j] == 0 && !is_archive_member(files_.file_list[j])) plan(j);
}

void file_group::plan_later_groups() {
    constexpr std::int32_t most_looked_at = 16 * static_cast<std::int32_t>(read_ahead::most_files);
    const auto last = static_cast<std::int32_t>(
        std::min<std::int64_t>(files_.file_count, std::int64_t{end_} + most_looked_at));
    for (std::int32_t first = end_ + 1; first < last && !plan_is_full();) {
        const std::int64_t length = files_.file_len[first];
        // To where the next length begins, or as far as it matters.
        std::int32_t next = first + 1;
        while (next <= last && files_.file_len[next] == length) ++next;
        if (length > 0 && next - first > 1 && !plan_later_group(first, next - 1)) return;
        first = next;
    }
}

// The starts of three files or more, both files of a short pair; where all signatures are known, the short
// files whose contents have to be compared. False when it does not fit.
bool file_group::plan_later_group(std::int32_t first, std::int32_t last) {
    const bool is_short = files_.file_len[first] <= signature_block;
    if (last - first == 1) {
        if (!is_short || same_suffix_only_ || !files_.file_ok[first] || !files_.file_ok[last]) return true;
        if (known_together(first, last)) return true;
        plan(first);
        plan(last);
        return true;
    }
    const std::size_t before = planned_.size();
    plan_signatures(first, last);
    if (planned_.size() != before || !is_short || same_suffix_only_) return true;
    plan_comparisons(first, last, false);
    if (!plan_is_full()) return true;
    // Its order is not known before it is opened: what is asked for first might be what did not fit.
    planned_.resize(before);
    return false;
}

// Files of one length with known signatures. Ordered: those of one signature stand together.
void file_group::plan_comparisons(std::int32_t first, std::int32_t last, bool ordered) {
    if (first > last || files_.file_len[first] > signature_block ||
        files_.file_len[first] <= direct_signature_length)
        return;
    signed_.clear();
    for (std::int32_t j = first; j <= last && signed_.size() < 2 * read_ahead::most_files; ++j)
        if (files_.file_ok[j] && !files_.file_matched[j]) signed_.emplace_back(files_.file_crc[j], j);
    if (!ordered) std::sort(signed_.begin(), signed_.end());
    for (std::size_t at = 0; at < signed_.size() && !plan_is_full();) {
        const std::size_t begin = at;
        while (++at < signed_.size() && signed_[at].first == signed_[begin].first) {
        }
        plan_signed_run(std::span(signed_).subspan(begin, at - begin));
    }
}

// Files of one signature, unless nothing of them has to be read.
void file_group::plan_signed_run(std::span<const signed_file> run) {
    const std::int32_t centre = run.front().second;
    const std::span<const signed_file> others = run.subspan(1);
    if (std::all_of(others.begin(), others.end(), [&](const signed_file& each) {
            return known_together(centre, each.second) || accepted_unread(centre, each.second);
        }))
        return;
    plan(centre);
    for (const signed_file& each : others) {
        if (plan_is_full()) return;
        if (!accepted_unread(centre, each.second)) plan(each.second);
    }
}

void file_group::read_signature(std::int32_t j) {
    if (last_length_ < 0 || is_archive_member(files_.file_list[j])) return mark_bad(j);
    if (last_length_ > signature_block && archive_flag_) return whole_file_signature(j);
    const auto wanted = static_cast<std::size_t>(std::min(last_length_, signature_block));
    const read_ahead::start start = start_of(j, true, {});
    count(start.count);
    // A file that has grown is not the one that was listed.
    if (start.count != static_cast<std::int64_t>(wanted)) return mark_bad(j);
    const std::span<const std::byte> bytes = start.bytes;
    contents_.hold(j - first_, bytes);
    if (last_length_ <= direct_signature_length) {
        std::uint32_t signature = 0;
        for (std::size_t at = 0; at < wanted; ++at)
            signature |= static_cast<std::uint32_t>(bytes[at]) << (8 * at);
        files_.file_crc[j] = static_cast<std::int32_t>(signature);
    } else {
        files_.file_crc[j] = static_cast<std::int32_t>(checksum(bytes));
    }
}

void file_group::whole_file_signature(std::int32_t j) {
    constexpr std::int64_t stream_block = 256 * std::int64_t{1024};
    constexpr auto start_size = static_cast<std::size_t>(signature_block);
    const outcome_with<file_reader> reader = disk_.open_file(files_.file_list[j]);
    if (!reader) return mark_bad(j);
    reader->will_read(0);
    std::vector<std::byte> buffer(stream_block);
    checksum_stream sum;
    std::int32_t start = 0;
    std::int64_t at = 0;
    while (at <= last_length_) {
        const std::int64_t got = reader->read_at(at, buffer);
        if (got < 0) return mark_bad(j);
        count(got);
        const std::span<const std::byte> bytes(buffer.data(), static_cast<std::size_t>(got));
        if (at == 0)
            start = static_cast<std::int32_t>(checksum(bytes.first(std::min(bytes.size(), start_size))));
        sum.add(bytes);
        at += got;
        if (got < stream_block) break;
        events_.keep_going();
    }
    if (at != last_length_) return mark_bad(j);
    files_.file_crc[j] = static_cast<std::int32_t>(sum.value());
    if (files_.file_start_crc.empty()) files_.file_start_crc.assign(files_.file_count, {});
    files_.file_start_crc[j] = start;
}

void file_group::mark_bad(std::int32_t j) {
    files_.file_bad[j] = 1;
    files_.file_ok[j] = 0;
}

void file_group::chain_suffixes(std::int32_t i) {
    // file_ext is not moved by the group's order: the chain follows the indexes.
    next_of_suffix_.assign(static_cast<std::size_t>(end_ - first_) + 1, end_ + 1);
    std::unordered_map<std::int32_t, std::int32_t> next;
    for (std::int32_t j = end_; j >= i; --j) {
        const auto found = next.try_emplace(files_.file_ext[j], end_ + 1).first;
        next_of_suffix_[place(j)] = found->second;
        found->second = j;
    }
}

std::int32_t file_group::next_candidate(std::int32_t i, std::int32_t j) const {
    for (;;) {
        j = next_of_suffix_.empty() ? j + 1 : next_of_suffix_[place(j)];
        if (j > end_) return end_ + 1;
        if (signatures_differ(i, j)) return end_ + 1;  // ordered by signature: no later file can match
        if (!files_.file_matched[j] && files_.file_ok[j]) return j;
    }
}

bool file_group::signatures_differ(std::int32_t i, std::int32_t j) const {
    return signature_mode_ && files_.file_crc[i] != files_.file_crc[j];
}

sameness file_group::same(std::int32_t i, std::int32_t j) {
    if (signature_mode_) {
        if (last_length_ <= direct_signature_length) {
            // What is held was read here and is what the signature was made of; members and history are not.
            const bool both_read = !contents_.at(i - first_).empty() && !contents_.at(j - first_).empty();
            return both_read ? sameness::by_bytes : sameness::by_rule;
        }
        if (archive_flag_ || accepted_unread(i, j)) return sameness::by_rule;
    }
    if (!equal_contents(i, j)) return sameness::different;
    return content_class_[place(i)] >= first_known_class ? sameness::as_before : sameness::by_bytes;
}

// Same name, same time, same length and same checksum of the whole file: accepted without a byte comparison.
bool file_group::accepted_unread(std::int32_t i, std::int32_t j) const {
    if (files_.file_len[i] >= signature_block || files_.file_date_hi[i] != files_.file_date_hi[j] ||
        files_.file_date_lo[i] != files_.file_date_lo[j])
        return false;
    const char separator = disk_.separator();
    const std::string_view name_a = files_.file_list[i];
    const std::string_view name_b = files_.file_list[j];
    const std::size_t cut_a = name_a.rfind(separator);
    const std::size_t cut_b = name_b.rfind(separator);
    if (cut_a == std::string_view::npos || cut_b == std::string_view::npos)
        return !same_suffix_only_ || files_.file_ext[i] == files_.file_ext[j];
    return upper_case(name_a.substr(cut_a + 1)) == upper_case(name_b.substr(cut_b + 1));
}

// Short files that no signature pass has read; what cannot be read whole is left to the comparison.
void file_group::hold(std::span<const std::int32_t> members) {
    while (!members.empty()) {
        const std::int32_t j = members.front();
        members = members.subspan(1);
        if (!contents_.at(j - first_).empty()) continue;
        if (!contents_.has_room(static_cast<std::size_t>(last_length_))) return;
        const read_ahead::start start = is_mixed_ ? own_start_of(j, members) : start_of(j, false, members);
        count(start.count);
        if (start.count == last_length_ && !contents_.hold(j - first_, start.bytes)) return;
        if (!events_.keep_going()) return;
    }
}

// The first question of i classifies i with every file that it may still be asked about, in one reading.
bool file_group::equal_contents(std::int32_t i, std::int32_t j) {
    if (content_class_[place(i)] == 0 || content_class_[place(j)] == 0) {
        std::vector<std::int32_t> members{i};
        // Nothing before j can be asked about again: it was the same as i, or it differs and has its class.
        for (std::int32_t k = j; k <= end_; k = next_candidate(i, k))
            if (k == j || !signature_mode_ || !accepted_unread(i, k)) members.push_back(k);
        if (!take_known_contents(members)) compare_contents(members);
    }
    return content_class_[place(i)] > 0 && content_class_[place(i)] == content_class_[place(j)];
}

// One reading of before must have had all of them: classes of two readings cannot be told apart.
bool file_group::take_known_contents(const std::vector<std::int32_t>& members) {
    for (const std::int32_t k : members)
        if (!known_together(members.front(), k)) return false;
    for (const std::int32_t k : members)
        content_class_[place(k)] = first_known_class + files_.contents_known.of(k);
    return true;
}

bool file_group::known_together(std::int32_t i, std::int32_t j) const {
    const known_contents& contents = files_.contents_known;
    const std::int32_t number = contents.of(j);
    if (number == 0 || contents.of(i) == 0) return false;
    const auto [first, end] = contents.reading_of(contents.of(i));
    return number >= first && number < end;
}

void file_group::compare_contents(const std::vector<std::int32_t>& members) {
    if (last_length_ <= signature_block && may_read_ahead()) hold(members);
    std::vector<content_candidate> candidates;
    candidates.reserve(members.size());
    for (const std::int32_t k : members)
        candidates.push_back({files_.file_list[k], contents_.at(k - first_)});
    ++readings_;
    const std::vector<std::int32_t> classes =
        classify_contents(disk_, candidates, last_length_, events_.keep_going, events_.touches,
                          may_read_ahead(), [this](std::int64_t bytes) { count(bytes); });
    const std::int32_t highest = *std::max_element(classes.begin(), classes.end()) + 1;
    for (std::size_t m = 0; m < members.size(); ++m)
        content_class_[place(members[m])] = classes[m] < 0 ? unreadable_content : next_class_ + classes[m];
    next_class_ += highest;
    keep_contents(members, classes, highest);
}

// For the comparisons to come.
void file_group::keep_contents(const std::vector<std::int32_t>& members,
                               const std::vector<std::int32_t>& classes, std::int32_t count) {
    known_contents& contents = files_.contents_known;
    if (contents.numbers.empty() || count == 0) return;
    const std::int32_t first = contents.begin_reading(count);
    for (std::size_t m = 0; m < members.size(); ++m)
        contents.numbers[members[m]] = classes[m] < 0 ? 0 : first + classes[m];
}

}  // namespace corvane
