#include "core/walk/walk_links.h"

#include "core/text/path_text.h"
#include "core/text/text_case.h"

namespace corvane {

bool walk_links::take_root(const std::string& directory) {
    const std::string resolved = with_separator(files_.resolve(directory), files_.separator());
    note_ancestors(resolved);
    const bool same =
        files_.ignores_case() ? upper_case(resolved) == upper_case(directory) : resolved == directory;
    if (same) return true;
    waiting_.push_back({directory, true});
    return false;
}

// The directories above a root count as seen from below: a link to one would list the root again.
void walk_links::note_ancestors(std::string directory) {
    file_identity place;
    for (;;) {
        directory.pop_back();
        const std::size_t cut = directory.rfind(files_.separator());
        if (cut == std::string::npos) return;
        directory.resize(cut + 1);
        if (files_.identity(directory, place)) ancestors_.insert(place);
    }
}

std::string walk_links::next() {
    while (next_ < waiting_.size()) {
        const waiting_link& link = waiting_[next_++];
        file_identity place;
        if (!files_.identity(link.path, place) || is_listed(place)) continue;
        const bool is_ancestor = ancestors_.count(place) != 0;
        if (is_ancestor && !link.selected) continue;
        overlaps_ = overlaps_ || is_ancestor;
        note_ancestors(with_separator(files_.resolve(link.path), files_.separator()));
        return link.path;
    }
    return {};
}

bool walk_links::was_listed(const std::string& directory) {
    file_identity place;
    return overlaps_ && files_.identity(directory, place) && is_listed(place);
}

bool walk_links::is_listed(const file_identity& place) {
    for (; ordered_ < listed_.size(); ++ordered_) places_.insert(listed_[ordered_]);
    return places_.count(place) != 0;
}

}  // namespace corvane
