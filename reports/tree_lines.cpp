#include "reports/tree_lines.h"

#include "core/model/main_form.h"
#include "core/settings/settings.h"
#include "core/text/date_text.h"
#include "core/text/text_format.h"
#include "reports/cell_text.h"

namespace corvane {

namespace {

constexpr std::size_t blanks_a_level = 3;
constexpr std::int32_t deepest_in_preview = 4;
constexpr char directory_sign = '\\';
constexpr int kilobyte_shift = 10;

std::unordered_set<std::string> types_of(const std::string& text) {
    std::vector<std::string> parts;
    const int count = split_text(text, ",", parts);
    return {parts.begin() + 1, parts.begin() + 1 + count};
}

}  // namespace

std::string_view suffix_of(std::string_view name, char separator) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return {};
    const std::string_view suffix = name.substr(dot + 1);
    return suffix.find(separator) == std::string_view::npos ? suffix : std::string_view();
}

tree_rules rules_of(const settings& values) {
    tree_rules rules;
    rules.levels = rules.deepest_file = values.tree_levels;
    rules.show_length = values.tree_show_length == 1;
    rules.show_date = values.tree_show_date == 1;
    rules.length_filter = values.tree_length_filter == 1;
    rules.least_bytes = std::int64_t{values.tree_min_kb} << kilobyte_shift;
    rules.most_bytes = std::int64_t{values.tree_max_kb} << kilobyte_shift;
    rules.date_filter = values.tree_date_filter == 1;
    rules.date_from = values.tree_date_from;
    rules.date_to = values.tree_date_to;
    rules.attr_test = values.tree_show_normal != values.tree_show_hidden;
    rules.show_normal = values.tree_show_normal == 1;
    rules.show_hidden = values.tree_show_hidden > 0;
    rules.only_types = types_of(values.tree_only_types);
    rules.not_types = types_of(values.tree_not_types);
    return rules;
}

tree_rules preview_rules(const settings& values) {
    tree_rules rules;
    rules.levels = values.tree_levels;
    rules.deepest_file = std::min<std::int32_t>(values.tree_levels, deepest_in_preview);
    return rules;
}

tree_lines::tree_lines(Tavrel& form, const tree_rules& rules, std::int32_t expected)
    : form_(form), rules_(rules), separator_(form.outside.files.separator()) {
    lines_.reserve(static_cast<std::size_t>(expected) + static_cast<std::size_t>(expected) / 16);
}

void tree_lines::add(const tree_files& files, std::int32_t index) {
    const tree_stamp& stamp = files.stamps[index];
    if (rules_.any_detail() && stamp.length < 0) return;
    enter(files.tree_dirs[index]);
    if (passes(files, index)) add_file(files.tree_names[index], stamp);
}

// A line for each part that is another one than the part of its level above it, in whatever directory that
// stood: a new directory of the same name gets none. What lies deeper than the file before is forgotten on
// the next level alone.
void tree_lines::enter(std::string_view directory) {
    if (started_ && directory.data() != nullptr && directory_.data() != nullptr && directory == directory_)
        return;
    std::size_t level = 0;
    const auto take = [&](std::string_view part) {
        if (level == parts_.size()) parts_.emplace_back();
        const bool differs = part != parts_[level] || (!started_ && level == 0);
        parts_[level++] = part;
        if (!differs || static_cast<std::int32_t>(level) > rules_.levels) return;
        std::string& line = new_line(static_cast<std::int32_t>(level) - 1);
        line += directory_sign;
        append_name(line, part);
    };
    for (std::size_t from = 0; directory.data() != nullptr;) {
        const std::size_t end = directory.find(separator_, from);
        take(directory.substr(from, end - from));
        if (end == std::string_view::npos) break;
        from = end + 1;
    }
    if (level < parts_.size()) parts_[level] = {};
    depth_ = static_cast<std::int32_t>(level);
    directory_ = directory;
    started_ = true;
}

bool tree_lines::passes(const tree_files& files, std::int32_t index) {
    const tree_stamp& stamp = files.stamps[index];
    if (depth_ > rules_.deepest_file) return false;
    if (rules_.length_filter && (stamp.length <= rules_.least_bytes || stamp.length >= rules_.most_bytes))
        return false;
    if (rules_.date_filter) {
        const double date = days_of(date_of(stamp));
        if (date <= rules_.date_from || date >= rules_.date_to) return false;
    }
    if (!rules_.only_types.empty() || !rules_.not_types.empty()) {
        suffix_ = suffix_of(files.tree_names[index], separator_);
        const bool only = !rules_.only_types.empty();
        if ((only ? rules_.only_types : rules_.not_types).contains(suffix_) != only) return false;
    }
    return !rules_.attr_test || passes_attributes(path_of(files, index));
}

bool tree_lines::passes_attributes(std::string_view path) {
    path_ = path;
    return form_.outside.files.attributes(path_).hidden ? rules_.show_hidden : rules_.show_normal;
}

const local_time& tree_lines::date_of(const tree_stamp& stamp) {
    if (!has_date_ || dated_ != stamp.written) {
        dated_ = stamp.written;
        date_ = form_.outside.screen.local_date(stamp.written);
        has_date_ = true;
    }
    return date_;
}

void tree_lines::add_file(std::string_view name, const tree_stamp& stamp) {
    std::string& line = new_line(depth_);
    if (depth_ == 0)
        append_cell(line, name);
    else
        append_name(line, name);
    if (rules_.show_length) line.append(1, '\t').append(std::to_string(stamp.length));
    if (rules_.show_date) append_date_time(line += '\t', date_of(stamp));
}

std::string& tree_lines::new_line(std::int32_t level) {
    lines_.emplace_back();
    return lines_.back().text.assign(blanks_a_level * static_cast<std::size_t>(level), ' ');
}

}  // namespace corvane
