#include "console/typed_path.h"

#include <filesystem>

#include "platform/linux/name_mapping.h"

namespace corvane {

std::string absolute_path(std::string_view typed) {
    // A name that was typed as the program shows it stays; a "*" can only be meant as it stands on the disk.
    const bool raw = typed.find('*') != std::string_view::npos;
    std::error_code error;
    std::filesystem::path path =
        std::filesystem::absolute(std::filesystem::path(typed), error).lexically_normal();
    std::string absolute = path.string();
    while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
    return raw ? to_text(absolute) : absolute;
}

}  // namespace corvane
