// The spreadsheet export: 'filelist.xls', a text whose columns are parted by tabs.
#pragma once

namespace corvane {

class Tavrel;

// Writes a row for each file of the list that the parameters leave, and shows the file in a text viewer.
void Command33_Click(Tavrel& form);

// "打开文件清单": opens the spreadsheet by its association, whether it is there or not.
void open_excel_Click(Tavrel& form);

}  // namespace corvane
