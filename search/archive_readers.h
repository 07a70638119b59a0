// The readers of archive directories, called by the walk for each ZIP and RAR file while scan_archives is
// set. A reader appends the entries of one archive to file_list.
#pragma once

#include <functional>
#include <string>

namespace corvane {

class Tavrel;

struct archive_readers {
    std::function<void(Tavrel&, const std::string& path)> read_zip;
    std::function<void(Tavrel&, const std::string& path)> read_rar;
};

}  // namespace corvane
