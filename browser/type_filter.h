// The filters on file types: the list rebuilt from the result columns, which know neither marks nor
// deletions.
#pragma once

namespace corvane {

class Tavrel;

// "仅显示..." and "不显示...": ask for types and rebuild the list.
void only_disp_Click(Tavrel& form);
void not_list_Click(Tavrel& form);

}  // namespace corvane
