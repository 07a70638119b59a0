// A folder of its own on a drive for each test; it goes with the test, whatever stands in it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
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

    // Puts more behind what stands in it.
    void append(const std::wstring& name, std::string_view content) {
        const HANDLE file = open_for(name, FILE_APPEND_DATA);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
        CloseHandle(file);
    }
    // The time of its last write, in 100 ns since 1601.
    void set_written(const std::wstring& name, std::uint64_t units) {
        const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
        const HANDLE file = open_for(name, FILE_WRITE_ATTRIBUTES);
        EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
        CloseHandle(file);
    }
    static std::string bytes_text(std::span<const std::byte> bytes, std::int64_t count) {
        if (count < 0) return "no file";
        return {reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count)};
    }
    // By the system under test.
    std::string start_of(const std::string& path) {
        std::array<std::byte, 64> buffer;
        return bytes_text(buffer, files.read_start(path, buffer, buffer.size()));
    }
    // Calls `ask(first)`, which says how many it has answered from there, until all are.
    template <class Ask>
    static void ask_all(std::size_t count, const Ask& ask) {
        for (std::size_t done = 0; done < count;) {
            const std::size_t answered = ask(done);
            ASSERT_GT(answered, 0u);
            done += answered;
        }
    }

    std::string root;        // with its closing separator; text
    std::wstring wide_root;  // the same with the prefix of long paths
    windows_file_system files;

  private:
    HANDLE open_for(const std::wstring& name, DWORD access) {
        const HANDLE file = CreateFileW((wide_root + name).c_str(), access,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE) << GetLastError();
        return file;
    }
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
