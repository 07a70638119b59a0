#include "platform/windows/windows_entries.h"

#include "platform/file_time.h"

namespace corvane {

handle open_entry(const wchar_t* path, DWORD access) {
    return handle(CreateFileW(path, access, share_all, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

handle open_target(const wchar_t* path, DWORD access) {
    return handle(
        CreateFileW(path, access, share_all, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool link_tag(const handle& entry, DWORD attributes, bool& is_link) {
    is_link = false;
    if (!has_attribute(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) return true;
    FILE_ATTRIBUTE_TAG_INFO tag;
    if (!GetFileInformationByHandleEx(entry.get(), FileAttributeTagInfo, &tag, sizeof tag)) return false;
    is_link = is_link_tag(attributes, tag.ReparseTag);
    return true;
}

outcome check_regular(const handle& entry, DWORD attributes) {
    bool is_link = false;
    if (has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY)) return system_failure(ERROR_ACCESS_DENIED);
    if (has_attribute(attributes, FILE_ATTRIBUTE_DEVICE) || !link_tag(entry, attributes, is_link) || is_link)
        return system_failure(ERROR_INVALID_PARAMETER);
    return outcome::success();
}

file_identity identity_of(const BY_HANDLE_FILE_INFORMATION& facts) {
    return {facts.dwVolumeSerialNumber, std::uint64_t{facts.nFileIndexHigh} << 32 | facts.nFileIndexLow};
}

std::int64_t nanoseconds_of(std::uint64_t units) {
    constexpr std::int64_t units_to_1970 = seconds_1601_to_1970 * file_time_units_per_second;
    return (static_cast<std::int64_t>(units) - units_to_1970) * 100;
}

}  // namespace corvane
