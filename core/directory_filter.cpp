#include "core/directory_filter.h"

#include "core/main_form.h"
#include "core/text_case.h"

namespace corvane {

bool skip_directory(Tavrel& form, const std::string& directory) {
    file_system& files = form.outside.files;
    const bool drive_letters = files.separator() == '\\';
    if (!form.state.exclude_dir_text.empty() || drive_letters) {
        const std::string key = upper_case(directory) + ' ';
        if (form.state.exclude_dir_text.find(key) != std::string::npos) return true;
        if (drive_letters)  // C:\RECYCLED\ and C:\RECYCLER\, if hidden
            return key.find(":\\RECYCLE") != std::string::npos &&
                   (directory.size() == 11 || directory.size() == 12) && files.attributes(directory).hidden;
    }
    return files.is_recycle_directory(directory);
}

std::string with_separator(Tavrel& form, std::string_view directory) {
    std::string text(directory);
    const char separator = form.outside.files.separator();
    if (text.empty() || text.back() != separator) text += separator;
    return text;
}

bool path_exists(Tavrel& form, const std::string& path) {
    return form.outside.files.attributes(path).exists;
}

}  // namespace corvane
