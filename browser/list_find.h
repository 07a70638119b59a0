// Finding a text in the path cells of ListView1, and the two filters that show only some types.
#pragma once

namespace corvane {

class Tavrel;

// "在结果中查找": asks for a term and colours its first cell.
void search_in_result_Click(Tavrel& form);
// "再查(F3)": the next cell behind the last one found.
void again_search_Click(Tavrel& form);
// "仅显示..." and "不显示...": ask for types and rebuild the list from the result columns.
void only_disp_Click(Tavrel& form);
void not_list_Click(Tavrel& form);

}  // namespace corvane
