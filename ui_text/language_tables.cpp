#include "ui_text/language_tables.h"

#include <vector>

#include "core/model/main_form.h"
#include "ui_text/language_texts.h"

namespace corvane {

namespace {

// Takes what stands before the next `delimiter`, and that with it, off the text.
std::string_view take_to(std::string_view& text, char delimiter) {
    const std::size_t end = text.find(delimiter);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

std::vector<language_row> rows_of(std::string_view text) {
    std::vector<language_row> rows;
    while (!text.empty()) {
        std::string_view line = take_to(text, '\n');
        language_row row;
        row.form = take_to(line, '\t');
        row.control = take_to(line, '\t');
        row.property = take_to(line, '\t');
        row.text = line;
        rows.push_back(row);
    }
    return rows;
}

form_model* window_of(std::string_view name, Tavrel& main) {
    return folded_name(name) == folded_name(main.name()) ? &main : main.child(name);
}

}  // namespace

std::span<const language_row> language_rows(language_table table) {
    static const std::vector<language_row> tables[] = {rows_of(chinese_texts), rows_of(english_texts),
                                                       rows_of(machine_texts)};
    return tables[static_cast<std::size_t>(table)];
}

control* target_of(const language_row& row, Tavrel& main) {
    form_model* const window = window_of(row.form, main);
    if (window == nullptr || row.form == row.control) return window;
    return window->find(row.control);
}

void run_language_table(language_table table, Tavrel& main) {
    for (const language_row& row : language_rows(table)) {
        control* const target = target_of(row, main);
        if (target == nullptr) continue;
        (row.property == "tooltip" ? target->tooltip : target->caption) = row.text;
    }
}

}  // namespace corvane
