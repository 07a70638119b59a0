#include "platform/windows/wide_path.h"

#include <windows.h>

#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

constexpr std::wstring_view long_prefix = L"\\\\?\\";
constexpr std::wstring_view share_prefix = L"\\\\?\\UNC\\";

bool is_letter(char unit) {
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
}
bool is_separator(char unit) {
    return unit == '\\' || unit == '/';
}
bool on_drive(std::string_view text) {
    return text.size() >= 2 && is_letter(text[0]) && text[1] == ':' &&
           (text.size() == 2 || is_separator(text[2]));
}
bool in_share(std::string_view text) {
    return text.size() > 2 && is_separator(text[0]) && is_separator(text[1]) && text[2] != '?' &&
           text[2] != '.' && !is_separator(text[2]);
}

// Of one name between separators.
bool is_name(std::wstring_view name) {
    return name != L"." && name != L".." && name.find_first_of(L"\"*:<>?|") == std::wstring_view::npos &&
           name.find(L'\0') == std::wstring_view::npos;
}

}  // namespace

std::wstring wide_path(std::string_view text) {
    const bool drive = on_drive(text);
    if (!drive && !in_share(text)) return {};
    std::wstring path(drive ? long_prefix : share_prefix);
    if (drive) {
        path += static_cast<wchar_t>(text[0]);
        path += L":\\";
    }
    std::wstring units;
    if (!units_of(text.substr(text.size() == 2 ? 2 : drive ? 3 : 2), units)) return {};
    std::wstring_view rest(units);
    bool is_first = true;
    while (!rest.empty()) {
        const std::size_t end = rest.find_first_of(L"\\/");
        const std::wstring_view name = rest.substr(0, end);
        rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + 1);
        if (name.empty()) continue;
        if (!is_name(name)) return {};
        if (!is_first) path += L'\\';
        is_first = false;
        path += name;
    }
    // A mapped "*" or control character has no place on a disk of Windows; the system says so itself.
    if (!is_first && is_separator(text.back())) path += L'\\';
    return path;
}

std::wstring shell_path(std::string_view text) {
    std::wstring path = wide_path(text);
    if (path.starts_with(share_prefix))
        path = L"\\\\" + path.substr(share_prefix.size());
    else if (path.starts_with(long_prefix))
        path.erase(0, long_prefix.size());
    else
        return {};
    std::wstring full(path.size() + 2, L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length >= full.size()) return {};
    full.resize(length);
    return full == path ? path : std::wstring();
}

std::string text_of_path(std::wstring_view path) {
    if (path.starts_with(share_prefix)) return "\\\\" + text_of(path.substr(share_prefix.size()));
    if (path.starts_with(long_prefix)) path.remove_prefix(long_prefix.size());
    return text_of(path);
}

std::string_view directory_of(std::string_view path) {
    const std::size_t cut = path.find_last_of("\\/");
    return path.substr(0, cut == std::string_view::npos ? 0 : cut);
}

std::string_view name_of(std::string_view path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

std::string_view volume_root(std::string_view text) {
    if (on_drive(text)) return text.size() > 2 ? text.substr(0, 3) : std::string_view();
    if (!in_share(text)) return {};
    const std::size_t server_end = text.find_first_of("\\/", 2);
    if (server_end == std::string_view::npos) return {};
    const std::size_t share_end = text.find_first_of("\\/", server_end + 1);
    return share_end == std::string_view::npos ? std::string_view() : text.substr(0, share_end + 1);
}

}  // namespace corvane
