// What survives a restart: the settings and the selected directories.
#pragma once

#include <string>

namespace corvane {

class Tavrel;

// Writes 比较文件_目录清单.txt: one selected directory a line. False, after one message, when it cannot.
bool 写Tavrel环境文件(Tavrel& form);

// Reads the selected directories, up to their limit; a missing file gives none.
void read_environment(Tavrel& form);

}  // namespace corvane
