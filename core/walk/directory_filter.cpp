#include "core/walk/directory_filter.h"

#include "core/text/text_case.h"
#include "platform/file_system.h"

namespace corvane {

namespace {

// Entries end in the separator and a blank, so one begins at the start or behind such a pair.
bool names_entry(std::string_view excluded, std::string_view key, char separator) {
    for (std::size_t at = excluded.find(key); at != std::string_view::npos; at = excluded.find(key, at + 1))
        if (at == 0 || (at >= 2 && excluded[at - 1] == ' ' && excluded[at - 2] == separator)) return true;
    return false;
}

}  // namespace

bool skip_directory(file_system& files, std::string_view excluded, const std::string& directory) {
    const bool drive_letters = files.separator() == '\\';
    if (!excluded.empty() || drive_letters) {
        const std::string key = upper_case(directory) + ' ';
        if (names_entry(excluded, key, files.separator())) return true;
        // C:\RECYCLED\ and C:\RECYCLER\, if hidden
        const bool names_recycler = drive_letters && key.find(":\\RECYCLE") != std::string::npos &&
                                    (directory.size() == 11 || directory.size() == 12);
        if (names_recycler) return files.attributes(directory).hidden;
    }
    return files.is_recycle_directory(directory);
}

}  // namespace corvane
