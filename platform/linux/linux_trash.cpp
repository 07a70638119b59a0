#include "platform/linux/linux_trash.h"

#include <errno.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>

#include "platform/linux/device_number.h"
#include "platform/name_mapping.h"
#include "platform/linux/raw_path.h"
#include "platform/linux/trash_info.h"
#include "platform/linux/trash_place.h"
#include "platform/linux/trash_return.h"
#include "platform/linux/trash_search.h"

namespace corvane {

namespace {

// A name that stands in the bin's folder itself and nowhere else.
bool is_plain_name(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

std::string without_links(const std::string& folder) {
    const std::unique_ptr<char, decltype(&std::free)> target(
        realpath(folder.empty() ? "/" : folder.c_str(), nullptr), &std::free);
    if (target == nullptr) return folder;
    std::string path = target.get();
    return path == "/" ? std::string() : path;
}

// The old path leads to the folder that was noted with it: by its own text, or through the links above it.
bool leads_to_folder(const recycled_item& item) {
    const std::string path = to_raw(item.path);
    const std::string above = plain_path(path.substr(0, path.rfind('/') + 1));
    const std::string folder = plain_path(to_raw(item.folder) + "/");
    return above == folder || plain_path(without_links(above) + "/") == folder;
}

// Opens the bin and looks at the entry.
trash_state look_into(const recycled_item& item, const trash_entry& entry, open_trash& bin, bool& strange) {
    const std::string name = to_raw(entry.name);
    const opened_trash opened = open_trash_place(to_raw(entry.place), bin);
    strange = opened == opened_trash::strange || !is_plain_name(name);
    if (strange) return trash_state::other;
    if (opened == opened_trash::missing) return trash_state::out_of_reach;
    struct stat facts;
    if (fstatat(bin.files.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? trash_state::gone : trash_state::other;
    return is_same_item(item, facts) ? trash_state::there : trash_state::other;
}

obstacle obstacle_of(trash_state state, bool strange) {
    if (strange) return obstacle::strange_place;
    switch (state) {
        case trash_state::there:
            return obstacle::none;
        case trash_state::gone:
            return obstacle::gone;
        case trash_state::other:
            return obstacle::other;
        case trash_state::out_of_reach:
            return obstacle::out_of_reach;
    }
    return obstacle::other;
}

}  // namespace

std::optional<recycled_item> linux_trash::look(const std::string& path) {
    struct stat facts;
    if (lstat(raw_path(path).c_str(), &facts) != 0) return {};
    if (!S_ISREG(facts.st_mode) && !S_ISDIR(facts.st_mode)) return {};
    std::string named = path;
    while (named.size() > 1 && named.back() == '/') named.pop_back();
    const std::string folder = to_raw(named.substr(0, named.rfind('/')));
    if (folder != known_folder_ || known_target_.empty()) {
        known_folder_ = folder;
        known_target_ = without_links(folder);
    }
    recycled_item item;
    item.path = std::move(named);
    item.folder = to_text(known_target_);
    item.directory = S_ISDIR(facts.st_mode);
    item.identity = {device_of(facts), facts.st_ino};
    item.length = item.directory ? 0 : facts.st_size;
    item.modified_ns = facts.st_mtim.tv_sec * 1'000'000'000 + facts.st_mtim.tv_nsec;
    return item;
}

std::vector<trash_entry> linux_trash::find(std::span<const recycled_item> gone) {
    // A link above may lead elsewhere by the next batch.
    known_target_.clear();
    return search_trash(gone, numbers_);
}

trash_state linux_trash::state(const recycled_item& item, const trash_entry& entry) {
    open_trash bin;
    bool strange = false;
    return look_into(item, entry, bin, strange);
}

bool linux_trash::stands_at(const recycled_item& item, const std::string& path) {
    struct stat facts;
    return lstat(raw_path(path).c_str(), &facts) == 0 && is_same_item(item, facts);
}

restoring linux_trash::restore(const recycled_item& item, const trash_entry& entry) {
    open_trash bin;
    bool strange = false;
    const trash_state found = look_into(item, entry, bin, strange);
    restoring answer;
    answer.why = obstacle_of(found, strange);
    if (!answer.ok()) return answer;
    answer.why = obstacle::link_in_way;
    if (!leads_to_folder(item)) return answer;
    answer.why = obstacle::strange_note;
    if (!info_names(bin, to_raw(entry.name), item)) return answer;
    return return_entry(bin, to_raw(entry.name), item);
}

}  // namespace corvane
