#include "platform/linux/stacked_devices.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <iterator>

#include "platform/linux/device_number.h"
#include "platform/linux/linux_facts.h"
#include "platform/linux/raw_path.h"

namespace corvane {

namespace {

constexpr std::uint32_t stacked_types[] = {OVERLAYFS_SUPER_MAGIC, FUSE_SUPER_MAGIC, ECRYPTFS_SUPER_MAGIC,
                                           0x61756673 /*aufs*/, 0xF15F083D /*unionfs*/};

bool is_stacked(std::string_view path) {
    struct statfs facts;
    if (statfs(raw_path(path).c_str(), &facts) != 0) return false;
    const auto type = static_cast<std::uint32_t>(facts.f_type);
    // A share may be one of this machine, or be mounted twice.
    return std::find(std::begin(stacked_types), std::end(stacked_types), type) != std::end(stacked_types) ||
           is_on_network(path);
}

}  // namespace

bool stacked_devices::contains(std::uint32_t major, std::uint32_t minor, std::string_view path) {
    // A stack has no block device below it, and the number of its device goes to the next mount after it.
    if (major != 0) return false;
    constexpr std::chrono::seconds lasting(2);
    const std::uint64_t device = device_of(major, minor);
    const clock::time_point now = clock::now();
    {
        const std::lock_guard lock(guard_);
        const answer& known = answers_[device];
        if (known.asked != clock::time_point() && now - known.asked <= lasting) return known.stacked;
    }
    const bool stacked = is_stacked(path);
    const std::lock_guard lock(guard_);
    answers_[device] = {stacked, now};
    return stacked;
}

}  // namespace corvane
