#include "compare/read_ahead.h"

#include <algorithm>

namespace corvane {

const read_ahead::held_start* read_ahead::find(std::string_view path) {
    for (std::size_t passed = 0; passed < held_.size(); ++passed, ++next_) {
        if (next_ >= held_.size()) next_ = 0;
        if (held_[next_].path == path.data()) return &held_[next_];
    }
    return nullptr;
}

void read_ahead::read(file_system& disk, std::span<const wanted_start> wanted,
                      const std::function<bool()>& keep_going) {
    const auto asked = [](const wanted_start& each) { return each.length + (each.whole ? 1 : 0); };
    std::size_t count = 0, size = 0;
    while (count < std::min(wanted.size(), most_files) &&
           (count == 0 || size + asked(wanted[count]) <= most_bytes))
        size += asked(wanted[count++]);
    bytes_.resize(std::max(bytes_.size(), size));
    requests_.clear();
    for (std::byte* free = bytes_.data(); const wanted_start& each : wanted.first(count)) {
        requests_.push_back({each.path, std::span(free, asked(each)), each.length});
        free += asked(each);
    }
    std::size_t answered = disk.read_starts(requests_);
    while (answered == 0 && keep_going()) answered = disk.read_starts(requests_);
    held_.clear();
    next_ = 0;
    for (std::size_t i = 0; i < answered; ++i) {
        const start_request& each = requests_[i];
        const auto read = static_cast<std::size_t>(std::max<std::int64_t>(each.count, 0));
        held_.push_back(
            {wanted[i].path.data(), {each.count, std::span<const std::byte>(each.buffer.first(read))}});
    }
}

read_ahead::start read_ahead::take(std::string_view path) {
    const held_start* found = find(path);
    return found ? found->content : start();
}

}  // namespace corvane
