#include "platform/linux/linux_existence.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <bit>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "platform/linux/descriptor.h"
#include "platform/linux/raw_path.h"

namespace corvane {

namespace {

// Reading a directory costs about as much as asking for so many of its names.
constexpr std::size_t least_names = 8;
// Of a directory that holds far more than what is asked for, the rest is not read: so many entries a name.
constexpr std::size_t most_entries = 32;
constexpr std::uint8_t open_answer = 2;

struct directory_entry {  // linux_dirent64 of getdents64(2)
    std::uint64_t inode;
    std::int64_t next;
    std::uint16_t length;
    std::uint8_t type;
    char name[1];
};

std::string_view directory_of(std::string_view path) {
    return path.substr(0, path.rfind('/') + 1);
}

// A name that stands in a directory's entries as it stands in the path.
bool is_plain(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name.find('*') == std::string_view::npos &&
           name.find('\0') == std::string_view::npos && !needs_unmapping(name);
}

// The names of one directory that are asked for.
class asked_names {
  public:
    explicit asked_names(std::size_t count) : slots_(std::bit_ceil(2 * count + 2)) {}

    void add(std::string_view name, std::size_t question) {
        std::size_t place = place_of(name);
        // The same path twice: each place has its own question.
        while (!slots_[place].name.empty()) place = (place + 1) & (slots_.size() - 1);
        slots_[place] = {name, question};
        ++count_;
    }
    // Calls `found` with each question for the name.
    template <class Found>
    void look_up(std::string_view name, const Found& found) const {
        for (std::size_t place = place_of(name); !slots_[place].name.empty();
             place = (place + 1) & (slots_.size() - 1))
            if (slots_[place].name == name) found(slots_[place].question);
    }
    std::size_t count() const { return count_; }

  private:
    struct slot {
        std::string_view name;
        std::size_t question = 0;
    };
    std::size_t place_of(std::string_view name) const {
        return std::hash<std::string_view>()(name) & (slots_.size() - 1);
    }

    std::vector<slot> slots_;
    std::size_t count_ = 0;
};

class existence_run {
  public:
    existence_run(const linux_attributes& attributes, std::span<const std::string_view> paths,
                  std::span<std::uint8_t> answers, std::size_t first, const time_limit& limit)
        : attributes_(attributes), paths_(paths), answers_(answers), first_(first), limit_(limit) {}

    // Answers paths from `start` to `end` - 1, all of one directory. Returns where it stopped.
    std::size_t answer(std::size_t start, std::size_t end) {
        std::size_t i = start;
        if (end - start >= least_names) {
            // A directory that can be read and not entered hides its files: one of them must be there.
            bool is_there = false;
            for (; i < end && !is_there; ++i) {
                if (has_to_stop(i)) return i;
                is_there = ask(i);
            }
            for (std::size_t each = i; each < end; ++each) answers_[each] = open_answer;
            if (end - i >= least_names) read_directory(i, end);
        } else {
            for (std::size_t each = i; each < end; ++each) answers_[each] = open_answer;
        }
        for (; i < end; ++i) {
            if (answers_[i] != open_answer) continue;
            if (has_to_stop(i)) return i;
            ask(i);
        }
        return end;
    }

  private:
    bool has_to_stop(std::size_t i) const { return i > first_ && limit_.passed(); }

    bool ask(std::size_t i) {
        const bool exists = attributes_.of(std::string(paths_[i])).exists;
        answers_[i] = exists ? 1 : 0;
        return exists;
    }

    // Answers what it finds. The rest may be there all the same: under another case, say, where that does not
    // count. Read to the end whatever the time is: begun anew for the rest, a slow directory would never end.
    void read_directory(std::size_t start, std::size_t end) {
        const std::string_view folder = directory_of(paths_[start]);
        asked_names names(end - start);
        for (std::size_t i = start; i < end; ++i) {
            const std::string_view name = paths_[i].substr(folder.size());
            if (is_plain(name)) names.add(name, i);
        }
        const descriptor directory = descriptor::open(raw_path(folder).c_str(), O_RDONLY | O_DIRECTORY);
        if (!directory) return;
        std::size_t missing = names.count();
        std::size_t entries_left = most_entries * names.count();
        while (missing > 0 && entries_left > 0) {
            const long filled = syscall(SYS_getdents64, directory.number(), buffer_.data(), buffer_.size());
            if (filled <= 0) return;
            for (std::size_t at = 0; at < static_cast<std::size_t>(filled);) {
                directory_entry head;
                std::memcpy(&head, buffer_.data() + at, offsetof(directory_entry, name));
                const std::string_view name(buffer_.data() + at + offsetof(directory_entry, name));
                names.look_up(name, [&](std::size_t question) {
                    if (answers_[question] == open_answer) --missing;
                    answers_[question] = 1;
                });
                at += head.length;
                if (entries_left > 0) --entries_left;
            }
        }
    }

    const linux_attributes& attributes_;
    std::span<const std::string_view> paths_;
    std::span<std::uint8_t> answers_;
    std::size_t first_;
    const time_limit& limit_;
    std::vector<char> buffer_ = std::vector<char>(32 * std::size_t{1024});
};

}  // namespace

std::size_t answer_existence(const linux_attributes& attributes, std::span<const std::string_view> paths,
                             std::span<std::uint8_t> answers, std::size_t first, std::size_t end,
                             const time_limit& limit) {
    existence_run run(attributes, paths, answers, first, limit);
    for (std::size_t start = first; start < end;) {
        const std::string_view folder = directory_of(paths[start]);
        std::size_t after = start + 1;
        while (after < end && paths[after].size() > folder.size() && paths[after].starts_with(folder) &&
               paths[after].find('/', folder.size()) == std::string_view::npos)
            ++after;
        const std::size_t stopped = run.answer(start, after);
        if (stopped < after) return stopped;
        start = after;
    }
    return end;
}

}  // namespace corvane
