// Which devices show files of other devices: overlays and file systems in user space, among them pools of
// disks. Used by linux_file_system, which asks for each file; the system is asked once a device and while.
#pragma once

#include <chrono>
#include <cstdint>
#include <unordered_map>

namespace corvane {

class stacked_devices {
  public:
    // `raw_path` is a path on the device.
    bool contains(std::uint32_t major, std::uint32_t minor, const char* raw_path);

  private:
    using clock = std::chrono::steady_clock;

    struct answer {
        bool stacked = false;
        clock::time_point asked;
    };

    std::unordered_map<std::uint64_t, answer> answers_;  // by device
};

}  // namespace corvane
