// Finding a text in the path cells of ListView1.
#pragma once

namespace corvane {

class Tavrel;

// "在结果中查找": asks for a term and colours its first cell.
void search_in_result_Click(Tavrel& form);
// "再查(F3)": the next cell behind the last one found.
void again_search_Click(Tavrel& form);
}  // namespace corvane
