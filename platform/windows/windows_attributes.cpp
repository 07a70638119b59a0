#include "platform/windows/windows_attributes.h"

#include <aclapi.h>
#include <windows.h>

#include <memory>
#include <string_view>
#include <vector>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

constexpr DWORD settable = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// A root keeps its separator.
std::string_view without_separator(std::string_view path) {
    while (path.size() > 3 && (path.back() == '\\' || path.back() == '/')) path.remove_suffix(1);
    return path;
}

bool is_link(const std::wstring& path, DWORD attributes) {
    if (!has_attribute(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) return false;
    const handle entry = open_entry(path.c_str(), 0);
    bool link = false;
    return entry && link_tag(entry, attributes, link) && link;
}

bool leads_to_directory(const std::wstring& path) {
    const handle target = open_target(path.c_str(), 0);
    BY_HANDLE_FILE_INFORMATION facts;
    return target && GetFileInformationByHandle(target.get(), &facts) &&
           has_attribute(facts.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
}

// The user of this process, as the system keeps it; empty where it does not tell.
std::vector<char> own_user_record() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return {};
    const handle token(opened);
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
    std::vector<char> record(size);
    if (size == 0 || !GetTokenInformation(token.get(), TokenUser, record.data(), size, &size)) return {};
    return record;
}

bool keeps_owners(const std::string& path) {
    std::wstring root;
    DWORD flags = 0;
    if (!units_of(volume_root(path), root) ||
        !GetVolumeInformationW(root.c_str(), nullptr, 0, nullptr, nullptr, &flags, nullptr, 0))
        return true;
    return (flags & FILE_PERSISTENT_ACLS) != 0;
}

}  // namespace

path_attributes windows_attributes(const std::string& path) {
    const std::string_view plain = without_separator(path);
    const std::wstring wide = wide_path(plain);
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    path_attributes result;
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        // A file that somebody holds for himself alone is there all the same.
        if (GetLastError() != ERROR_SHARING_VIOLATION || plain.size() != path.size()) return result;
        result.exists = true;
        return result;
    }
    result.link = is_link(wide, attributes);
    result.directory =
        result.link ? leads_to_directory(wide) : has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
    if (plain.size() != path.size() && !result.directory) return {};
    result.exists = true;
    result.hidden = has_attribute(attributes, FILE_ATTRIBUTE_HIDDEN);
    // Of a directory the attribute means that it looks otherwise, not that nobody may write.
    result.read_only = !has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY) &&
                       has_attribute(attributes, FILE_ATTRIBUTE_READONLY);
    return result;
}

outcome clear_windows_attributes(const std::string& path) {
    if (SetFileAttributesW(wide_path(without_separator(path)).c_str(), FILE_ATTRIBUTE_NORMAL))
        return outcome::success();
    return system_failure();
}

file_access windows_access(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(wide_path(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES ||
        has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT))
        return {};
    return {true, attributes & settable, 0, 0};
}

void restore_windows_access(const std::string& path, const file_access& access) {
    if (!access.known || !windows_access(path).known) return;
    const DWORD attributes = access.mode & settable;
    SetFileAttributesW(wide_path(path).c_str(), attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes);
}

bool is_own_windows_directory(const std::string& path) {
    if (!windows_attributes(path).directory) return false;
    const handle directory = open_target(wide_path(path).c_str(), READ_CONTROL);
    if (!directory) return false;
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR made = nullptr;
    if (GetSecurityInfo(directory.get(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                        nullptr, &made) != ERROR_SUCCESS)
        return !keeps_owners(path);
    const std::unique_ptr<void, decltype(&LocalFree)> held(made, &LocalFree);
    const std::vector<char> user = own_user_record();
    if (user.empty() || owner == nullptr) return !keeps_owners(path);
    if (EqualSid(owner, reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid)) return true;
    return !keeps_owners(path);
}

}  // namespace corvane
