#include "platform/own_process.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <memory>

#include "platform/name_mapping.h"
#include "platform/typed_path.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

// The bytes of the same name that other programs get to see.
std::string raw_of(std::wstring_view units) {
    return to_raw(text_of(units));
}

std::wstring units_of_raw(std::string_view raw) {
    std::wstring units;
    units_of(to_text(raw), units);
    return units;
}

std::string closed(std::string text) {
    if (!text.ends_with('\\')) text += '\\';
    return text;
}

}  // namespace

std::string own_folder() {
    std::wstring program(32'768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    const std::size_t cut = program.find_last_of(L'\\');
    if (cut == std::wstring::npos) return closed(to_text(absolute_raw_path(".").value_or("")));
    return closed(text_of(std::wstring_view(program).substr(0, cut)));
}

std::uint32_t own_user() {
    return 0;
}

std::string user_name(std::uint32_t) {
    return {};
}

std::string user_data_home() {
    wchar_t* found = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DONT_VERIFY, nullptr, &found);
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> held(found, &CoTaskMemFree);
    return FAILED(result) || found == nullptr ? std::string() : closed(text_of(found));
}

// Each account has a profile of its own, and a program that runs with more rights has that of its account.
void keep_to_own_home() {}

std::optional<std::string> absolute_raw_path(std::string_view typed) {
    const std::wstring units = units_of_raw(typed);
    std::wstring absolute(32'768, L'\0');
    const DWORD length =
        GetFullPathNameW(units.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
    if (length == 0 || length >= absolute.size()) return {};
    absolute.resize(length);
    while (absolute.size() > 3 && absolute.back() == L'\\') absolute.pop_back();
    return raw_of(absolute);
}

std::vector<std::string> own_arguments(int, char**) {
    // What the C library hands to main has lost what the code page cannot say.
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i) arguments.push_back(raw_of(words[i]));
    LocalFree(words);
    return arguments;
}

}  // namespace corvane
