// The lines of a tree: which directories and files of the ordered list are written, and how. Used by the
// output of the tree and its preview.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/model/controls.h"
#include "platform/user_interface.h"
#include "reports/tree_files.h"

namespace corvane {

class Tavrel;
struct settings;

// The text behind the last dot; empty where there is none, or where that text holds a separator. Keeps its
// case.
std::string_view suffix_of(std::string_view name, char separator);

// What is written. Bounds are exclusive.
struct tree_rules {
    std::int32_t levels = 0;        // deepest directory that has a line
    std::int32_t deepest_file = 0;  // most directories above a file
    bool show_length = false;
    bool show_date = false;
    bool length_filter = false;
    std::int64_t least_bytes = 0;
    std::int64_t most_bytes = 0;
    bool date_filter = false;
    double date_from = 0;  // days since 1899-12-30
    double date_to = 0;
    bool attr_test = false;  // normal and hidden files are told apart:
    bool show_normal = false;
    bool show_hidden = false;
    std::unordered_set<std::string> only_types;
    std::unordered_set<std::string> not_types;  // without effect beside only_types

    bool any_detail() const { return show_length || show_date || length_filter || date_filter; }
};
tree_rules rules_of(const settings& values);
// Of the preview: the levels alone count, and a file lies less than 5 directories deep.
tree_rules preview_rules(const settings& values);

class tree_lines {
  public:
    tree_lines(Tavrel& form, const tree_rules& rules, std::int32_t expected);

    // The next file in the order of the tree.
    void add(const tree_files& files, std::int32_t index);
    std::vector<list_box::row>& lines() { return lines_; }

  private:
    void enter(std::string_view directory);
    bool passes(const tree_files& files, std::int32_t index);
    bool passes_attributes(std::string_view path);
    const local_time& date_of(const tree_stamp& stamp);
    void add_file(std::string_view name, const tree_stamp& stamp);
    std::string& new_line(std::int32_t level);

    Tavrel& form_;
    const tree_rules& rules_;
    const char separator_;
    std::vector<list_box::row> lines_;
    std::vector<std::string_view>
        parts_;               // of the file before, by level; what lies deeper stays from earlier ones
    std::int32_t depth_ = 0;  // directories above the file
    bool started_ = false;
    std::string_view directory_;
    std::int64_t dated_ = 0;  // the moment that date_ is
    local_time date_;
    bool has_date_ = false;
    std::string path_, suffix_;
};

}  // namespace corvane
