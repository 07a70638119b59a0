#include "compare/held_contents.h"

namespace corvane {

void held_contents::clear() {
    bytes_.clear();
    extents_.clear();
}

bool held_contents::hold(std::int32_t place, std::span<const std::byte> bytes) {
    if (!has_room(bytes.size())) return false;
    const auto index = static_cast<std::size_t>(place);
    if (extents_.size() <= index) extents_.resize(index + 1);
    extents_[index] = {bytes_.size(), bytes.size()};
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return true;
}

void held_contents::reorder(const std::vector<std::int32_t>& old_places) {
    if (extents_.empty()) return;
    extents_.resize(old_places.size());
    std::vector<extent> moved(old_places.size());
    for (std::size_t i = 0; i < moved.size(); ++i)
        moved[i] = extents_[static_cast<std::size_t>(old_places[i])];
    extents_ = std::move(moved);
}

std::span<const std::byte> held_contents::at(std::int32_t place) const {
    const auto index = static_cast<std::size_t>(place);
    if (index >= extents_.size()) return {};
    return std::span(bytes_).subspan(extents_[index].offset, extents_[index].length);
}

}  // namespace corvane
