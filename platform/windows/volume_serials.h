// The serial number of the volume that a file lies on. Used by windows_file_system, which asks for each file;
// the system, which may take long to answer, is asked once a directory and second.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/windows/handle.h"

namespace corvane {

// On another machine: in a share, or on a drive that is one. A link on the way may lead to one all the same.
bool is_on_network(std::string_view path);

class volume_serials {
  public:
    // `file` is open and no link, `path` its text. A file lies on the volume of its directory: only
    // directories lead elsewhere. False where the system does not tell. May be asked from several threads at
    // once.
    bool find(const handle& file, std::string_view path, std::uint64_t& serial, bool& is_remote);

  private:
    using clock = std::chrono::steady_clock;

    struct answer {
        std::uint64_t serial = 0;
        bool is_remote = false;  // two shares may show one file under two serials
        clock::time_point asked;
    };
    struct text_hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    std::mutex guard_;
    std::unordered_map<std::string, answer, text_hash, std::equal_to<>> answers_;  // by directory
};

}  // namespace corvane
