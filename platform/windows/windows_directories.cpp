#include "platform/windows/windows_directories.h"

#include <memory>
#include <string_view>
#include <utility>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_names.h"
#include "platform/windows/windows_records.h"

namespace corvane {

namespace {

entry_kind kind_of(const FILE_ID_BOTH_DIR_INFO& record) {
    const DWORD attributes = record.FileAttributes;
    const bool directory = has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
    if (is_link_tag(attributes, directory_records::tag_of(record)))
        return directory ? entry_kind::link_to_directory : entry_kind::other;
    if (has_attribute(attributes, FILE_ATTRIBUTE_DEVICE)) return entry_kind::other;
    return directory ? entry_kind::directory : entry_kind::file;
}

class windows_directory_reader : public directory_reader {
  public:
    windows_directory_reader(handle directory, file_identity identity)
        : records_(std::move(directory)), identity_(identity) {}

    bool next(std::string_view& name, entry_kind& kind) override {
        const FILE_ID_BOTH_DIR_INFO* record = records_.next();
        if (record == nullptr) return false;
        kind = kind_of(*record);
        hidden_ = has_attribute(record->FileAttributes, FILE_ATTRIBUTE_HIDDEN);
        name_.clear();
        append_text_of(name_, directory_records::name_of(*record));
        name = name_;
        return true;
    }
    bool failed() const override { return records_.failed(); }
    bool hidden() const override { return hidden_; }
    file_identity identity() const override { return identity_; }

  private:
    directory_records records_;
    file_identity identity_;
    std::string name_;
    bool hidden_ = false;
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
