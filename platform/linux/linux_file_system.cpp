#include "platform/linux/linux_file_system.h"

#include <errno.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/file_time.h"
#include "platform/linux/device_number.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/raw_path.h"
#include "platform/linux/system_failure.h"

namespace corvane {

namespace {

std::string real_path(const std::string& path) {
    const raw_path raw(path);
    char* resolved = realpath(raw.c_str(), nullptr);
    if (resolved == nullptr) return path;
    std::string text = to_text(resolved);
    std::free(resolved);
    return text;
}

std::string user_trash() {
    const char* data_home = std::getenv("XDG_DATA_HOME");
    std::string base = data_home != nullptr ? data_home : "";
    if (base.empty() || base.front() != '/') {
        const char* home = std::getenv("HOME");
        if (home == nullptr || *home == '\0') {
            const passwd* user = getpwuid(getuid());
            home = user != nullptr ? user->pw_dir : "/";
        }
        base = std::string(home) + "/.local/share";
    }
    return to_text(base + "/Trash");
}

std::int64_t nanoseconds(const statx_timestamp& time) {
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

linux_file_system::linux_file_system()
    : trash_directory_(user_trash()), recycle_name_(".Trash-" + std::to_string(getuid())) {}

file_facts linux_file_system::facts(std::string_view path) {
    const raw_path raw(path);
    struct statx facts;
    file_facts result;
    constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_CTIME | STATX_INO | STATX_NLINK;
    if (statx(AT_FDCWD, raw.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &facts) != 0 || !S_ISREG(facts.stx_mode))
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
    result.stacked = stacked_devices_.contains(facts.stx_dev_major, facts.stx_dev_minor, raw.c_str());
    return result;
}

std::string linux_file_system::resolve(const std::string& path) {
    return real_path(path);
}

bool linux_file_system::identity(const std::string& path, file_identity& identity) {
    const raw_path raw(path);
    struct stat facts;
    if (stat(raw.c_str(), &facts) != 0) return false;
    identity = {device_of(facts), facts.st_ino};
    return true;
}

bool linux_file_system::is_recycle_directory(const std::string& path) {
    std::string_view text(path);
    while (text.size() > 1 && text.back() == '/') text.remove_suffix(1);
    const std::size_t slash = text.rfind('/');
    const std::string_view name = slash == std::string_view::npos ? text : text.substr(slash + 1);
    if (name == ".Trash" || name == recycle_name_) {
        // Only at the top of a volume: the directory above lies on another device than the one above that.
        const std::string parent(slash == 0 || slash == std::string_view::npos ? "/" : text.substr(0, slash));
        file_identity here, above;
        if (!identity(parent, here)) return false;
        return !identity(parent + "/..", above) || here.device != above.device || here == above;
    }
    return name == "Trash" && (text == trash_directory_ || real_path(path) == real_path(trash_directory_));
}

std::int64_t linux_file_system::read_start(std::string_view path, std::span<std::byte> buffer,
                                           std::size_t expected) {
    const raw_path raw(path);
    const descriptor file = descriptor::open(raw.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
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

outcome_with<file_reader> linux_file_system::open_file(std::string_view path) {
    return open_linux_reader(raw_path(path).c_str());
}

outcome_with<file_writer> linux_file_system::replace_file(const std::string& path) {
    return open_replacing_writer(raw_path(path).c_str());
}

outcome_with<file_writer> linux_file_system::overwrite_file(const std::string& path) {
    return open_overwriting_writer(raw_path(path).c_str());
}

bool linux_file_system::can_write_into(const std::string& directory) {
    // A trial says more than the permission bits: the superuser passes those on a read-only disk, too.
    std::string trial = raw_path(directory).c_str();
    trial += "/.corvane.XXXXXX";
    if (!descriptor::open_new(trial)) return false;
    unlink(trial.c_str());
    return true;
}

bool linux_file_system::claim_directory(const std::string& directory) {
    descriptor claim = descriptor::open(raw_path(directory).c_str(), O_RDONLY | O_DIRECTORY);
    if (!claim) return true;
    if (flock(claim.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    claim_ = std::move(claim);
    return true;
}

outcome linux_file_system::put_text(const std::string& path, std::string_view text) {
    return put_linux_text(raw_path(path).c_str(), text);
}

outcome linux_file_system::remove_file(const std::string& path) {
    const raw_path raw(path);
    struct stat facts;
    if (lstat(raw.c_str(), &facts) == 0 && !S_ISREG(facts.st_mode))
        return system_failure(S_ISDIR(facts.st_mode) ? EISDIR : EINVAL);
    return unlink(raw.c_str()) == 0 ? outcome::success() : system_failure();
}

outcome linux_file_system::remove_data_file(const std::string& path) {
    if (unlink(raw_path(path).c_str()) == 0 || errno == ENOENT) return outcome::success();
    return system_failure();
}

}  // namespace corvane
