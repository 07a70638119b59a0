// A path of the program's text as the system wants it: raw bytes, closed by NUL. Without an allocation for
// most paths. A text that no path maps to (a "*", which marks an archive entry, or a NUL) gives the empty
// path, which the system refuses.
#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "platform/name_mapping.h"

namespace corvane {

class raw_path {
  public:
    explicit raw_path(std::string_view text) {
        if (text.find('*') != std::string_view::npos || text.find('\0') != std::string_view::npos) return;
        if (needs_unmapping(text)) {
            long_ = to_raw(text);
        } else if (text.size() < sizeof short_) {
            std::memcpy(short_, text.data(), text.size());
            short_[text.size()] = '\0';
            path_ = short_;
            return;
        } else {
            long_ = text;
        }
        path_ = long_.c_str();
    }
    raw_path(const raw_path&) = delete;
    raw_path& operator=(const raw_path&) = delete;

    const char* c_str() const { return path_; }

  private:
    char short_[512];
    std::string long_;
    const char* path_ = "";
};

}  // namespace corvane
