#include "platform/linux/linux_file_system.h"

#include <errno.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "platform/linux/device_number.h"
#include "platform/linux/linux_existence.h"
#include "platform/linux/linux_facts.h"
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

double steady_seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void read_request(start_request& request) {
    request.count = read_linux_start({AT_FDCWD, request.path}, request.buffer, request.expected);
}

// Questions in a row to one thread: enough that taking them is nothing beside answering them, and that a
// directory is worth holding.
constexpr std::size_t facts_in_a_row = 64;
constexpr std::size_t starts_in_a_row = 32;
constexpr std::size_t existences_in_a_row = 2048;  // a directory is read once for those of them that it holds
constexpr unsigned most_network_threads = 4;

// What fits into one row is answered by a single thread, unless the disk makes it wait: then it need not be
// asked what it is.
unsigned most_threads(std::size_t count, std::size_t in_a_row, const request_pace& pace,
                      std::string_view path) {
    if (count <= in_a_row && !pace.is_waiting()) return 1;
    return is_on_network(path) ? most_network_threads : request_pace::most_threads;
}

}  // namespace

linux_file_system::linux_file_system()
    : trash_directory_(user_trash()),
      recycle_name_(".Trash-" + std::to_string(getuid())),
      facts_pace_(request_pool::processors(), 150e-6),
      exist_pace_(request_pool::processors(), 150e-6),
      starts_pace_(request_pool::processors(), 40e-6),
      directories_pace_(request_pool::processors(), 1e-3),
      sweep_(place_on_disk, read_request, steady_seconds) {}

file_facts linux_file_system::facts(std::string_view path) {
    return linux_facts({AT_FDCWD, path}, path, stacked_devices_);
}

std::int64_t linux_file_system::now_ns() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

std::size_t linux_file_system::many_facts(std::span<const std::string_view> paths,
                                          std::span<file_facts> answers) {
    const auto path_at = [paths](std::size_t i) { return paths[i]; };
    return pool_.run(
        paths.size(), facts_in_a_row, most_threads(paths.size(), facts_in_a_row, facts_pace_, paths.front()),
        facts_pace_, [&](std::size_t first, std::size_t end, const time_limit& limit) {
            held_directory held;
            for (std::size_t i = first; i < end; ++i) {
                if (i > first && limit.passed()) return i;
                answers[i] = linux_facts(held.reach(path_at, i, end), paths[i], stacked_devices_);
            }
            return end;
        });
}

std::size_t linux_file_system::many_exist(std::span<const std::string_view> paths,
                                          std::span<std::uint8_t> answers) {
    return pool_.run(paths.size(), existences_in_a_row,
                     most_threads(paths.size(), existences_in_a_row, exist_pace_, paths.front()), exist_pace_,
                     [&](std::size_t first, std::size_t end, const time_limit& limit) {
                         return answer_existence(attributes_, paths, answers, first, end, limit);
                     });
}

std::size_t linux_file_system::read_starts(std::span<start_request> requests) {
    if (sweep_.is_wanted(starts_pace_)) return sweep_.read(requests);
    const auto path_at = [requests](std::size_t i) { return requests[i].path; };
    return pool_.run(requests.size(), starts_in_a_row,
                     most_threads(requests.size(), starts_in_a_row, starts_pace_, requests.front().path),
                     starts_pace_, [&](std::size_t first, std::size_t end, const time_limit& limit) {
                         held_directory held;
                         for (std::size_t i = first; i < end; ++i) {
                             if (i > first && limit.passed()) return i;
                             start_request& each = requests[i];
                             each.count =
                                 read_linux_start(held.reach(path_at, i, end), each.buffer, each.expected);
                         }
                         return end;
                     });
}

std::vector<outcome_with<directory_reader>> linux_file_system::open_directories(
    std::span<const std::string> paths) {
    std::vector<outcome_with<directory_reader>> opened;
    opened.reserve(paths.size());
    while (opened.size() < paths.size()) opened.emplace_back(outcome());
    const std::size_t count =
        pool_.run(paths.size(), 1, most_threads(paths.size(), 1, directories_pace_, paths.front()),
                  directories_pace_, [&](std::size_t first, std::size_t, const time_limit&) {
                      opened[first] = directories_.open(paths[first], true);
                      return first + 1;
                  });
    opened.erase(opened.begin() + static_cast<std::ptrdiff_t>(count), opened.end());
    return opened;
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
    return read_linux_start({AT_FDCWD, path}, buffer, expected);
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

outcome linux_file_system::make_directory(const std::string& path) {
    const std::string raw = raw_path(path).c_str();
    outcome made = outcome::success();
    for (std::size_t end = raw.find('/', 1);; end = raw.find('/', end + 1)) {
        if (mkdir(raw.substr(0, end).c_str(), 0700) != 0 && errno != EEXIST) made = system_failure();
        if (end == std::string::npos) break;
    }
    struct stat facts;
    if (stat(raw.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode)) return outcome::success();
    return made ? system_failure(ENOTDIR) : made;
}

bool linux_file_system::is_own_directory(const std::string& path) {
    struct stat facts;
    return stat(raw_path(path).c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == geteuid();
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

outcome linux_file_system::remove_file(const std::string& path, const file_facts& expected) {
    // The folder is held: wherever its path leads meanwhile, the name is looked at and removed in this one.
    const std::size_t cut = path.rfind('/') + 1;
    const descriptor folder = descriptor::open(raw_path(path.substr(0, cut)).c_str(), O_PATH | O_DIRECTORY);
    const raw_path name(std::string_view(path).substr(cut));
    struct stat found;
    if (!folder || fstatat(folder.number(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return system_failure();
    if (!S_ISREG(found.st_mode)) return system_failure(S_ISDIR(found.st_mode) ? EISDIR : EINVAL);
    const file_facts facts =
        linux_facts({folder.number(), std::string_view(path).substr(cut)}, path, stacked_devices_);
    if (!same_state(facts, expected)) return system_failure(ESTALE);
    return unlinkat(folder.number(), name.c_str(), 0) == 0 ? outcome::success() : system_failure();
}

outcome linux_file_system::remove_data_file(const std::string& path) {
    if (unlink(raw_path(path).c_str()) == 0 || errno == ENOENT) return outcome::success();
    return system_failure();
}

}  // namespace corvane
