#include "core/text/file_copy.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace corvane {

outcome copy_file(file_system& files, const std::string& from, const std::string& to) {
    const outcome_with<file_reader> source = files.open_file(from);
    if (!source) return outcome::failure(source.reason);
    const outcome_with<file_writer> target = files.replace_file(to);
    if (!target) return outcome::failure(target.reason);
    std::vector<std::byte> block(64 * std::size_t{1024});
    for (std::int64_t offset = 0;;) {
        const std::int64_t count = source->read_at(offset, block);
        if (count < 0) return outcome::failure("不能读出。");
        outcome written = target->write(
            std::string_view(reinterpret_cast<const char*>(block.data()), static_cast<std::size_t>(count)));
        if (!written) return written;
        if (count < static_cast<std::int64_t>(block.size())) break;
        offset += count;
    }
    return target->commit();
}

}  // namespace corvane
