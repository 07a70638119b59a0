#include "platform/typed_path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace corvane {

namespace fs = std::filesystem;

std::optional<std::string> absolute_raw_path(std::string_view typed) {
    std::error_code failed;
    fs::path path = fs::absolute(fs::path(typed), failed);
    if (failed || path.empty()) return {};
    if (std::find(path.begin(), path.end(), "..") != path.end()) {
        const fs::path resolved = fs::weakly_canonical(path, failed);
        if (!failed) path = resolved;
    }
    std::string text = path.lexically_normal().string();
    while (text.size() > 1 && text.back() == '/') text.pop_back();
    return text;
}

}  // namespace corvane
