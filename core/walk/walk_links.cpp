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
    wait(directory);
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
        const std::string& link = waiting_[next_++];
        for (; ordered_ < listed_.size(); ++ordered_) places_.insert(listed_[ordered_]);
        file_identity place;
        if (!files_.identity(link, place) || places_.count(place) != 0 || ancestors_.count(place) != 0)
            continue;
        note_ancestors(with_separator(files_.resolve(link), files_.separator()));
        return link;
    }
    return {};
}

}  // namespace corvane
