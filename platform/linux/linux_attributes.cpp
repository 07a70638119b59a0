#include "platform/linux/linux_attributes.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "platform/linux/raw_path.h"
#include "platform/linux/system_failure.h"

namespace corvane {

namespace {

std::string_view without_separator(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return path;
}

bool has_hidden_name(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    return name.size() > 1 && name.front() == '.';
}

}  // namespace

path_attributes linux_attributes::of(const std::string& path) const {
    const std::string_view plain = without_separator(path);
    const raw_path raw(plain);
    struct stat facts;
    path_attributes result;
    if (lstat(raw.c_str(), &facts) != 0) return result;
    if (S_ISLNK(facts.st_mode)) {
        struct stat target;
        result.link = true;
        result.directory = stat(raw.c_str(), &target) == 0 && S_ISDIR(target.st_mode);
    } else {
        result.directory = S_ISDIR(facts.st_mode);
        result.read_only = (facts.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
    }
    if (plain.size() != path.size() && !result.directory) return {};
    result.exists = true;
    result.hidden = has_hidden_name(plain) && !is_unhidden(plain);
    return result;
}

bool linux_attributes::is_unhidden(std::string_view plain) const {
    const std::lock_guard lock(guard_);
    return unhidden_.contains(std::string(plain));
}

outcome linux_attributes::clear(const std::string& path) {
    const std::string_view plain = without_separator(path);
    const raw_path raw(plain);
    struct stat facts;
    if (lstat(raw.c_str(), &facts) != 0) return system_failure();
    // A link has no permissions of its own.
    if (!S_ISLNK(facts.st_mode) && (facts.st_mode & S_IWUSR) == 0 &&
        fchmodat(AT_FDCWD, raw.c_str(), (facts.st_mode & 07777) | S_IWUSR, AT_SYMLINK_NOFOLLOW) != 0)
        return system_failure();
    const std::lock_guard lock(guard_);
    if (has_hidden_name(plain)) unhidden_.emplace(plain);
    return outcome::success();
}

file_access linux_attributes::access(const std::string& path) const {
    const raw_path raw(path);
    struct stat facts;
    if (lstat(raw.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    return {true, facts.st_mode & 0777, facts.st_uid, facts.st_gid};
}

void linux_attributes::restore_access(const std::string& path, const file_access& access) const {
    const raw_path raw(path);
    if (!access.known || !this->access(path).known) return;
    // Only an administrator gives files away; the permissions are the user's.
    if (fchownat(AT_FDCWD, raw.c_str(), access.owner, access.group, AT_SYMLINK_NOFOLLOW) != 0) errno = 0;
    if (fchmodat(AT_FDCWD, raw.c_str(), access.mode, AT_SYMLINK_NOFOLLOW) != 0) errno = 0;
}

}  // namespace corvane
