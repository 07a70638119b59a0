// A walk over a disk in memory that says what was opened and writes down what its visitor is told.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/walk/tree_walk.h"
#include "tests/support/memory_file_system.h"

namespace corvane {

// Gives every name of a directory over and over: each one `times` times running.
class stuttering_reader : public directory_reader {
  public:
    stuttering_reader(std::unique_ptr<directory_reader> reader, int times)
        : reader_(std::move(reader)), times_(times), given_(times) {}
    bool next(std::string_view& name, entry_kind& kind) override {
        if (given_ == times_) {
            if (!reader_->next(name_, kind_)) return false;
            given_ = 0;
        }
        ++given_;
        name = name_;
        kind = kind_;
        return true;
    }
    bool failed() const override { return reader_->failed(); }
    bool hidden() const override { return reader_->hidden(); }
    file_identity identity() const override { return reader_->identity(); }

  private:
    std::unique_ptr<directory_reader> reader_;
    std::string_view name_;
    entry_kind kind_ = entry_kind::other;
    int times_;
    int given_;
};

struct watched_file_system : memory_file_system {
    using memory_file_system::memory_file_system;
    outcome_with<directory_reader> open_directory(const std::string& path) override {
        tried.push_back(path);
        outcome_with<directory_reader> reader = memory_file_system::open_directory(path);
        if (!reader || times == 1) return reader;
        return std::make_unique<stuttering_reader>(std::move(reader.object), times);
    }
    path_attributes attributes(const std::string& path) override {
        ++attributes_asked;
        return memory_file_system::attributes(path);
    }

    std::vector<std::string> tried;  // directories, in order
    int attributes_asked = 0;
    int times = 1;
};

// Writes down what it is told. An answer is given where the line that it belongs to has been written.
struct recording_visitor : walk_visitor {
    void reached(const std::string& directory) override { note("reached " + directory); }
    walk_course enter(const std::string& directory) override { return note("enter " + directory); }
    walk_course entry(const std::string& directory, std::string_view name, entry_kind kind) override {
        constexpr const char* words[] = {"file ", "directory ", "link ", "other "};
        return note(words[static_cast<int>(kind)] + directory + "|" + std::string(name));
    }
    walk_course leave(const std::string& directory, directory_reading reading,
                      const std::string& last_name) override {
        constexpr const char* words[] = {"whole ", "cut short ", "unreadable "};
        return note(words[static_cast<int>(reading)] + directory + "|" + last_name);
    }
    void links_begin() override { note("links"); }

    walk_course note(const std::string& line) {
        told.push_back(line);
        if (on_line) on_line(line);
        return line == ends_at ? answer : walk_course::go_on;
    }

    std::vector<std::string> told;
    std::function<void(const std::string&)> on_line;
    std::string ends_at;
    walk_course answer = walk_course::go_on;
};

struct walk_case {
    explicit walk_case(char separator = '/') : files(separator) {}

    walk_result walk(const std::vector<std::string>& roots) {
        return walk_tree(files, roots, queue,
                         {.excluded = excluded,
                          .limit = limit,
                          .roots = roots_as,
                          .ends_at_repeat = ends_at_repeat,
                          .queue_keeps_entered = queue_keeps_entered},
                         visitor);
    }
    walk_result walk_to(const std::vector<std::string>& roots, const std::string& line, walk_course answer) {
        visitor.ends_at = line;
        visitor.answer = answer;
        return walk(roots);
    }

    watched_file_system files;
    recording_visitor visitor;
    column<std::string> queue;
    std::string excluded;
    std::int32_t limit = 100;
    root_text roots_as = root_text::as_selected;
    bool ends_at_repeat = false;
    bool queue_keeps_entered = false;
};

}  // namespace corvane
