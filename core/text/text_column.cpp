#include "core/text/text_column.h"

#include <algorithm>

namespace corvane {

const char text_column::empty_entry[sizeof(std::uint32_t)] = {};

const char* text_arena::store(std::string_view text) {
    const std::size_t needed = sizeof(std::uint32_t) + text.size();
    if (needed > left_) {
        // Blocks double up to 1 MiB, so that a small list stays small.
        const std::size_t block = std::max(next_block_, needed);
        next_block_ = std::min<std::size_t>(next_block_ * 2, std::size_t{1} << 20);
        blocks_.push_back(std::unique_ptr<char[]>(new char[block]));
        free_ = blocks_.back().get();
        left_ = block;
    }
    char* entry = free_;
    const auto length = static_cast<std::uint32_t>(text.size());
    std::memcpy(entry, &length, sizeof length);
    if (!text.empty()) std::memcpy(entry + sizeof length, text.data(), text.size());
    free_ += needed;
    left_ -= needed;
    return entry;
}

void text_column::clear() {
    arena_ = std::make_shared<text_arena>();
    std::vector<const char*>{empty_entry}.swap(entries_);
}

void text_column::clear_and_share(const text_column& other) {
    arena_ = other.arena_;
    std::vector<const char*>{empty_entry}.swap(entries_);
}

}  // namespace corvane
