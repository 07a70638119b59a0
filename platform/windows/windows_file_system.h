// The disk of a Windows machine. Names are mapped by windows_names.h on the way in and out.
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/name_mapping.h"
#include "platform/request_pool.h"
#include "platform/windows/code_page_files.h"
#include "platform/windows/handle.h"
#include "platform/windows/listed_numbers.h"
#include "platform/windows/volume_serials.h"
#include "platform/windows/windows_attributes.h"
#include "platform/windows/windows_directories.h"
#include "platform/windows/windows_volumes.h"

namespace corvane {

class windows_file_system : public file_system {
  public:
    windows_file_system();
    char separator() const override { return '\\'; }
    bool ignores_case() const override { return true; }
    const data_encoding* data_files() const override { return own_data_encoding(); }
    std::string text_of(std::string_view raw) const override { return to_text(raw); }
    std::vector<volume> volumes() override { return windows_volumes(); }
    outcome_with<directory_reader> open_directory(const std::string& path) override {
        return open_windows_directory(path);
    }
    path_attributes attributes(const std::string& path) override { return windows_attributes(path); }
    outcome clear_attributes(const std::string& path) override { return clear_windows_attributes(path); }
    file_access access(const std::string& path) override { return windows_access(path); }
    void restore_access(const std::string& path, const file_access& access) override {
        restore_windows_access(path, access);
    }
    file_facts facts(std::string_view path) override;
    std::int64_t now_ns() override;
    std::string resolve(const std::string& path) override;
    bool identity(const std::string& path, file_identity& identity) override;
    bool is_recycle_directory(const std::string& path) override;
    std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                            std::size_t expected) override;
    std::size_t many_facts(std::span<const std::string_view> paths, std::span<file_facts> answers) override;
    std::size_t many_states(std::span<const std::string_view> paths, std::span<file_facts> answers) override;
    std::size_t many_exist(std::span<const std::string_view> paths, std::span<std::uint8_t> answers) override;
    std::size_t read_starts(std::span<start_request> requests) override;
    outcome_with<file_reader> open_file(std::string_view path) override;
    outcome_with<file_writer> replace_file(const std::string& path) override;
    outcome_with<file_writer> overwrite_file(const std::string& path) override;
    outcome put_text(const std::string& path, std::string_view text) override;
    bool can_write_into(const std::string& directory) override;
    outcome make_directory(const std::string& path) override;
    bool is_own_directory(const std::string& path) override { return is_own_windows_directory(path); }
    bool claim_directory(const std::string& directory) override;
    outcome remove_file(const std::string& path, const file_facts& expected) override;
    outcome remove_data_file(const std::string& path) override;

  private:
    volume_serials serials_;
    listed_numbers numbers_;
    request_pool pool_;
    request_pace facts_pace_;
    request_pace starts_pace_;
    handle claim_;  // the object that names the claimed directory
};

}  // namespace corvane
