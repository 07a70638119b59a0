// The beginnings of a search for files that are alike but not equal: the choice of its master files. The
// frame that holds it is never shown.
#pragma once

namespace corvane {

class Tavrel;

// Lets the user choose master files and lists them in rela_file_list: the directory, then the names.
void Command31_Click(Tavrel& form);

}  // namespace corvane
