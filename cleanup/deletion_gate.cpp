#include "cleanup/deletion_gate.h"

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/archives/physical_file.h"
#include "core/model/main_form.h"

namespace corvane {

namespace {

// Up to this length a file is its own signature, which an archive's checksum can meet by chance: such an
// entry is no proof of a copy.
constexpr std::int64_t unsigned_length = 4;

}  // namespace

deletion_gate::deletion_gate(Tavrel& form)
    : form_(form),
      files_(form.outside.files),
      contents_(files_,
                [&form] {
                    form.yield();
                    return !form.state.quit_requested;
                }),
      protected_(form),
      groups_(form.ListView1, [&form] { form.yield(); }),
      shelf_(form) {}

void deletion_gate::take(std::string_view path) {
    taken_.emplace(path);
}

void deletion_gate::give_back(std::string_view path) {
    const auto found = taken_.find(path);
    if (found != taken_.end()) taken_.erase(found);
}

gate_verdict deletion_gate::looks_free(std::string_view path, std::int64_t length) {
    if (is_archive_member(path)) return judge({path, length, false, false, {}, {}});
    const file_facts facts = files_.facts(path);
    if (!facts.exists || facts.length != length) return gate_verdict::changed;
    return judge({path, length, false, true, facts, {}});
}

gate_verdict deletion_gate::ask(std::string_view path, std::int64_t length) {
    const file_facts facts = files_.facts(path);
    if (!facts.exists && !path_exists(files_, std::string(path))) return gate_verdict::gone;
    if (!facts.exists || facts.length != length) return gate_verdict::changed;
    return judge({path, length, true, true, facts, {}});
}

gate_verdict deletion_gate::ask(std::string_view path, const archive_member& member) {
    return judge({path, static_cast<std::int64_t>(member.length), true, false, {}, member.crc});
}

gate_verdict deletion_gate::judge(leaving file) {
    if (is_taken(file.path)) return gate_verdict::gone;
    if (protected_.covers(file.path)) return gate_verdict::covered;
    if (!trusted_archives_.empty() &&
        trusted_archives_.count(archive_number(archive_path_of(file.path))) != 0)
        return gate_verdict::last_copy;
    // Only a list of equal files has copies; elsewhere the user removes what has none.
    if (!shown_view(form_).holds_copies) return gate_verdict::may_go;
    copy_groups::group* group = groups_.group_of(file.path);
    if (group == nullptr) return gate_verdict::last_copy;
    bool differs = false;
    // From where the last keeper was found on: in a group of many marked files the search goes round once.
    for (std::size_t step = 0; step < group->paths.size(); ++step) {
        const std::size_t at = (group->next + step) % group->paths.size();
        const std::string_view keeper = group->paths[at];
        if (keeper == file.path) continue;
        const keeping answer = keeps(keeper, file);
        if (answer == keeping::keeps) {
            group->next = at;
            return gate_verdict::may_go;
        }
        differs |= answer == keeping::differs;
    }
    return differs ? gate_verdict::changed : gate_verdict::last_copy;
}

deletion_gate::keeping deletion_gate::keeps(std::string_view keeper, leaving& file) {
    if (is_taken(keeper)) return keeping::absent;
    if (is_archive_member(keeper)) return entry_keeps(keeper, file);
    const file_facts kept = files_.facts(keeper);
    if (!kept.exists || lies_in_recycle_directory(keeper)) return keeping::absent;
    if (kept.length != file.length) return keeping::differs;
    if (file.on_disk && same_physical_file(files_, keeper, kept, file.path, file.facts))
        return keeping::absent;
    // A second link: the same bytes.
    if (file.on_disk && kept.identity == file.facts.identity) return keeping::keeps;
    if (!file.proves) return keeping::keeps;
    const bool equal = file.on_disk ? has_same_bytes(keeper, kept, file)
                                    : contents_.checksum(keeper, file.length) == file.crc;
    return equal ? keeping::keeps : keeping::differs;
}

deletion_gate::keeping deletion_gate::entry_keeps(std::string_view keeper, leaving& file) {
    const std::string_view archive = archive_path_of(keeper);
    if (file.length <= unsigned_length || is_taken(archive) || lies_in_recycle_directory(archive))
        return keeping::absent;
    if (touched_archives_.empty())
        for (const std::string_view marked : groups_.marked())
            touched_archives_.insert(archive_number(archive_path_of(marked)));
    const std::size_t number = archive_number(archive);
    if (touched_archives_.count(number) != 0) return keeping::absent;
    const archive_member* member = member_at(keeper, file.length);
    if (member == nullptr) return keeping::absent;
    if (file.proves && !has_checksum(file, member->crc)) return keeping::differs;
    if (file.proves) trusted_archives_.insert(number);
    return keeping::keeps;
}

bool deletion_gate::proven_equal(std::string_view a, const file_facts& facts_a, std::string_view b,
                                 const file_facts& facts_b) const {
    const auto stands = [](const auto* proof, const file_facts& facts) {
        return proof != nullptr && same_state(proof->facts, facts);
    };
    const proven_files& proven = form_.state.proven;
    const proven_files::proof* of_a = proven.find(a);
    const proven_files::proof* of_b = proven.find(b);
    if (stands(of_a, facts_a) && stands(of_b, facts_b) && of_a->star == of_b->star) return true;
    const auto own_a = compared_.find(a);
    const auto own_b = compared_.find(b);
    return own_a != compared_.end() && own_b != compared_.end() && stands(&own_a->second, facts_a) &&
           stands(&own_b->second, facts_b) && own_a->second.star == own_b->second.star;
}

bool deletion_gate::has_same_bytes(std::string_view keeper, const file_facts& kept, leaving& file) {
    if (proven_equal(file.path, file.facts, keeper, kept)) return true;
    if (!contents_.same(file.path, keeper, file.length)) return false;
    // What was written meanwhile may have been read half old, half new.
    if (!same_state(file.facts, files_.facts(file.path)) || !same_state(kept, files_.facts(keeper)))
        return false;
    const auto known = compared_.find(keeper);
    const bool goes_on = known != compared_.end() && same_state(known->second.facts, kept);
    const std::int32_t star = goes_on ? known->second.star : --next_star_;
    compared_.insert_or_assign(std::string(keeper), known_state{star, state_of(kept)});
    compared_.insert_or_assign(std::string(file.path), known_state{star, state_of(file.facts)});
    return true;
}

bool deletion_gate::has_checksum(leaving& file, std::uint32_t crc) {
    if (!file.crc) file.crc = contents_.checksum(file.path, file.length);
    return file.crc == crc;
}

// The one file of that name and length that is inside now.
const archive_member* deletion_gate::member_at(std::string_view entry, std::int64_t length) {
    const std::string_view archive = archive_path_of(entry);
    const archive_contents& contents = shelf_.contents(std::string(archive));
    const archive_member* member = contents.file(entry.substr(archive.size() + 1));
    return member != nullptr && member->length == static_cast<std::uint64_t>(length) ? member : nullptr;
}

std::size_t deletion_gate::archive_number(std::string_view path) {
    const auto [place, is_new] = archive_numbers_.try_emplace(std::string(path), archive_numbers_.size());
    if (!is_new) return place->second;
    const file_facts facts = files_.facts(path);
    if (!facts.exists) return place->second;
    const auto [first, last] = archives_.equal_range(facts.length);
    for (auto each = first; each != last; ++each) {
        const known_archive& known = each->second;
        if (same_physical_file(files_, known.path, known.facts, path, facts))
            return place->second = known.number;
    }
    archives_.emplace(facts.length, known_archive{std::string(path), facts, place->second});
    return place->second;
}

bool deletion_gate::lies_in_recycle_directory(std::string_view path) {
    const std::size_t cut = path.rfind(files_.separator());
    const std::string folder(path.substr(0, cut == std::string_view::npos ? path.size() : cut + 1));
    const auto known = recycle_folders_.find(folder);
    if (known != recycle_folders_.end()) return known->second;
    return recycle_folders_[folder] = is_below_recycle_directory(folder);
}

bool deletion_gate::is_below_recycle_directory(const std::string& folder) {
    std::string resolved = files_.resolve(folder);
    if (resolved.empty() || resolved.back() != files_.separator()) resolved += files_.separator();
    for (std::size_t at = resolved.find(files_.separator(), 1); at != std::string::npos;
         at = resolved.find(files_.separator(), at + 1))
        if (files_.is_recycle_directory(resolved.substr(0, at + 1))) return true;
    return false;
}

}  // namespace corvane
