// The disk as the program sees it: list, facts, read, write, remove. Everything above platform/ reaches the
// disk through this interface alone; platform/linux implements it, tests script it and make it fail.
//
// Paths are the program's text: bytes as the system gave them, mapped so that no name holds a line break or
// '*'. A directory is handed over with or without its closing separator.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/outcome.h"

namespace corvane {

enum class entry_kind {
    file,               // regular file: listed
    directory,          // queued
    link_to_directory,  // visited after everything else, if the walk has not seen its target
    other               // links to files, FIFOs, sockets, devices: neither listed nor opened
};

// One physical file or directory; two paths of one thing compare equal.
struct file_identity {
    std::uint64_t device = 0;
    std::uint64_t index = 0;
    bool operator==(const file_identity&) const = default;
};

struct file_identity_hash {
    std::size_t operator()(const file_identity& identity) const noexcept {
        return static_cast<std::size_t>((identity.index * 0x9E3779B97F4A7C15u) ^ (identity.device << 17));
    }
};

struct path_attributes {
    bool exists = false;
    bool directory = false;  // also for a link to one
    bool link = false;       // the path itself is a symbolic link, wherever that leads
    bool hidden = false;
    bool read_only = false;
};

// What the comparison needs of one regular file. The last-write time is a file_time, in two halves as the
// history file stores it.
struct file_facts {
    bool exists = false;  // false: gone, no regular file, or the question failed
    std::int64_t length = 0;
    std::int32_t date_high = 0;
    std::int32_t date_low = 0;
    std::uint64_t link_count = 1;
    file_identity identity;
    // In nanoseconds since 1970; 0 where the system does not tell. The change time also moves with rights,
    // links and names, and cannot be set back.
    std::int64_t modified_ns = 0;
    std::int64_t changed_ns = 0;
    // The file lies on a mount that shows files of other mounts (an overlay, a pool of disks, a share): it may
    // be one with a file of another device number.
    bool stacked = false;
};

enum class volume_kind { home, root, other };

// Who may do what with a file, in the system's own numbers.
struct file_access {
    bool known = false;
    std::uint32_t mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
};

// True when nothing tells that the file has changed between the two.
inline bool same_state(const file_facts& a, const file_facts& b) {
    return a.exists == b.exists && a.identity == b.identity && a.length == b.length &&
           a.date_high == b.date_high && a.date_low == b.date_low && a.modified_ns == b.modified_ns &&
           a.changed_ns == b.changed_ns;
}

// A place where a search can start.
struct volume {
    std::string path;  // ends in the separator
    std::string name;  // the label that the user gave it; may be empty
    volume_kind kind = volume_kind::other;
    std::int64_t free_bytes = -1;  // -1: not known
    std::int64_t total_bytes = -1;
};

// One mount: what stands below `point` is what stands below `root` in the file system `device`. Both end in
// the separator.
struct mounted_tree {
    std::string point;
    std::string root;
    std::string device;
};

class directory_reader {
  public:
    virtual ~directory_reader() = default;
    // The next entry except "." and "..", in the system's order; false at the end or after a read error.
    // `name` is valid until the next call.
    virtual bool next(std::string_view& name, entry_kind& kind) = 0;
    // True when next() ended on a read error: there may be entries that nobody has seen.
    virtual bool failed() const = 0;
    // Whether the entry that next() gave last is hidden from the user who looks for a folder.
    virtual bool hidden() const = 0;
    virtual file_identity identity() const = 0;
};

class file_reader {
  public:
    virtual ~file_reader() = default;
    // Reads up to buffer.size() bytes at `offset`. Returns the number read, less only at the end of the file,
    // or -1 on an error.
    virtual std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) = 0;
    // Tells the system that the file will be read from `offset` on, front to back.
    virtual void will_read(std::int64_t offset) = 0;
    // Has the system begin to fetch `length` bytes at `offset`, without waiting for them.
    virtual void fetch(std::int64_t offset, std::int64_t length) = 0;
};

// One of many starts that are read at once.
struct start_request {
    std::string_view path;
    std::span<std::byte> buffer;
    std::size_t expected = 0;
    std::int64_t count = -1;  // the answer, as that of read_start
};

class file_writer {
  public:
    virtual ~file_writer() = default;
    // Appends.
    virtual outcome write(std::string_view bytes) = 0;
    // Overwrites bytes already written, at `offset` from the start.
    virtual outcome write_at(std::int64_t offset, std::string_view bytes) = 0;
    // Makes durable what has been written so far, so that commit() has not to wait for it; what fails here
    // fails there. Another thread may call it while nobody else uses the writer.
    virtual void settle() {}
    // Makes the file durable and puts it in its place. A writer that is destroyed without a successful
    // commit leaves the old file as it was.
    virtual outcome commit() = 0;
};

// How a text of the program stands in its data files, where that is not as it is in memory. A line break and
// all other signs of ASCII are the same in both, and no byte of another character is a line break.
class data_encoding {
  public:
    virtual ~data_encoding() = default;
    // Appends to `out`; neither part may lie in it. ASCII texts need not be handed over.
    virtual void append_bytes(std::string& out, std::string_view text) const = 0;
    virtual void append_text(std::string& out, std::string_view bytes) const = 0;
};

class file_system {
  public:
    virtual ~file_system() = default;

    // '\\' on Windows, '/' elsewhere.
    virtual char separator() const = 0;
    // True where two paths that differ in case only name one file.
    virtual bool ignores_case() const = 0;
    // Of the program's data files on this machine; null where they hold texts as they are. Outlives the disk.
    virtual const data_encoding* data_files() const { return nullptr; }

