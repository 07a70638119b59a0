#include "platform/windows/windows_directories.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

class windows_directory_reader : public directory_reader {
  public:
    windows_directory_reader(handle directory, file_identity identity)
        : directory_(std::move(directory)), identity_(identity), buffer_(buffer_size / sizeof buffer_[0]) {}

    bool next(std::string_view& name, entry_kind& kind) override {
        for (;;) {
            if (at_ == nullptr && (ends_ || !fill())) return false;
            const auto* record = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(at_);
            at_ = record->NextEntryOffset == 0 ? nullptr : at_ + record->NextEntryOffset;
            const std::wstring_view units(record->FileName, record->FileNameLength / sizeof(wchar_t));
            if (units == L"." || units == L"..") continue;
            kind = kind_of(*record);
            name_.clear();
            append_text_of(name_, units);
            name = name_;
            return true;
        }
    }
    bool failed() const override { return failed_; }
    file_identity identity() const override { return identity_; }

  private:
    static constexpr std::size_t buffer_size = 64 * std::size_t{1024};

    // False at the end and after a read error.
    bool fill() {
        const BOOL filled = GetFileInformationByHandleEx(directory_.get(), FileIdBothDirectoryInfo,
                                                         buffer_.data(), static_cast<DWORD>(buffer_size));
        ends_ = filled == 0;
        failed_ = ends_ && GetLastError() != ERROR_NO_MORE_FILES && GetLastError() != ERROR_FILE_NOT_FOUND;
        at_ = ends_ ? nullptr : reinterpret_cast<const char*>(buffer_.data());
        return !ends_;
    }

    static entry_kind kind_of(const FILE_ID_BOTH_DIR_INFO& record) {
        const DWORD attributes = record.FileAttributes;
        const bool directory = has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
        // Of a reparse point the system gives the tag in the place of the size of extended attributes.
        if (is_link_tag(attributes, record.EaSize))
            return directory ? entry_kind::link_to_directory : entry_kind::other;
        if (has_attribute(attributes, FILE_ATTRIBUTE_DEVICE)) return entry_kind::other;
        return directory ? entry_kind::directory : entry_kind::file;
    }

    handle directory_;
    file_identity identity_;
    std::vector<LARGE_INTEGER> buffer_;  // of what the records are aligned to
    const char* at_ = nullptr;           // the next record; null: the buffer is used up
    bool failed_ = false;
    bool ends_ = false;
    std::string name_;
};

}  // namespace

outcome_with<directory_reader> open_windows_directory(const std::string& path) {
    handle directory = open_target(wide_path(path).c_str(), FILE_LIST_DIRECTORY | SYNCHRONIZE);
    BY_HANDLE_FILE_INFORMATION facts;
    if (!directory || !GetFileInformationByHandle(directory.get(), &facts)) return system_failure();
    if (!has_attribute(facts.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY))
        return system_failure(ERROR_DIRECTORY);
    return std::make_unique<windows_directory_reader>(std::move(directory), identity_of(facts));
}

}  // namespace corvane
