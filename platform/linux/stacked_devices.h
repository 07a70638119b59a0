// Which devices show files of other devices: overlays, file systems in user space, among them pools of disks,
// and shares. Used by linux_file_system, which asks for each file; the system is asked once a device and
// while.
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string_view>
#include <unordered_map>

namespace corvane {

class stacked_devices {
  public:
    // `path` is one on the device. May be asked from several threads at once.
    bool contains(std::uint32_t major, std::uint32_t minor, std::string_view path);

  private:
    using clock = std::chrono::steady_clock;

    struct answer {
        bool stacked = false;
        clock::time_point asked;
    };

    std::mutex guard_;
    std::unordered_map<std::uint64_t, answer> answers_;  // by device
};

}  // namespace corvane
