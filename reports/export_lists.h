// The exports that are lists of text: the file list, and the stored pairs as they are.
#pragma once

namespace corvane {

class Tavrel;

// "文本格式": 'filelist_txt_.txt', one path a line. With suffixes but no depth it is the stored list,
// unfiltered.
void 文件清单_M_Click(Tavrel& form);

// "相同文件清单文本": opens the stored pairs.
void Command8_Click(Tavrel& form);
// "相同文件的xls清单": opens a copy of the stored pairs, '相同文件.xls'.
void Command9_Click(Tavrel& form);

}  // namespace corvane
