#include "platform/linux/linux_files.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "platform/linux/descriptor.h"
#include "platform/linux/system_failure.h"

namespace corvane {

namespace {

outcome not_regular(const struct stat& facts) {
    return system_failure(S_ISDIR(facts.st_mode) ? EISDIR : EINVAL);
}

class linux_reader : public file_reader {
  public:
    explicit linux_reader(descriptor file) : file_(std::move(file)) {}

    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        std::size_t filled = 0;
        while (filled < buffer.size()) {
            const ssize_t count = pread(file_.number(), buffer.data() + filled, buffer.size() - filled,
                                        offset + static_cast<std::int64_t>(filled));
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return -1;
            if (count == 0) break;
            filled += static_cast<std::size_t>(count);
        }
        return static_cast<std::int64_t>(filled);
    }

    void will_read(std::int64_t offset) override {
        posix_fadvise(file_.number(), offset, 0, POSIX_FADV_SEQUENTIAL);
    }

    void fetch(std::int64_t offset, std::int64_t length) override {
        posix_fadvise(file_.number(), offset, length, POSIX_FADV_WILLNEED);
    }

  private:
    descriptor file_;
};

class linux_writer : public file_writer {
  public:
    // With a final path the file is a temporary one and is renamed at commit.
    linux_writer(descriptor file, std::string path, std::string final_path)
        : file_(std::move(file)), path_(std::move(path)), final_path_(std::move(final_path)) {}

    ~linux_writer() override {
        if (!file_) return;
        file_.close();
        if (!final_path_.empty()) unlink(path_.c_str());
    }

    outcome write(std::string_view bytes) override {
        is_settled_ = false;
        while (!bytes.empty()) {
            const ssize_t count = ::write(file_.number(), bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return system_failure();
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return outcome::success();
    }

    outcome write_at(std::int64_t offset, std::string_view bytes) override {
        is_settled_ = false;
        while (!bytes.empty()) {
            const ssize_t count = pwrite(file_.number(), bytes.data(), bytes.size(), offset);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return system_failure();
            bytes.remove_prefix(static_cast<std::size_t>(count));
            offset += count;
        }
        return outcome::success();
    }

    void settle() override {
        if (final_path_.empty()) return;
        // The system tells a failure once: it is kept for the commit.
        const outcome done = make_durable();
        if (settled_) settled_ = done;
        is_settled_ = true;
    }

    outcome commit() override {
        const bool replaces = !final_path_.empty();
        if (!settled_) return settled_;
        if (replaces && !is_settled_)
            if (outcome failed = make_durable(); !failed) return failed;
        if (!file_.close() || (replaces && rename(path_.c_str(), final_path_.c_str()) != 0)) {
            outcome failed = system_failure();
            if (replaces) unlink(path_.c_str());
            return failed;
        }
        return outcome::success();
    }

  private:
    outcome make_durable() {
        return fsync(file_.number()) == 0 || errno == EINVAL ? outcome::success() : system_failure();
    }

    descriptor file_;
    std::string path_;
    std::string final_path_;
    outcome settled_ = outcome::success();
    bool is_settled_ = false;  // nothing has been written since
};

// What the superuser makes in somebody else's folder is that user's, who could not write it otherwise.
void give(const descriptor& file, uid_t owner, gid_t group) {
    if (geteuid() == 0 && fchown(file.number(), owner, group) != 0) errno = 0;
}
void give_to_owner_of_folder(const descriptor& file, const std::string& path) {
    if (geteuid() != 0) return;
    const std::size_t cut = path.rfind('/');
    struct stat folder;
    if (stat(cut == std::string::npos ? "." : path.substr(0, cut + 1).c_str(), &folder) == 0)
        give(file, folder.st_uid, folder.st_gid);
}

// Opens a regular file and nothing else: not a device or a FIFO, which could block or swallow what is
// written.
outcome open_regular(const char* raw_path, int flags, descriptor& file) {
    descriptor found = descriptor::open(raw_path, flags | O_NONBLOCK | O_NOCTTY);
    struct stat facts;
    if (!found || fstat(found.number(), &facts) != 0) return system_failure();
    if (!S_ISREG(facts.st_mode)) return not_regular(facts);
    file = std::move(found);
    return outcome::success();
}

// The same for writing; a file that is missing is made.
outcome open_for_writing(const char* raw_path, descriptor& file) {
    file = descriptor::open(raw_path, O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY);
    if (!file) return open_regular(raw_path, O_WRONLY | O_CREAT, file);
    give_to_owner_of_folder(file, raw_path);
    return outcome::success();
}

}  // namespace

outcome_with<file_reader> open_linux_reader(const char* raw_path) {
    descriptor file;
    outcome found = open_regular(raw_path, O_RDONLY, file);
    if (!found) return found;
    return std::make_unique<linux_reader>(std::move(file));
}

// Read once: to read it, it has to be changed for a moment, in which another thread may make a file.
mode_t creation_mask() {
    static const mode_t mask = [] {
        const mode_t found = umask(077);
        umask(found);
        return found;
    }();
    return mask;
}

outcome_with<file_writer> open_replacing_writer(const char* raw_path) {
    // A link stays a link: what it leads to is replaced.
    std::string final_path(raw_path);
    if (char* resolved = realpath(raw_path, nullptr)) {
        final_path = resolved;
        std::free(resolved);
    }
    struct stat facts;
    const bool exists = stat(final_path.c_str(), &facts) == 0;
    if (exists && !S_ISREG(facts.st_mode)) return not_regular(facts);
    std::string path = final_path + ".XXXXXX";
    descriptor file = descriptor::open_new(path);
    if (!file) return system_failure();
    // The owner first: a change of it takes bits of the permissions away.
    if (exists)
        give(file, facts.st_uid, facts.st_gid);
    else
        give_to_owner_of_folder(file, final_path);
    fchmod(file.number(), exists ? facts.st_mode & 07777 : 0666 & ~creation_mask());
    return std::make_unique<linux_writer>(std::move(file), std::move(path), std::move(final_path));
}

outcome_with<file_writer> open_overwriting_writer(const char* raw_path) {
    descriptor file;
    outcome found = open_for_writing(raw_path, file);
    if (!found) return found;
    if (ftruncate(file.number(), 0) != 0) return system_failure();
    return std::make_unique<linux_writer>(std::move(file), raw_path, std::string());
}

outcome put_linux_text(const char* raw_path, std::string_view text) {
    descriptor file;
    outcome found = open_for_writing(raw_path, file);
    if (!found) return found;
    const int number = file.number();
    linux_writer writer(std::move(file), raw_path, std::string());
    outcome written = writer.write_at(0, text);
    if (!written) return written;
    if (ftruncate(number, static_cast<off_t>(text.size())) != 0) return system_failure();
    return writer.commit();
}

}  // namespace corvane
