// What finding equal files costs at the least in one thread: the walk, one question for the facts of each
// file, and each byte read once that alone can decide. It holds a name, a length and a checksum a file,
// writes nothing to the disk and confirms nothing; the program is measured against it.
//
//   bound DIRECTORY...
//
// Prints groups of equal files as paths, a blank line behind each, empty files among them.
//
// Reading: a file of a length of its own is not opened. Of the others the first block is read, at most 64
// KiB; those whose first blocks agree are read on side by side. Blocks are told apart by a 128-bit sum: this
// is a measure, not a judge of what may be deleted.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr std::size_t first_block = 65536;
constexpr std::size_t next_block = 262144;

struct sum128 {
    std::uint64_t low = 0x243F6A8885A308D3;
    std::uint64_t high = 0x13198A2E03707344;
    auto operator<=>(const sum128&) const = default;
};

struct found_file {
    std::int64_t length;
    std::uint32_t directory;
    std::uint32_t name;  // where it starts in `names`
    sum128 sum;
};

std::vector<std::string> directories;  // each closed by a separator
std::string names;                     // each closed by NUL
std::vector<found_file> files;

sum128 sum_on(sum128 sum, const unsigned char* bytes, std::size_t count) {
    constexpr std::uint64_t a = 0x9E3779B97F4A7C15;
    constexpr std::uint64_t b = 0xD6E8FEB86659FD93;
    const auto add = [&sum](std::uint64_t word) {
        sum.low = (sum.low ^ word) * a;
        sum.low ^= sum.low >> 29;
        sum.high = (sum.high + word) * b;
        sum.high ^= sum.high >> 31;
    };
    std::uint64_t word = 0;
    for (; count >= sizeof word; bytes += sizeof word, count -= sizeof word) {
        std::memcpy(&word, bytes, sizeof word);
        add(word);
    }
    word = count;
    std::memcpy(&word, bytes, count);
    add(word ^ (static_cast<std::uint64_t>(count) << 56));
    return sum;
}

void take_file(int directory, const char* name, std::uint32_t number) {
    struct statx facts;
    if (statx(directory, name, AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_SIZE, &facts) != 0 ||
        !S_ISREG(facts.stx_mode))
        return;
    files.push_back(
        {static_cast<std::int64_t>(facts.stx_size), number, static_cast<std::uint32_t>(names.size()), {}});
    names.append(name).push_back('\0');
}

void list_directory(std::uint32_t number) {
    static char buffer[65536];
    const int directory = open(directories[number].c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0) return;
    long filled;
    while ((filled = syscall(SYS_getdents64, directory, buffer, sizeof buffer)) > 0) {
        for (long at = 0; at < filled;) {
            const char* record = buffer + at;
            std::uint16_t length;
            std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
            at += length;
            const char* name = record + offsetof(dirent64, d_name);
            const auto type = static_cast<unsigned char>(record[offsetof(dirent64, d_type)]);
            if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
            if (type == DT_DIR)
                directories.push_back(directories[number] + name + '/');
            else if (type == DT_REG)
                take_file(directory, name, number);
        }
    }
    close(directory);
}

std::string path_of(const found_file& file) {
    return directories[file.directory] + (names.data() + file.name);
}

// Adds the bytes from `from` on, at most `most`, to the sum of the file; what cannot be read equals nothing.
void read_on(found_file& file, std::int64_t from, std::size_t most) {
    static std::vector<unsigned char> buffer(next_block);
    static std::uint64_t unreadable = 0;
    const int descriptor = open(path_of(file).c_str(), O_RDONLY | O_CLOEXEC);
    bool whole = descriptor >= 0;
    for (std::size_t done = 0; whole && done < most;) {
        const std::size_t wanted = std::min(most - done, next_block);
        const auto at = from + static_cast<std::int64_t>(done);
        const ssize_t count = from == 0 ? read(descriptor, buffer.data(), wanted)
                                        : pread(descriptor, buffer.data(), wanted, at);
        whole = count == static_cast<ssize_t>(wanted);
        if (whole) file.sum = sum_on(file.sum, buffer.data(), wanted);
        done += wanted;
    }
    if (descriptor >= 0) close(descriptor);
    if (!whole) file.sum.low = ++unreadable;
}

void print_group(std::span<const found_file> group) {
    for (const found_file& file : group) std::puts(path_of(file).c_str());
    std::putchar('\n');
}

// Calls `take` for each run of more than one file that `alike` says belong together.
template <class Alike, class Take>
void for_runs(std::span<found_file> range, Alike alike, Take take) {
    for (std::size_t first = 0; first < range.size();) {
        std::size_t end = first + 1;
        while (end < range.size() && alike(range[first], range[end])) ++end;
        if (end - first > 1) take(range.subspan(first, end - first));
        first = end;
    }
}

void sort_by_sum(std::span<found_file> range) {
    std::sort(range.begin(), range.end(),
              [](const found_file& a, const found_file& b) { return a.sum < b.sum; });
}

void decide(std::span<found_file> group) {
    const std::int64_t length = group.front().length;
    const auto same_sum = [](const found_file& a, const found_file& b) { return a.sum == b.sum; };
    const auto head = static_cast<std::size_t>(std::min<std::int64_t>(length, first_block));
    if (length > 0)
        for (found_file& file : group) read_on(file, 0, head);
    sort_by_sum(group);
    for_runs(group, same_sum, [&](std::span<found_file> alike) {
        if (length <= static_cast<std::int64_t>(head)) return print_group(alike);
        for (found_file& file : alike)
            read_on(file, static_cast<std::int64_t>(head), static_cast<std::size_t>(length) - head);
        sort_by_sum(alike);
        for_runs(alike, same_sum, [](std::span<found_file> equal) { print_group(equal); });
    });
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("Usage: bound DIRECTORY...\n", stderr);
        return 2;
    }
    for (int i = 1; i < count; ++i) directories.push_back(std::string(arguments[i]) + '/');
    for (std::uint32_t at = 0; at < directories.size(); ++at) list_directory(at);
    // Within a length in the order in which they were found, which is the order on the disk as far as one
    // knows it.
    std::stable_sort(files.begin(), files.end(),
                     [](const found_file& a, const found_file& b) { return a.length < b.length; });
    for_runs(
        files, [](const found_file& a, const found_file& b) { return a.length == b.length; }, decide);
    return 0;
}
