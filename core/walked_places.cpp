#include "core/walked_places.h"

namespace corvane {

void walked_places::note_ancestors(std::string directory) {
    file_identity place;
    for (;;) {
        directory.pop_back();
        const std::size_t cut = directory.rfind(files_.separator());
        if (cut == std::string::npos) return;
        directory.resize(cut + 1);
        if (files_.identity(directory, place)) ancestors_.insert(place);
    }
}

bool walked_places::may_follow(const std::string& link) {
    file_identity place;
    if (!files_.identity(link, place) || listed_.count(place) != 0 || ancestors_.count(place) != 0)
        return false;
    std::string target = files_.resolve(link);
    if (target.empty() || target.back() != files_.separator()) target += files_.separator();
    note_ancestors(std::move(target));
    return true;
}

}  // namespace corvane
