// Three tables of texts that overwrite captions and tooltips at run time: the Chinese one repeats the design,
// the English one is unfinished and shows bare numbers where a text is missing, the machine-made one knows
// the main form only. The rows are data, in tables/. Part of interface_text.
#pragma once

#include <span>
#include <string_view>

namespace corvane {

class control;
class Tavrel;

enum class language_table { chinese, english, machine };

// A row is one text of a window: FORM TAB CONTROL TAB PROPERTY TAB TEXT. The control of that name, or the
// form itself where both names are the same; an element of an array is "Label3(0)". The property is "caption"
// or "tooltip".
struct language_row {
    std::string_view form;
    std::string_view control;
    std::string_view property;
    std::string_view text;
};

// In the order in which they run.
std::span<const language_row> language_rows(language_table table);

// What the row speaks of; null where this program has no such window or control.
control* target_of(const language_row& row, Tavrel& main);

// Runs the rows from the first to the last. A row without a target does nothing. Nothing is stored: the next
// start has the design's texts again.
void run_language_table(language_table table, Tavrel& main);

}  // namespace corvane
