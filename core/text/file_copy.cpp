#include "core/text/file_copy.h"

#include <cstddef>
#include <span>
#include <vector>

namespace corvane {

outcome copy_bytes(file_reader& source, file_writer& target, const std::function<void()>& turn) {
    std::vector<char> block(256 * std::size_t{1024});
    for (std::int64_t offset = 0;;) {
        if (turn) turn();
        const std::int64_t count = source.read_at(offset, std::as_writable_bytes(std::span(block)));
        if (count < 0) return outcome::failure("不能读出。");
        if (count == 0) return outcome::success();
        outcome written = target.write({block.data(), static_cast<std::size_t>(count)});
        if (!written) return written;
        offset += count;
    }
}

outcome copy_file(file_system& files, const std::string& from, const std::string& to) {
    const outcome_with<file_reader> source = files.open_file(from);
    if (!source) return outcome::failure(source.reason);
    const outcome_with<file_writer> target = files.replace_file(to);
    if (!target) return outcome::failure(target.reason);
    outcome copied = copy_bytes(*source, *target);
    return copied ? target->commit() : copied;
}

}  // namespace corvane
