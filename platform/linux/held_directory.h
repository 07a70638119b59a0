// The directory that a run of paths shares, held open so that the system walks from there to each of them.
// The answer is that of the whole path at that moment: it is held for some dozens of questions in a row and
// no longer.
#pragma once

#include <fcntl.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"
#include "platform/linux/raw_path.h"

namespace corvane {

class held_directory {
  public:
    struct place {
        int directory = AT_FDCWD;
        std::string_view name;  // what is left of the path
    };

    // How to reach path_at(i), a text; those up to path_at(end - 1) are to follow.
    template <class PathAt>
    place reach(const PathAt& path_at, std::size_t i, std::size_t end) {
        const std::string_view path = path_at(i);
        if (i + least_run <= end) {
            const std::size_t shared = shared_directory(path, path_at(i + least_run - 1));
            if (shared > 1 && (shared > text_.size() || !path.starts_with(text_)))
                hold(path.substr(0, shared));
        }
        if (!directory_ || !path.starts_with(text_)) return {AT_FDCWD, path};
        const std::string_view name = path.substr(text_.size());
        // Behind a second separator the name would start at the root.
        if (name.empty() || name.front() == '/') return {AT_FDCWD, path};
        return {directory_.number(), name};
    }

  private:
    // Opening one costs about as much as it saves on so many paths at the worst.
    static constexpr std::size_t least_run = 8;

    static std::size_t shared_directory(std::string_view a, std::string_view b) {
        const auto differ = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
        const std::size_t cut = a.substr(0, static_cast<std::size_t>(differ - a.begin())).rfind('/');
        return cut == std::string_view::npos ? 0 : cut + 1;
    }

    void hold(std::string_view text) {
        if (text == text_) return;
        text_ = text;
        // Nothing is held where that fails: the whole path then says why.
        directory_ = descriptor::open(raw_path(text).c_str(), O_PATH | O_DIRECTORY);
    }

    std::string text_;
    descriptor directory_;
};

}  // namespace corvane
