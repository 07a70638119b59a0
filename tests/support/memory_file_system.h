// A disk in memory with scripted faults. Records what was opened, so that a test can say what was not read.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

struct memory_file {
    entry_kind kind = entry_kind::file;
    std::string content;
    std::string link_target;
    std::uint64_t link_count = 1;
    std::uint64_t device = 1;
    std::uint64_t index = 0;
    std::int64_t modified_ns = 1'000'000'000;
    std::int64_t changed_ns = 1'000'000'000;
    bool stacked = false;
    std::int32_t date_high = 30'000'000;
    std::int32_t date_low = 0;
    bool hidden = false;
    bool read_only = false;
    bool keeps_attributes = false;  // clear_attributes fails
    bool keeps_itself = false;      // remove_file fails
    bool unreadable = false;
    std::size_t breaks_after = static_cast<std::size_t>(-1);  // of a directory: entries before a read error
    std::int64_t stated_length = -1;  // when not -1, what facts() says in place of the content's length
    std::int64_t hole = 0;            // length of a run of zeros within the content, which costs no memory
    std::int64_t hole_at = 0;         // where in the content it stands
    std::int64_t read_failure = -1;   // when not -1, a read that reaches this offset fails
};

// A part of a file that was read or asked for ahead.
struct read_event {
    std::string path;
    bool is_fetch;
    std::int64_t from;
    std::int64_t end;
};

class memory_file_system : public file_system {
  public:
    explicit memory_file_system(char separator = '/') : separator_(separator) {}

    // Directories are made as needed. The references stay valid.
    memory_file& add_file(const std::string& path, std::string content = {});
    memory_file& add_directory(const std::string& path);
    memory_file& add_link(const std::string& path, const std::string& target_directory);
    std::string content_of(const std::string& path) const;
    bool has(const std::string& path) const { return entries_.count(key(path)) != 0; }
    void erase(const std::string& path) { entries_.erase(key(path)); }

    std::map<std::string, int> opened;     // how often each file was opened for reading
    std::int64_t attribute_questions = 0;  // how often attributes() was asked
    std::int64_t fact_questions = 0;       // how often facts() was
    bool names_tell_hidden = true;         // listed with a dot in front; else by what the entry says
    int open_now = 0;                      // readers that have not been closed
    std::map<std::string, std::int64_t> bytes_read;
    std::vector<read_event>* read_events = nullptr;  // takes what open files are asked for
    std::vector<std::string> removed;                // by remove_file, in order
    std::set<std::string> recycle_directories;
    std::map<std::string, std::uint32_t> modes;              // permissions, by path
    std::function<void(const std::string&)> on_commit;       // right after a file has come to its place
    std::function<void(const std::string&)> before_removal;  // right before remove_file looks
    std::string write_failure_path;                          // writing this file fails, with the words below
    std::string write_failure_words = "disk full";
    std::int64_t clock_ns = 2'000'000'000;  // goes on at each write
    bool claimed_by_another = false;
    std::vector<volume> mounted;
    std::vector<mounted_tree> trees;
    bool folder_locked = false;  // can_write_into says no
    // Folders that cannot be written or made, and those that belong to others; with the closing separator.
    std::set<std::string> locked_folders, folders_of_others;
    std::vector<std::string> made_directories;
    std::int64_t total_opened() const;

    // Makes what a disk may leave out of a state, or tell late, of what the facts say; empty: it is the
    // facts.
    std::function<void(std::string_view path, file_facts& state)> blur_state;

    // How data files are written; null: as they are.
    const data_encoding* encoding = nullptr;

    char separator() const override { return separator_; }
    const data_encoding* data_files() const override { return encoding; }
    bool ignores_case() const override { return separator_ == '\\'; }
    std::vector<volume> volumes() override {
        if (!mounted.empty()) return mounted;
        return {{separator_ == '/' ? "/" : "C:\\", "", volume_kind::root, 1'000'000'000, 2'000'000'000}};
    }
    outcome_with<directory_reader> open_directory(const std::string& path) override;
    path_attributes attributes(const std::string& path) override;
    outcome clear_attributes(const std::string& path) override;
    file_access access(const std::string& path) override { return {has(path), modes[path], 0, 0}; }
    void restore_access(const std::string& path, const file_access& access) override {
        if (access.known) modes[path] = access.mode;
    }
    file_facts facts(std::string_view path) override;
    std::int64_t now_ns() override { return clock_ns; }
    std::size_t many_states(std::span<const std::string_view> paths, std::span<file_facts> answers) override {
        const std::size_t count = many_facts(paths, answers);
        for (std::size_t i = 0; blur_state && i < count; ++i) blur_state(paths[i], answers[i]);
        return count;
    }
    std::string resolve(const std::string& path) override;
    std::vector<mounted_tree> mounted_trees() override { return trees; }
    bool identity(const std::string& path, file_identity& identity) override;
    bool is_recycle_directory(const std::string& path) override {
        return recycle_directories.count(path) != 0;
    }
    std::int64_t read_start(std::string_view path, std::span<std::byte> buffer,
                            std::size_t expected) override;
    outcome_with<file_reader> open_file(std::string_view path) override;
    outcome_with<file_writer> replace_file(const std::string& path) override;
    outcome_with<file_writer> overwrite_file(const std::string& path) override;
    outcome put_text(const std::string& path, std::string_view text) override;
    bool can_write_into(const std::string& directory) override {
        return !folder_locked && locked_folders.count(directory) == 0;
    }
    outcome make_directory(const std::string& path) override;
    bool is_own_directory(const std::string& path) override {
        return attributes(path).directory && folders_of_others.count(path) == 0;
    }
    bool claim_directory(const std::string&) override { return !claimed_by_another; }
    outcome remove_file(const std::string& path, const file_facts& expected) override;
    outcome remove_data_file(const std::string& path) override;

  private:
    friend class memory_writer;
    friend class memory_reader;
    std::string key(std::string_view path) const;
    memory_file* find(std::string_view path);
    memory_file& place(const std::string& path);

    char separator_;
    std::map<std::string, memory_file> entries_;
    std::set<std::string> unhidden_;
    std::uint64_t next_index_ = 1;
};

}  // namespace corvane
