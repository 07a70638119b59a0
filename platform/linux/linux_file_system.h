// The disk of a Linux machine. Names are mapped by name_mapping.h on the way in and out.
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/disk_sweep.h"
#include "platform/linux/linux_attributes.h"
#include "platform/linux/linux_directories.h"
#include "platform/linux/linux_volumes.h"
#include "platform/linux/stacked_devices.h"
#include "platform/name_mapping.h"
#include "platform/request_pool.h"

namespace corvane {

class linux_file_system : public file_system {
  public:
    linux_file_system();

    char separator() const override { return '/'; }
    bool ignores_case() const override { return false; }
    std::string text_of(std::string_view raw) const override { return to_text(raw); }
    std::vector<volume> volumes() override { return linux_volumes(); }
    outcome_with<directory_reader> open_directory(const std::string& path) override {
        return directories_.open(path);
    }
    path_attributes attributes(const std::string& path) override { return attributes_.of(path); }
    outcome clear_attributes(const std::string& path) override { return attributes_.clear(path); }
    file_access access(const std::string& path) override { return attributes_.access(path); }
    void restore_access(const std::string& path, const file_access& access) override {
        attributes_.restore_access(path, access);
    }
    file_facts facts(std::string_view path) override;
    std::int64_t now_ns() override;
    std::string resolve(const std::string& path) override;
    std::vector<mounted_tree> mounted_trees() override { return linux_mounts(); }
    bool identity(const std::string& path, file_identity& identity) override;
    bool is_recycle_directory(const std::string& path) override;
    std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                            std::size_t expected) override;
    std::size_t many_facts(std::span<const std::string_view> paths, std::span<file_facts> answers) override;
    std::size_t many_exist(std::span<const std::string_view> paths, std::span<std::uint8_t> answers) override;
    std::size_t read_starts(std::span<start_request> requests) override;
    std::vector<outcome_with<directory_reader>> open_directories(std::span<const std::string> paths) override;
    outcome_with<file_reader> open_file(std::string_view path) override;
    outcome_with<file_writer> replace_file(const std::string& path) override;
    outcome_with<file_writer> overwrite_file(const std::string& path) override;
    outcome put_text(const std::string& path, std::string_view text) override;
    bool can_write_into(const std::string& directory) override;
    outcome make_directory(const std::string& path) override;
    bool is_own_directory(const std::string& path) override;
    bool claim_directory(const std::string& directory) override;
    outcome remove_file(const std::string& path, const file_facts& expected) override;
    outcome remove_data_file(const std::string& path) override;

  private:
    std::string trash_directory_;  // the user's trash, with a closing separator; text, resolved
    std::string recycle_name_;     // ".Trash-<uid>"
    linux_directories directories_;
    linux_attributes attributes_;
    stacked_devices stacked_devices_;
    descriptor claim_;  // the claimed directory
    request_pool pool_;
    request_pace facts_pace_, exist_pace_, starts_pace_, directories_pace_;
    disk_sweep sweep_;  // in place of the threads of starts_pace_
};

}  // namespace corvane
