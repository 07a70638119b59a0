// The disk of a program whose folder cannot be written: what the program writes into that folder is held in
// memory and read from there again, so that every task works, and is gone with the process. All else is the
// disk's, and so are the files that other programs are to open. Every program has one; it holds nothing until
// it is told to.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

class held_folder : public file_system {
  public:
    // The disk outlives the object.
    explicit held_folder(file_system& disk) : disk_(disk) {}

    // From now on files of this folder, which ends in the separator, are held.
    void hold(std::string folder) { folder_ = std::move(folder); }

    char separator() const override { return disk_.separator(); }
    bool ignores_case() const override { return disk_.ignores_case(); }
    std::string text_of(std::string_view raw) const override { return disk_.text_of(raw); }
    const data_encoding* data_files() const override { return disk_.data_files(); }
    std::vector<volume> volumes() override { return disk_.volumes(); }
    outcome_with<directory_reader> open_directory(const std::string& path) override {
        return disk_.open_directory(path);
    }
    path_attributes attributes(const std::string& path) override;
    outcome clear_attributes(const std::string& path) override { return disk_.clear_attributes(path); }
    file_access access(const std::string& path) override { return disk_.access(path); }
    void restore_access(const std::string& path, const file_access& access) override {
        disk_.restore_access(path, access);
    }
    file_facts facts(std::string_view path) override;
    std::int64_t now_ns() override { return disk_.now_ns(); }
    std::string resolve(const std::string& path) override { return disk_.resolve(path); }
    std::vector<mounted_tree> mounted_trees() override { return disk_.mounted_trees(); }
    bool identity(const std::string& path, file_identity& identity) override {
        return disk_.identity(path, identity);
    }
    bool is_recycle_directory(const std::string& path) override { return disk_.is_recycle_directory(path); }
    std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                            std::size_t expected) override {
        return disk_.read_start(path, buffer, expected);
    }
    // The held ones are asked one by one.
    std::size_t many_facts(std::span<const std::string_view> paths, std::span<file_facts> answers) override;
    std::size_t many_states(std::span<const std::string_view> paths, std::span<file_facts> answers) override;
    std::size_t many_exist(std::span<const std::string_view> paths, std::span<std::uint8_t> answers) override;
    std::size_t read_starts(std::span<start_request> requests) override {
        return disk_.read_starts(requests);
    }
    std::vector<outcome_with<directory_reader>> open_directories(
        std::span<const std::string> paths) override {
        return disk_.open_directories(paths);
    }
    outcome_with<file_reader> open_file(std::string_view path) override;
    outcome_with<file_writer> replace_file(const std::string& path) override;
    outcome_with<file_writer> overwrite_file(const std::string& path) override;
    outcome put_text(const std::string& path, std::string_view text) override;
    bool can_write_into(const std::string& directory) override { return disk_.can_write_into(directory); }
    outcome make_directory(const std::string& path) override { return disk_.make_directory(path); }
    bool is_own_directory(const std::string& path) override { return disk_.is_own_directory(path); }
    bool claim_directory(const std::string& directory) override { return disk_.claim_directory(directory); }
    outcome remove_file(const std::string& path, const file_facts& expected) override {
        return disk_.remove_file(path, expected);
    }
    outcome remove_data_file(const std::string& path) override;

  private:
    using held_text = std::shared_ptr<std::string>;

    bool is_held_place(std::string_view path) const;
    bool any_held(std::span<const std::string_view> paths) const;
    // The entry of a file that was written or removed since; null for one of the disk.
    const held_text* find(std::string_view path) const;

    file_system& disk_;
    std::string folder_;
    std::map<std::string, held_text, std::less<>> texts_;  // null: removed
};

}  // namespace corvane
