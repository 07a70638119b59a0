// The readers of archive directories, called by the walk for each ZIP and RAR file while scan_archives is
// set. A reader puts the members of one archive into the output. It never stops the walk: whatever it cannot
// go on with ends the reading of that archive alone.
#pragma once

#include <functional>
#include <string>

namespace corvane {

class archive_sink;
class Tavrel;

struct archive_readers {
    std::function<bool(Tavrel&, const std::string& path, archive_sink&)> read_zip;
    std::function<bool(Tavrel&, const std::string& path, archive_sink&)> read_rar;
};

}  // namespace corvane
