// A folder of its own on a drive for each test; it goes with the test, whatever stands in it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_names.h"

namespace corvane {

class scratch_drive : public testing::Test {
  protected:
    scratch_drive() {
        wchar_t place[MAX_PATH + 1];
        const DWORD length = GetTempPathW(MAX_PATH + 1, place);
        static int number = 0;
        wide_root = L"\\\\?\\" + std::wstring(place, length) + L"corvane_test_" +
                    std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++number);
        EXPECT_TRUE(CreateDirectoryW(wide_root.c_str(), nullptr));
        wide_root += L'\\';
        root = text_of_path(wide_root);
    }
    ~scratch_drive() override { remove(wide_root.substr(0, wide_root.size() - 1)); }

    // Past the system under test: by the names as they are.
    void make_file(const std::wstring& name, std::string_view content = {}) {
        const HANDLE file =
            CreateFileW((wide_root + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE) << GetLastError();
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
        CloseHandle(file);
    }
    void make_directory(const std::wstring& name) {
        ASSERT_TRUE(CreateDirectoryW((wide_root + name).c_str(), nullptr)) << GetLastError();
    }
    bool is_there(const std::wstring& name) const {
        return GetFileAttributesW((wide_root + name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    DWORD attributes_of(const std::wstring& name) const {
        return GetFileAttributesW((wide_root + name).c_str());
    }
    void set_attributes(const std::wstring& name, DWORD attributes) {
        ASSERT_TRUE(SetFileAttributesW((wide_root + name).c_str(), attributes));
    }
    std::string content_of(const std::wstring& name) const {
        const HANDLE file =
            CreateFileW((wide_root + name).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) return "no file";
        char content[4096];
        DWORD count = 0;
        ReadFile(file, content, sizeof content, &count, nullptr);
        CloseHandle(file);
        return {content, count};
    }
    std::size_t count_entries() {
        std::size_t count = 0;
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((wide_root + L"*").c_str(), &entry);
        do
            if (entry.cFileName != std::wstring_view(L".") && entry.cFileName != std::wstring_view(L".."))
                ++count;
        while (FindNextFileW(search, &entry));
        FindClose(search);
        return count;
    }

    std::string root;        // with its closing separator; text
    std::wstring wide_root;  // the same with the prefix of long paths
    windows_file_system files;

  private:
    void remove(const std::wstring& folder) {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
        if (search == INVALID_HANDLE_VALUE) return;
        do {
            const std::wstring name = entry.cFileName;
            if (name == L"." || name == L"..") continue;
            const std::wstring path = folder + L"\\" + name;
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
                DeleteFileW(path.c_str());
            else if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
                RemoveDirectoryW(path.c_str());
            else
                remove(path);
        } while (FindNextFileW(search, &entry));
        FindClose(search);
        RemoveDirectoryW(folder.c_str());
    }
};

}  // namespace corvane
