// The records of a directory as Windows lists them: one call for a buffer of entries. Used by
// windows_directories, which lists them, and listed_numbers, which looks them up.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/windows/handle.h"

namespace corvane {

class directory_records {
  public:
    // `directory` may be listed.
    explicit directory_records(handle directory)
        : directory_(std::move(directory)), buffer_(buffer_size / sizeof buffer_[0]) {}

    // The next entry except "." and ".."; null at the end and after a read error. Valid until the next call.
    const FILE_ID_BOTH_DIR_INFO* next();
    // True when next() ended on a read error.
    bool failed() const { return failed_; }

    static std::wstring_view name_of(const FILE_ID_BOTH_DIR_INFO& record) {
        return {record.FileName, record.FileNameLength / sizeof(wchar_t)};
    }
    // Of a reparse point the system gives the tag in the place of the size of extended attributes.
    static DWORD tag_of(const FILE_ID_BOTH_DIR_INFO& record) { return record.EaSize; }

  private:
    static constexpr std::size_t buffer_size = 64 * std::size_t{1024};

    // False at the end and after a read error.
    bool fill();

    handle directory_;
    std::vector<LARGE_INTEGER> buffer_;  // of what the records are aligned to
    const char* at_ = nullptr;           // the next record; null: the buffer is used up
    bool failed_ = false;
    bool ends_ = false;
};

}  // namespace corvane
