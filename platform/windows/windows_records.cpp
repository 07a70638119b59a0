#include "platform/windows/windows_records.h"

namespace corvane {

const FILE_ID_BOTH_DIR_INFO* directory_records::next() {
    for (;;) {
        if (at_ == nullptr && (ends_ || !fill())) return nullptr;
        const auto* record = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(at_);
        at_ = record->NextEntryOffset == 0 ? nullptr : at_ + record->NextEntryOffset;
        const std::wstring_view name = name_of(*record);
        if (name != L"." && name != L"..") return record;
    }
}

bool directory_records::fill() {
    const BOOL filled = GetFileInformationByHandleEx(directory_.get(), FileIdBothDirectoryInfo,
                                                     buffer_.data(), static_cast<DWORD>(buffer_size));
    ends_ = filled == 0;
    failed_ = ends_ && GetLastError() != ERROR_NO_MORE_FILES && GetLastError() != ERROR_FILE_NOT_FOUND;
    at_ = ends_ ? nullptr : reinterpret_cast<const char*>(buffer_.data());
    return !ends_;
}

}  // namespace corvane
