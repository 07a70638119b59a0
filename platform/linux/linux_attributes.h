// Attributes and access of a path on Linux: hidden is a leading dot, read-only is no write permission at all.
// May be asked from several threads at once.
// Used by linux_file_system, whose interface says what each call does.
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/file_system.h"

namespace corvane {

class linux_attributes {
  public:
    path_attributes of(const std::string& path) const;
    outcome clear(const std::string& path);
    file_access access(const std::string& path) const;
    void restore_access(const std::string& path, const file_access& access) const;

  private:
    bool is_unhidden(std::string_view plain) const;

    mutable std::mutex guard_;
    std::unordered_set<std::string> unhidden_;  // without a closing separator; no longer count as hidden
};

}  // namespace corvane
