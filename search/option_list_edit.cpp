#include "search/option_list_edit.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/text/text_case.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

std::string line_of(const list_box::row& row) {
    std::string line(1, row.checked ? '1' : '0');
    return line += row.text;
}

// The entry behind its flag. An entry that was written by hand without one loses its first letter, whole.
std::string text_behind_flag(const std::string& entry) {
    std::size_t begin = 1;
    while (begin < entry.size() && (static_cast<unsigned char>(entry[begin]) & 0xC0) == 0x80) ++begin;
    return entry.substr(begin);
}

}  // namespace

std::string first_word(std::string_view text) {
    return std::string(text.substr(0, text.find(' ')));
}

void option_list_edit::fill() {
    rows_.clear();
    for (const std::string& entry : place_of(main_, list_).entries)
        if (!trimmed(entry).empty()) rows_.add_checked(text_behind_flag(entry), entry.front() == '1');
}

void option_list_edit::apply() {
    column<std::string> entries;
    for (const list_box::row& row : rows_.rows()) entries.push_back(line_of(row));
    take_entries(main_, list_, std::move(entries));
}

std::string option_list_edit::save() {
    apply();
    const std::string path = place_of(main_, list_).path;
    line_writer writer(main_.outside.files, path);
    for (const list_box::row& row : rows_.rows())
        if (!trimmed(row.text).empty()) writer.line(line_of(row));
    return writer.finish() ? std::string() : path + "\r\n" + writer.error();
}

void option_list_edit::add(const std::vector<std::string>& texts) {
    const option_list_place place = place_of(main_, list_);
    for (const std::string& text : texts) {
        if (rows_.row_count() >= place.capacity)
            return main_.complain(place.path + "\r\n最多 " + std::to_string(place.capacity) + " 行。");
        rows_.add_checked(one_line(text), true);
    }
}

void option_list_edit::add_typed(std::string type) {
    type = trimmed(one_line(std::move(type)));
    if (type.empty()) return;
    if (type.front() != '.') type.insert(0, 1, '.');
    type = lower_case(type);
    const std::string key = upper_case(type);
    const auto known = std::find_if(rows_.rows().begin(), rows_.rows().end(),
                                    [&](const list_box::row& row) { return upper_case(row.text) == key; });
    if (known == rows_.rows().end())
        add({type});
    else
        rows_.check(static_cast<std::size_t>(known - rows_.rows().begin()), true);
}

void option_list_edit::add_lines(std::string_view lines) {
    std::vector<std::string> types;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        std::string_view line = lines.substr(0, end);
        lines.remove_prefix(std::min(end + 1, lines.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        types.push_back(first_word(line));
    }
    add(types);
}

void option_list_edit::remove_selected() {
    for (std::size_t row = rows_.rows().size(); row-- > 0;)
        if (rows_.rows()[row].selected) rows_.remove(row);
}

void option_list_edit::check_all(bool checked) {
    for (std::size_t row = 0; row < rows_.rows().size(); ++row) rows_.check(row, checked);
}

const std::string& option_list_edit::active() const {
    switch (list_) {
        case option_list::left_out_directories:
            return main_.state.exclude_dir_text;
        case option_list::left_out_types:
            return main_.state.exclude_type_text;
        default:
            return main_.state.only_type_text;
    }
}

}  // namespace corvane
