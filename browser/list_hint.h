// The one line above the list: what an act has just taken away, what the rows were chosen by, what is marked,
// or how to mark. Shown by a front end.
#pragma once

#include <string>

namespace corvane {

class Tavrel;

// `marked` says what is marked in a view of copies; empty: nothing is. In another view the marks are counted
// here. Costs the same for any number of rows.
std::string list_hint(const Tavrel& form, const std::string& marked);

// Why a list without rows has none; empty where there is no reason to tell.
std::string empty_list_words(const Tavrel& form);

// Called by an act on the rows behind its work: `before` are the marks that stood before it. Notes what has
// gone, for the line.
void note_cleared_marks(Tavrel& form, const std::string& act, int before);

}  // namespace corvane
