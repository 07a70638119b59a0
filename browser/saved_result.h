// A result under a name of the user's choice: pairs, files without a twin, file list, directories and marks
// in one file, so that a long run can be worked off over days.
//
// After the title each line is a letter, a blank and a text; the order is that of the table in the source.
// The last line tells how many lines came before it and their CRC-32, so that a file that is cut or damaged
// is told from a whole one.
#pragma once

namespace corvane {

class Tavrel;

// "保存结果": asks for the file. A file that is no saved result is not overwritten.
void save_result_Click(Tavrel& form);

// "打开结果": asks for the file, reads it to its end, and only then puts it in the place of the present
// result, about which the user is asked. Its rows are those of which the files are there, as with every load.
void open_result_Click(Tavrel& form);

}  // namespace corvane
