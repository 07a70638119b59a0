#include "platform/linux/trash_place.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/name_mapping.h"
#include "platform/own_process.h"
#include "platform/linux/trash_info.h"

namespace corvane {

namespace {

constexpr int folder_flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

std::string parent_of(const std::string& folder) {
    const std::size_t cut = folder.rfind('/');
    return cut == std::string::npos || cut == 0 ? "/" : folder.substr(0, cut);
}

std::string below(const std::string& folder, const std::string& name) {
    return folder == "/" ? folder + name : folder + "/" + name;
}

// The highest folder on the way up that is still on the same device.
std::string top_of_volume(std::string folder) {
    struct stat facts;
    while (stat(folder.c_str(), &facts) != 0) {
        if (folder == "/" || folder.empty()) return "/";
        folder = parent_of(folder);
    }
    const dev_t device = facts.st_dev;
    while (folder != "/") {
        const std::string above = parent_of(folder);
        if (stat(above.c_str(), &facts) != 0 || facts.st_dev != device) break;
        folder = above;
    }
    return folder;
}

// The top that a bin of a volume stands at; nothing where its name is no bin's.
std::optional<std::string> top_of_place(const std::string& place) {
    const std::string user = std::to_string(own_user());
    for (const std::string& end : {"/.Trash-" + user, "/.Trash/" + user}) {
        if (!place.ends_with(end)) continue;
        const std::string top = place.substr(0, place.size() - end.size());
        return top.empty() ? "/" : top;
    }
    return {};
}

bool is_top(const std::string& folder) {
    return plain_path(folder) == folder && top_of_volume(folder) == folder;
}

bool is_own_folder(const descriptor& folder) {
    struct stat facts;
    return fstat(folder.number(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == own_user();
}

// What all users share is safe only as no link, and with the sticky bit.
bool is_safe_to_share(const std::string& folder) {
    struct stat facts;
    return lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) && (facts.st_mode & S_ISVTX) != 0;
}

opened_trash missing_or_strange() {
    return errno == ENOENT ? opened_trash::missing : opened_trash::strange;
}

}  // namespace

std::string home_trash() {
    const std::string home = to_raw(user_data_home());
    return home.empty() ? home : plain_path(home + "Trash");
}

std::vector<std::string> trash_places_for(const std::string& folder) {
    const std::string top = top_of_volume(folder.empty() ? "/" : folder);
    const std::string user = std::to_string(own_user());
    std::vector<std::string> places;
    if (std::string home = home_trash(); !home.empty()) places.push_back(std::move(home));
    places.push_back(below(below(top, ".Trash"), user));
    places.push_back(below(top, ".Trash-" + user));
    return places;
}

opened_trash open_trash_place(const std::string& place, open_trash& bin) {
    const bool is_home = !place.empty() && place == home_trash();
    bin.top.clear();
    if (!is_home) {
        const std::optional<std::string> top = top_of_place(place);
        if (!top || top->front() != '/') return opened_trash::strange;
        struct stat facts;
        if (lstat(place.c_str(), &facts) != 0) return missing_or_strange();
        if (!is_top(*top)) return opened_trash::strange;
        const std::string above = parent_of(place);
        if (above != *top && !is_safe_to_share(above)) return opened_trash::strange;
        bin.top = *top;
    }
    // The way to the bin at home is the user's own: links in it are followed.
    const descriptor folder =
        descriptor::open(place.c_str(), is_home ? O_RDONLY | O_DIRECTORY : folder_flags);
    if (!folder) return missing_or_strange();
    if (!is_own_folder(folder)) return opened_trash::strange;
    bin.files = descriptor::open_at(folder.number(), "files", folder_flags);
    if (!bin.files) return missing_or_strange();
    bin.info = descriptor::open_at(folder.number(), "info", folder_flags);
    if (!bin.info) return missing_or_strange();
    return opened_trash::yes;
}

}  // namespace corvane
