// The places where a search can start: the home directory and the machine's volumes. Used by
// directory_window.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace corvane {

struct volume {
    QString label;
    std::string path;  // ends in the separator
};

// Home first, then the volumes that hold files of their own, by path.
std::vector<volume> volumes();

}  // namespace corvane
