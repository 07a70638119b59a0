#include "platform/linux/linux_volumes.h"

#include <dirent.h>
#include <limits.h>
#include <mntent.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/name_mapping.h"

namespace corvane {

namespace {

std::string real_path(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
    return resolved ? resolved.get() : std::string();
}

std::string closed(std::string path) {
    if (!path.ends_with('/')) path += '/';
    return path;
}

// Labels write a blank and other signs as \x20.
std::string unescaped(const std::string& name) {
    std::string plain;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool escape = name[at] == '\\' && at + 3 < name.size() && name[at + 1] == 'x';
        plain +=
            escape ? static_cast<char>(std::strtol(name.substr(at + 2, 2).c_str(), nullptr, 16)) : name[at];
        if (escape) at += 3;
    }
    return plain;
}

// The mount table writes a blank and other signs as \040.
std::string without_octal(const std::string& name) {
    std::string plain;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool escape =
            name[at] == '\\' && at + 3 < name.size() && name[at + 1] >= '0' && name[at + 1] <= '3';
        plain +=
            escape ? static_cast<char>(std::strtol(name.substr(at + 1, 3).c_str(), nullptr, 8)) : name[at];
        if (escape) at += 3;
    }
    return plain;
}

std::map<std::string, std::string> labels_by_device() {
    constexpr char folder[] = "/dev/disk/by-label/";
    std::map<std::string, std::string> labels;
    DIR* entries = opendir(folder);
    if (entries == nullptr) return labels;
    while (const dirent* entry = readdir(entries))
        if (entry->d_name[0] != '.')
            labels[real_path(folder + std::string(entry->d_name))] = unescaped(entry->d_name);
    closedir(entries);
    return labels;
}

// Mounts that belong to the system's own working, not to the user's files.
bool is_system_place(const std::string& path) {
    for (const char* inner : {"/boot", "/dev", "/proc", "/sys", "/run", "/snap", "/var/lib"}) {
        const std::string folder = closed(inner);
        if (closed(path).starts_with(folder)) return !path.starts_with("/run/media/");
    }
    return false;
}

bool measure(volume& place, const std::string& raw_path) {
    struct statvfs facts;
    if (statvfs(raw_path.c_str(), &facts) != 0 || facts.f_blocks == 0) return false;
    place.free_bytes = static_cast<std::int64_t>(facts.f_bavail) * static_cast<std::int64_t>(facts.f_frsize);
    place.total_bytes = static_cast<std::int64_t>(facts.f_blocks) * static_cast<std::int64_t>(facts.f_frsize);
    return true;
}

bool is_directory(const std::string& raw_path) {
    struct stat facts;
    return stat(raw_path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace

std::vector<mounted_tree> linux_mounts(const std::string& table) {
    std::vector<mounted_tree> found;
    std::ifstream lines(table);
    // "36 35 98:0 /root /point options ...": a blank in a path is \040.
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string number, parent, device, root, point;
        if (!(fields >> number >> parent >> device >> root >> point)) continue;
        found.push_back(
            {closed(to_text(without_octal(point))), closed(to_text(without_octal(root))), device});
    }
    return found;
}

std::vector<volume> linux_volumes() {
    std::vector<volume> found;
    std::set<std::string> known;
    if (FILE* mounts = setmntent("/proc/self/mounts", "r")) {
        const std::map<std::string, std::string> labels = labels_by_device();
        while (const mntent* mount = getmntent(mounts)) {
            const std::string path = mount->mnt_dir;
            if (is_system_place(path) || !is_directory(path) || known.count(path) != 0) continue;
            volume place;
            place.path = closed(to_text(path));
            place.kind = path == "/" ? volume_kind::root : volume_kind::other;
            // A mount without blocks of its own holds no files of the user.
            if (!measure(place, path)) continue;
            const auto label = labels.find(real_path(mount->mnt_fsname));
            if (label != labels.end()) place.name = label->second;
            known.insert(path);
            found.push_back(std::move(place));
        }
        endmntent(mounts);
    }
    std::sort(found.begin(), found.end(), [](const volume& a, const volume& b) { return a.path < b.path; });
    if (known.count("/") == 0) {
        volume root{"/", "", volume_kind::root};
        measure(root, "/");
        found.insert(found.begin(), std::move(root));
    }
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/' && is_directory(home)) {
        volume place{closed(to_text(home)), "", volume_kind::home};
        measure(place, home);
        found.insert(found.begin(), std::move(place));
    }
    return found;
}

}  // namespace corvane
