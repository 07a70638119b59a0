#include "platform/linux/stacked_devices.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <iterator>

#include "platform/linux/device_number.h"

namespace corvane {

namespace {

constexpr std::uint32_t stacked_types[] = {OVERLAYFS_SUPER_MAGIC, FUSE_SUPER_MAGIC, ECRYPTFS_SUPER_MAGIC,
                                           0x61756673 /*aufs*/, 0xF15F083D /*unionfs*/};

bool is_stacked(const char* raw_path) {
    struct statfs facts;
    if (statfs(raw_path, &facts) != 0) return false;
    const auto type = static_cast<std::uint32_t>(facts.f_type);
    return std::find(std::begin(stacked_types), std::end(stacked_types), type) != std::end(stacked_types);
}

}  // namespace

bool stacked_devices::contains(std::uint32_t major, std::uint32_t minor, const char* raw_path) {
    // A stack has no block device below it, and the number of its device goes to the next mount after it.
    if (major != 0) return false;
    constexpr std::chrono::seconds lasting(2);
    answer& known = answers_[device_of(major, minor)];
    const clock::time_point now = clock::now();
    if (known.asked == clock::time_point() || now - known.asked > lasting)
        known = {is_stacked(raw_path), now};
    return known.stacked;
}

}  // namespace corvane
