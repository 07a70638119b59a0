#include "core/walk/directory_filter.h"

#include "core/text/text_case.h"
#include "platform/file_system.h"

namespace corvane {

bool skip_directory(file_system& files, std::string_view excluded, const std::string& directory) {
    const bool drive_letters = files.separator() == '\\';
    if (!excluded.empty() || drive_letters) {
        const std::string key = upper_case(directory) + ' ';
        if (excluded.find(key) != std::string_view::npos) return true;
        if (drive_letters)  // C:\RECYCLED\ and C:\RECYCLER\, if hidden
            return key.find(":\\RECYCLE") != std::string::npos &&
                   (directory.size() == 11 || directory.size() == 12) && files.attributes(directory).hidden;
    }
    return files.is_recycle_directory(directory);
}

}  // namespace corvane
