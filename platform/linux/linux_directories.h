// Listing a directory of a Linux machine: one system call for a buffer of entries, and no question about an
// entry whose kind stands in it. Used by linux_file_system.
#pragma once

#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"

namespace corvane {

class linux_directories {
  public:
    // Fails for a directory on a pseudo file system, too. May be called from several threads at once. With
    // `ahead` the first buffer is filled by then.
    outcome_with<directory_reader> open(const std::string& path, bool ahead = false);

  private:
    // True for proc, sysfs, cgroup and their like. Asked once a device.
    bool is_pseudo_device(const descriptor& directory, std::uint64_t device);

    std::mutex guard_;
    std::unordered_map<std::uint64_t, bool> pseudo_devices_;
};

}  // namespace corvane
