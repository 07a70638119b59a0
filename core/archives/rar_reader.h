// Lists the files of a RAR archive of the generations 1.5 to 4 by walking over its blocks. Called by the walk
// and by the deletion inside archives.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class archive_input;
class archive_sink;
struct archive_context;
struct archive_state;

// Hands a record for each file and directory to the sink; `path` is opened and named in the report. Nothing
// is unpacked. False when the reading ended before the archive did.
bool read_rar(const archive_context& context, const std::string& path, archive_sink& sink);

// Reads the block at `position`, a file offset, and hands on its record if it has one; every block but a
// sub-block is taken for a file's. `next` is then the place behind it, always further on. False when the
// reading of the archive ends here: a read error, a name that leaves the buffer, or a sink that is full.
bool read_rar_block(archive_state& state, archive_input& archive, archive_sink& sink, std::int64_t position,
                    std::int64_t& next);

}  // namespace corvane
