// Lists the files of a ZIP archive from its central directory. Called by the walk and by the deletion inside
// archives.
#pragma once

#include <string>

namespace corvane {

class archive_sink;
struct archive_context;

// Hands each record of the directory to the sink, in its order; `path` is opened and named in the report.
// Nothing is unpacked, and no header is checked: what the end record points to is the directory. True when
// the directory was read to its end and is the one that every end record speaks of.
bool read_zip(const archive_context& context, const std::string& path, archive_sink& sink);

}  // namespace corvane
