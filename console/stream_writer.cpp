#include "console/stream_writer.h"

#include <cerrno>
#include <cstring>

namespace corvane {

outcome stream_writer::failure() {
    nobody_reads_ = errno == EPIPE;
    return outcome::failure(std::strerror(errno));
}

outcome stream_writer::write(std::string_view bytes) {
    if (ended_()) return outcome::failure(std::strerror(EINTR));
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream_) == bytes.size();
    return written ? outcome::success() : failure();
}

outcome stream_writer::write_at(std::int64_t, std::string_view) {
    return outcome::failure(std::strerror(ESPIPE));
}

outcome stream_writer::commit() {
    return std::fflush(stream_) == 0 ? outcome::success() : failure();
}

}  // namespace corvane
