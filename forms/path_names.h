// Paths between Qt's texts and the program's. Used where Qt hands a path over: drops, file dialogs, volumes.
// Written twice, in linux/ and windows/.
#pragma once

#include <QString>
#include <string>

namespace corvane {

// With the separators of the disk.
std::string program_path(const QString& path);

// As Qt's calls take it. Empty for a text that is no name of this system.
QString system_path(const std::string& path);

}  // namespace corvane
