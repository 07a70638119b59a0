#include "platform/linux/trash_return.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string_view>
#include <utility>

#include "platform/linux/device_number.h"
#include "platform/name_mapping.h"
#include "platform/linux/trash_info.h"

namespace corvane {

namespace {

constexpr int most_names = 10'000;

restoring refused(obstacle why) {
    restoring answer;
    answer.why = why;
    if (why == obstacle::system) answer.reason = std::strerror(errno);
    return answer;
}

// Why a folder could not be entered: by what stands in its place.
obstacle what_stands(const descriptor& above, const std::string& name) {
    const int cause = errno;
    struct stat facts;
    if (fstatat(above.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0) {
        if (S_ISLNK(facts.st_mode)) return obstacle::link_in_way;
        if (!S_ISDIR(facts.st_mode)) return obstacle::file_in_way;
    }
    errno = cause;
    return obstacle::system;
}

descriptor enter(const descriptor& above, const std::string& name) {
    return descriptor::open_at(above.number(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW);
}

dev_t device(const descriptor& folder) {
    struct stat facts;
    return fstat(folder.number(), &facts) == 0 ? facts.st_dev : 0;
}

// Folder by folder from the root on, through no link. What is missing is made, but only on the device that
// the entry can be moved to.
obstacle reach(const std::string& folder, dev_t wanted, descriptor& reached) {
    reached = descriptor::open("/", O_PATH | O_DIRECTORY);
    if (!reached) return obstacle::system;
    const std::string path = plain_path("/" + folder);
    for (std::size_t at = 1; at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string name = path.substr(at, end - at);
        at = end + 1;
        if (name == "." || name == "..") return obstacle::strange_note;
        descriptor next = enter(reached, name);
        if (!next && errno == ENOENT) {
            if (device(reached) != wanted) return obstacle::other_device;
            if (mkdirat(reached.number(), name.c_str(), 0777) != 0 && errno != EEXIST)
                return obstacle::system;
            next = enter(reached, name);
        }
        if (!next) return what_stands(reached, name);
        reached = std::move(next);
    }
    return device(reached) == wanted ? obstacle::none : obstacle::other_device;
}

// Gives the entry a name in the folder that nothing has. False, with the cause in errno.
bool move_to_free_name(const descriptor& files, const std::string& name, const descriptor& folder,
                       const std::string& target) {
    if (renameat2(files.number(), name.c_str(), folder.number(), target.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // A file system without that call: a second name never takes the place of another one either.
    if (linkat(files.number(), name.c_str(), folder.number(), target.c_str(), 0) != 0) return false;
    return unlinkat(files.number(), name.c_str(), 0) == 0;
}

// The path under which the program knows what has come back: through the links of the old path where they
// still lead there.
std::string path_of(const recycled_item& item, const std::string& name, const descriptor& folder) {
    const std::string asked = to_raw(item.path);
    const std::string known = asked.substr(0, asked.rfind('/') + 1) + name;
    struct stat here, there;
    const bool leads_there = lstat(known.c_str(), &there) == 0 &&
                             fstatat(folder.number(), name.c_str(), &here, AT_SYMLINK_NOFOLLOW) == 0 &&
                             here.st_ino == there.st_ino && device_of(here) == device_of(there);
    return to_text(leads_there ? known : to_raw(item.folder) + "/" + name);
}

}  // namespace

restoring return_entry(const open_trash& bin, const std::string& name, const recycled_item& item) {
    descriptor folder;
    const obstacle way = reach(to_raw(item.folder), device(bin.files), folder);
    if (way != obstacle::none) return refused(way);
    const std::string path = to_raw(item.path);
    const std::string base = path.substr(path.rfind('/') + 1);
    std::string target = base;
    for (int number = 1; !move_to_free_name(bin.files, name, folder, target); ++number) {
        if (errno == EXDEV) return refused(obstacle::other_device);
        if (errno == ENOENT) return refused(obstacle::gone);
        if (errno != EEXIST) return refused(obstacle::system);
        if (number > most_names) return refused(obstacle::no_name);
        target = name_beside(base, number);
    }
    unlinkat(bin.info.number(), (name + trash_info_end).c_str(), 0);
    restoring answer;
    answer.why = obstacle::none;
    answer.path = path_of(item, target, folder);
    return answer;
}

}  // namespace corvane
