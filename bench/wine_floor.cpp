// The least that reading every file below a folder costs on Windows: it lists the folders, opens each file,
// reads its first 8 KiB and closes it, on one thread, and remembers nothing. Used by bench/wine.py.
//
//     wine_floor DIRECTORY

#include <windows.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

alignas(LARGE_INTEGER) std::array<char, 65536> records;
std::array<char, 8192> start;

bool read_one(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD count = 0;
    const BOOL is_read = ReadFile(file, start.data(), static_cast<DWORD>(start.size()), &count, nullptr);
    CloseHandle(file);
    return is_read != 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return 2;
    std::vector<std::wstring> folders{std::wstring(L"\\\\?\\") + arguments[1]};
    unsigned long files = 0;
    for (std::size_t at = 0; at < folders.size(); ++at) {
        const std::wstring folder = folders[at] + L"\\";
        const HANDLE listed = CreateFileW(folders[at].c_str(), FILE_LIST_DIRECTORY | SYNCHRONIZE,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        if (listed == INVALID_HANDLE_VALUE) return 1;
        std::vector<std::wstring> names;
        while (
            GetFileInformationByHandleEx(listed, FileIdBothDirectoryInfo, records.data(), records.size())) {
            const char* next = records.data();
            for (bool more = true; more;) {
                const auto* record = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(next);
                const std::wstring name(record->FileName, record->FileNameLength / sizeof(wchar_t));
                more = record->NextEntryOffset != 0;
                next += record->NextEntryOffset;
                if (name == L"." || name == L"..") continue;
                if ((record->FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
                    folders.push_back(folder + name);
                else
                    names.push_back(folder + name);
            }
        }
        CloseHandle(listed);
        for (const std::wstring& name : names) files += read_one(name) ? 1 : 0;
    }
    std::printf("%lu\n", files);
    return 0;
}
