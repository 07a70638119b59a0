#include "platform/linux/linux_directories.h"

#include <dirent.h>
#include <errno.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <vector>

#include "platform/linux/device_number.h"
#include "platform/linux/raw_path.h"
#include "platform/linux/system_failure.h"

namespace corvane {

namespace {

class linux_directory_reader : public directory_reader {
  public:
    linux_directory_reader(descriptor directory, file_identity identity)
        : directory_(std::move(directory)), identity_(identity), buffer_(buffer_size) {}

    bool next(std::string_view& name, entry_kind& kind) override {
        for (;;) {
            if (at_ >= filled_ && (ends_ || !fill())) return false;
            const char* record = buffer_.data() + at_;
            std::uint16_t length;
            std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
            const auto type = static_cast<unsigned char>(record[offsetof(dirent64, d_type)]);
            const char* raw = record + offsetof(dirent64, d_name);
            at_ += length;
            const std::string_view raw_name(raw);
            if (raw_name == "." || raw_name == "..") continue;
            kind = kind_of(type, raw);
            hidden_ = raw[0] == '.';
            if (needs_mapping(raw_name)) {
                mapped_.clear();
                append_text(mapped_, raw_name);
                name = mapped_;
            } else {
                name = raw_name;
            }
            return true;
        }
    }

    // False at the end and after a read error.
    bool fill() {
        const long count = syscall(SYS_getdents64, directory_.number(), buffer_.data(), buffer_.size());
        failed_ = count < 0;
        ends_ = count <= 0;
        at_ = 0;
        filled_ = ends_ ? 0 : static_cast<std::size_t>(count);
        return !ends_;
    }

    bool failed() const override { return failed_; }
    bool hidden() const override { return hidden_; }
    file_identity identity() const override { return identity_; }

  private:
    static constexpr std::size_t buffer_size = 32 * std::size_t{1024};

    entry_kind kind_of(unsigned char type, const char* raw) const {
        struct stat facts;
        if (type == DT_UNKNOWN) {
            if (fstatat(directory_.number(), raw, &facts, AT_SYMLINK_NOFOLLOW) != 0) return entry_kind::other;
            type = S_ISREG(facts.st_mode)   ? DT_REG
                   : S_ISDIR(facts.st_mode) ? DT_DIR
                   : S_ISLNK(facts.st_mode) ? DT_LNK
                                            : DT_FIFO;
        }
        if (type == DT_REG) return entry_kind::file;
        if (type == DT_DIR) return entry_kind::directory;
        if (type == DT_LNK && fstatat(directory_.number(), raw, &facts, 0) == 0 && S_ISDIR(facts.st_mode))
            return entry_kind::link_to_directory;
        return entry_kind::other;
    }

    descriptor directory_;
    file_identity identity_;
    std::vector<char> buffer_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    bool failed_ = false;
    bool ends_ = false;
    bool hidden_ = false;
    std::string mapped_;
};

}  // namespace

bool linux_directories::is_pseudo_device(const descriptor& directory, std::uint64_t device) {
    {
        const std::lock_guard lock(guard_);
        const auto known = pseudo_devices_.find(device);
        if (known != pseudo_devices_.end()) return known->second;
    }
    static constexpr std::uint32_t pseudo_types[] = {PROC_SUPER_MAGIC,
                                                     SYSFS_MAGIC,
                                                     CGROUP_SUPER_MAGIC,
                                                     CGROUP2_SUPER_MAGIC,
                                                     DEBUGFS_MAGIC,
                                                     TRACEFS_MAGIC,
                                                     SECURITYFS_MAGIC,
                                                     SELINUX_MAGIC,
                                                     DEVPTS_SUPER_MAGIC,
                                                     PSTOREFS_MAGIC,
                                                     BPF_FS_MAGIC,
                                                     EFIVARFS_MAGIC,
                                                     BINFMTFS_MAGIC,
                                                     NSFS_MAGIC,
                                                     SOCKFS_MAGIC,
                                                     PIPEFS_MAGIC,
                                                     AAFS_MAGIC,
                                                     RDTGROUP_SUPER_MAGIC,
                                                     0x62656570 /*configfs*/,
                                                     0x65735543 /*fusectl*/,
                                                     0x19800202 /*mqueue*/,
                                                     0x67596969 /*rpc_pipefs*/};
    struct statfs facts;
    bool pseudo = false;
    if (fstatfs(directory.number(), &facts) == 0) {
        const auto type = static_cast<std::uint32_t>(facts.f_type);
        pseudo = std::find(std::begin(pseudo_types), std::end(pseudo_types), type) != std::end(pseudo_types);
    }
    const std::lock_guard lock(guard_);
    return pseudo_devices_[device] = pseudo;
}

outcome_with<directory_reader> linux_directories::open(const std::string& path, bool ahead) {
    const raw_path raw(path);
    descriptor directory = descriptor::open(raw.c_str(), O_RDONLY | O_DIRECTORY);
    struct stat facts;
    if (!directory || fstat(directory.number(), &facts) != 0) return system_failure();
    if (is_pseudo_device(directory, device_of(facts))) return system_failure(EACCES);
    auto reader = std::make_unique<linux_directory_reader>(std::move(directory),
                                                           file_identity{device_of(facts), facts.st_ino});
    if (ahead) reader->fill();
    return reader;
}

}  // namespace corvane