    // A path in the system's own bytes as the program's text.
    virtual std::string text_of(std::string_view raw) const { return std::string(raw); }

    // Home first where there is one, then the volumes that hold files of their own, by path. Never empty.
    virtual std::vector<volume> volumes() = 0;
    // Fails when the directory cannot be read, or lies on a pseudo file system.
    virtual outcome_with<directory_reader> open_directory(const std::string& path) = 0;
    // A closing separator does not hide a link: the facts are those of the path without it. A path that ends
    // in one exists only as a directory.
    virtual path_attributes attributes(const std::string& path) = 0;
    // Gives the owner write permission, and lets the name count as not hidden for as long as this object
    // lives. When the permission cannot be given, nothing has changed. What a link leads to is never touched.
    virtual outcome clear_attributes(const std::string& path) = 0;
    virtual file_access access(const std::string& path) = 0;
    // Gives a file that was written anew the access that it had, as far as the user may.
    virtual void restore_access(const std::string& path, const file_access& access) = 0;
    virtual file_facts facts(std::string_view path) = 0;
    // What a change would be dated with now, as far as this machine's clock is that of the disk.
    virtual std::int64_t now_ns() = 0;
    // Where links in the path lead to; the path itself when there are none or it cannot be resolved.
    virtual std::string resolve(const std::string& path) = 0;
    // All mounts, a later one above an earlier one of the same point. Empty where the system does not tell.
    virtual std::vector<mounted_tree> mounted_trees() { return {}; }
    // False when the path does not exist. Follows links.
    virtual bool identity(const std::string& path, file_identity& identity) = 0;
    // True for the recycle directories that a walk passes over.
    virtual bool is_recycle_directory(const std::string& path) = 0;

    // Opens, reads from the start until the buffer is full or the file ends, closes. Returns the number read,
    // or -1. Once exactly `expected` bytes have come in one go, the end is not asked for again.
    virtual std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                                    std::size_t expected) = 0;

    // Many questions at once. Each is answered as if it had been asked alone, in their order; a disk may use
    // several threads of its own, none of which is at work any more when the call returns. Once 50 ms have
    // passed no further one is begun. Returns how many were answered, from the first on and, where nothing
    // else is said, at least that one: the rest is to be asked again. There is at least one question.
    virtual std::size_t many_facts(std::span<const std::string_view> paths, std::span<file_facts> answers) {
        for (std::size_t i = 0; i < paths.size(); ++i) answers[i] = facts(paths[i]);
        return paths.size();
    }
    // As many_facts, for what is going to be compared: link_count is not asked for and may be anything, and a
    // file that took the place of another one within the last second may still have the number of that one.
    // What decides about a file asks for its facts. Quickest where paths of one directory stand side by side.
    virtual std::size_t many_states(std::span<const std::string_view> paths, std::span<file_facts> answers) {
        return many_facts(paths, answers);
    }
    // 1 where path_exists() is true, else 0. Quickest where paths of one directory stand side by side.
    virtual std::size_t many_exist(std::span<const std::string_view> paths, std::span<std::uint8_t> answers) {
        for (std::size_t i = 0; i < paths.size(); ++i)
            answers[i] = attributes(std::string(paths[i])).exists ? 1 : 0;
        return paths.size();
    }
    // May answer none yet, where the disk reads them in an order of its own; it is then asked again.
    virtual std::size_t read_starts(std::span<start_request> requests) {
        for (start_request& each : requests) each.count = read_start(each.path, each.buffer, each.expected);
        return requests.size();
    }
    // As many readers as were opened. Each holds an open directory and a bounded part of its entries.
    virtual std::vector<outcome_with<directory_reader>> open_directories(std::span<const std::string> paths) {
        std::vector<outcome_with<directory_reader>> opened;
        opened.push_back(open_directory(paths.front()));
        return opened;
    }

    // Opens a regular file for reading. Never waits on a FIFO and never opens a device.
    virtual outcome_with<file_reader> open_file(std::string_view path) = 0;

    // Writes beside the place and renames over it at commit.
    virtual outcome_with<file_writer> replace_file(const std::string& path) = 0;
    // Truncates and writes in place, for files that must be seen while they grow.
    virtual outcome_with<file_writer> overwrite_file(const std::string& path) = 0;
    // Writes a small file in place, first over its start and then cut to length: a process that dies
    // meanwhile leaves the old or the new text at its start. No flush; what is written survives the process,
    // not the machine.
    virtual outcome put_text(const std::string& path, std::string_view text) = 0;
    virtual bool can_write_into(const std::string& directory) = 0;
    // Makes the directory, for the user alone, and those above it that are missing; one that stands is a
    // success.
    virtual outcome make_directory(const std::string& path) = 0;
    // True when the directory exists and belongs to the user that the program runs as.
    virtual bool is_own_directory(const std::string& path) = 0;
    // Claims the program's folder for this process until it ends, however it ends. False when another process
    // has it; no file is touched. True where the disk knows no locks.
    virtual bool claim_directory(const std::string& directory) = 0;
    // Deletes a regular file for good, never a directory, a link or a device, if it is the one of these facts
    // and still stands as they tell. No other path is walked between this look and the removal.
    virtual outcome remove_file(const std::string& path, const file_facts& expected) = 0;
    // Removes one of the program's own data files; a missing one is no failure.
    virtual outcome remove_data_file(const std::string& path) = 0;
};

// True when the path exists, as a file, a directory or anything else.
inline bool path_exists(file_system& files, const std::string& path) {
    return files.attributes(path).exists;
}

}  // namespace corvane
