// What a comparison has found, in plain words for who sees its result for the first time: how much could be
// freed, where most of it lies, what to do next. Shown by a front end above the list.
#pragma once

#include <string>

namespace corvane {

class Tavrel;
struct result_state;

// Fills state.summary_words from the rows of the same-file view, which has just been loaded; empty without
// rows. The rows of one star stand together. Yields.
void summarize_result(Tavrel& form);

// The words themselves, a line each. `separator` parts directories. Without a summary of the next steps and
// of a cancellation.
std::string result_totals(const result_state& result, char separator);

// "已取消, 9,482 / 100,000" while the result of a cancelled comparison stands; else empty.
std::string cancelled_words(const result_state& result);

}  // namespace corvane
