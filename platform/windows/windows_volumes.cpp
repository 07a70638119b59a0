#include "platform/windows/windows_volumes.h"

#include <windows.h>

#include <cstdint>
#include <cwchar>
#include <string>

#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

std::wstring variable(const wchar_t* name) {
    std::wstring value(32'768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

void measure(volume& place, const std::wstring& path) {
    ULARGE_INTEGER free{}, total{};
    if (!GetDiskFreeSpaceExW(path.c_str(), &free, &total, nullptr)) return;
    place.free_bytes = static_cast<std::int64_t>(free.QuadPart);
    place.total_bytes = static_cast<std::int64_t>(total.QuadPart);
}

// The system asks for no medium while one lives.
class no_questions {
  public:
    no_questions() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
    ~no_questions() { SetThreadErrorMode(before_, nullptr); }
    no_questions(const no_questions&) = delete;
    no_questions& operator=(const no_questions&) = delete;

  private:
    DWORD before_ = 0;
};

}  // namespace

std::vector<volume> windows_volumes() {
    const no_questions quiet;
    std::vector<volume> found;
    const std::wstring home = variable(L"USERPROFILE");
    const DWORD home_attributes =
        home.size() > 3 ? GetFileAttributesW(home.c_str()) : INVALID_FILE_ATTRIBUTES;
    if (home_attributes != INVALID_FILE_ATTRIBUTES && (home_attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        volume place{text_of(home) + "\\", "", volume_kind::home};
        measure(place, home);
        found.push_back(std::move(place));
    }
    const std::wstring system = variable(L"SystemDrive");
    const DWORD letters = GetLogicalDrives();
    for (int letter = 0; letter < 26; ++letter) {
        if ((letters >> letter & 1) == 0) continue;
        const std::wstring root = {static_cast<wchar_t>(L'A' + letter), L':', L'\\'};
        const UINT type = GetDriveTypeW(root.c_str());
        if (type == DRIVE_NO_ROOT_DIR) continue;
        volume place{text_of(root), "", volume_kind::other};
        if (system.size() == 2 && (system[0] & ~0x20) == root[0]) place.kind = volume_kind::root;
        wchar_t name[MAX_PATH + 1] = L"";
        if (type != DRIVE_REMOTE &&
            GetVolumeInformationW(root.c_str(), name, MAX_PATH + 1, nullptr, nullptr, nullptr, nullptr, 0)) {
            place.name = narrow(name);
            measure(place, root);
        }
        found.push_back(std::move(place));
    }
    if (found.empty()) found.push_back({"C:\\", "", volume_kind::root});
    return found;
}

}  // namespace corvane
