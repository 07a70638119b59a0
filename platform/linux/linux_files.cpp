#include "platform/linux/linux_files.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace corvane {

namespace {

class linux_reader : public file_reader {
  public:
    explicit linux_reader(int descriptor) : descriptor_(descriptor) {}
    ~linux_reader() override { close(descriptor_); }

    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        std::size_t filled = 0;
        while (filled < buffer.size()) {
            const ssize_t count = pread(descriptor_, buffer.data() + filled, buffer.size() - filled,
                                        offset + static_cast<std::int64_t>(filled));
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return -1;
            if (count == 0) break;
            filled += static_cast<std::size_t>(count);
        }
        return static_cast<std::int64_t>(filled);
    }

    void will_read(std::int64_t offset) override {
        posix_fadvise(descriptor_, offset, 0, POSIX_FADV_SEQUENTIAL);
    }

  private:
    int descriptor_;
};

class linux_writer : public file_writer {
  public:
    // With a final path the file is a temporary one and is renamed at commit.
    linux_writer(int descriptor, std::string path, std::string final_path)
        : descriptor_(descriptor), path_(std::move(path)), final_path_(std::move(final_path)) {}

    ~linux_writer() override {
        if (descriptor_ < 0) return;
        close(descriptor_);
        if (!final_path_.empty()) unlink(path_.c_str());
    }

    bool write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return fail();
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    bool write_at(std::int64_t offset, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = pwrite(descriptor_, bytes.data(), bytes.size(), offset);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return fail();
            bytes.remove_prefix(static_cast<std::size_t>(count));
            offset += count;
        }
        return true;
    }

    bool commit() override {
        const bool replaces = !final_path_.empty();
        if (replaces && fsync(descriptor_) != 0 && errno != EINVAL) return fail();
        const int descriptor = descriptor_;
        descriptor_ = -1;
        if (close(descriptor) != 0 || (replaces && rename(path_.c_str(), final_path_.c_str()) != 0)) {
            fail();
            if (replaces) unlink(path_.c_str());
            return false;
        }
        return true;
    }

    const std::string& error() const override { return error_; }

  private:
    bool fail() {
        error_ = std::strerror(errno);
        return false;
    }

    int descriptor_;
    std::string path_;
    std::string final_path_;
    std::string error_;
};

}  // namespace

std::unique_ptr<file_reader> open_linux_reader(const char* raw_path, std::string& error) {
    const int descriptor = open(raw_path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat facts;
    if (descriptor < 0 || fstat(descriptor, &facts) != 0) {
        error = std::strerror(errno);
        if (descriptor >= 0) close(descriptor);
        return nullptr;
    }
    if (!S_ISREG(facts.st_mode)) {
        error = std::strerror(S_ISDIR(facts.st_mode) ? EISDIR : EINVAL);
        close(descriptor);
        return nullptr;
    }
    return std::make_unique<linux_reader>(descriptor);
}

std::unique_ptr<file_writer> open_replacing_writer(const char* raw_path, std::string& error) {
    // A link stays a link: what it leads to is replaced.
    std::string final_path(raw_path);
    if (char* resolved = realpath(raw_path, nullptr)) {
        final_path = resolved;
        std::free(resolved);
    }
    struct stat facts;
    const bool exists = stat(final_path.c_str(), &facts) == 0;
    if (exists && !S_ISREG(facts.st_mode)) {
        error = std::strerror(S_ISDIR(facts.st_mode) ? EISDIR : EINVAL);
        return nullptr;
    }
    std::string path = final_path + ".XXXXXX";
    const int descriptor = mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0) {
        error = std::strerror(errno);
        return nullptr;
    }
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, exists ? facts.st_mode & 07777 : 0666 & ~mask);
    return std::make_unique<linux_writer>(descriptor, std::move(path), std::move(final_path));
}

std::unique_ptr<file_writer> open_overwriting_writer(const char* raw_path, std::string& error) {
    // Not through a device or a FIFO, which could block or swallow what is written.
    const int descriptor = open(raw_path, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    struct stat facts;
    if (descriptor < 0 || fstat(descriptor, &facts) != 0) {
        error = std::strerror(errno);
        if (descriptor >= 0) close(descriptor);
        return nullptr;
    }
    if (!S_ISREG(facts.st_mode) || ftruncate(descriptor, 0) != 0) {
        error = std::strerror(S_ISREG(facts.st_mode) ? errno : EINVAL);
        close(descriptor);
        return nullptr;
    }
    return std::make_unique<linux_writer>(descriptor, raw_path, std::string());
}

bool put_linux_text(const char* raw_path, std::string_view text, std::string& error) {
    const int descriptor = open(raw_path, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    struct stat facts;
    if (descriptor < 0 || fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        error = std::strerror(descriptor < 0 ? errno : EINVAL);
        if (descriptor >= 0) close(descriptor);
        return false;
    }
    linux_writer writer(descriptor, raw_path, std::string());
    if (writer.write_at(0, text) && ftruncate(descriptor, static_cast<off_t>(text.size())) == 0 &&
        writer.commit())
        return true;
    error = std::strerror(errno);
    return false;
}

}  // namespace corvane
