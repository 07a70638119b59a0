#include "platform/linux/linux_facts.h"

#include <errno.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>

#include "platform/file_time.h"
#include "platform/linux/device_number.h"
#include "platform/linux/raw_path.h"

namespace corvane {

namespace {

std::int64_t nanoseconds(const statx_timestamp& time) {
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

file_facts linux_facts(const held_directory::place& place, std::string_view path, stacked_devices& stacked) {
    const raw_path raw(place.name);
    struct statx facts;
    file_facts result;
    constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_CTIME | STATX_INO | STATX_NLINK;
    if (statx(place.directory, raw.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &facts) != 0 ||
        !S_ISREG(facts.stx_mode))
        return result;
    result.exists = true;
    result.length = static_cast<std::int64_t>(facts.stx_size);
    const file_time time = to_file_time(facts.stx_mtime.tv_sec, facts.stx_mtime.tv_nsec);
    result.date_high = time.high;
    result.date_low = time.low;
    result.link_count = facts.stx_nlink;
    result.identity = {device_of(facts.stx_dev_major, facts.stx_dev_minor), facts.stx_ino};
    result.modified_ns = nanoseconds(facts.stx_mtime);
    result.changed_ns = nanoseconds(facts.stx_ctime);
    result.stacked = stacked.contains(facts.stx_dev_major, facts.stx_dev_minor, path);
    return result;
}

std::int64_t read_linux_start(const held_directory::place& place, std::span<std::byte> buffer,
                              std::size_t expected) {
    const raw_path raw(place.name);
    const descriptor file =
        descriptor::open_at(place.directory, raw.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
    if (!file) return -1;
    std::size_t filled = 0;
    while (filled < buffer.size() && filled != expected) {
        const ssize_t count = read(file.number(), buffer.data() + filled, buffer.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return -1;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    return static_cast<std::int64_t>(filled);
}

bool is_on_network(std::string_view path) {
    static constexpr std::uint32_t network_types[] = {
        NFS_SUPER_MAGIC,      SMB_SUPER_MAGIC,     CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, AFS_FS_MAGIC,
        CODA_SUPER_MAGIC,     V9FS_MAGIC,          CEPH_SUPER_MAGIC, FUSE_SUPER_MAGIC, NCP_SUPER_MAGIC,
        0x7461636F /*ocfs2*/, 0x01161970 /*gfs2*/, 0x0BD00BD0 /*lustre*/};
    struct statfs facts;
    if (statfs(raw_path(path).c_str(), &facts) != 0) return false;
    const auto type = static_cast<std::uint32_t>(facts.f_type);
    return std::find(std::begin(network_types), std::end(network_types), type) != std::end(network_types);
}

}  // namespace corvane
