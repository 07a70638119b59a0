#include "cleanup/content_check.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "core/archives/checksum.h"

namespace corvane {

namespace {

constexpr std::int64_t block_size = 1 << 20;

// A file that is read block by block.
class block_reader {
  public:
    block_reader(file_system& files, std::string_view path, std::int64_t length)
        : length_(length), bytes_(static_cast<std::size_t>(std::min(length, block_size)) + 1) {
        file_ = std::move(files.open_file(path).object);
        if (file_) file_->will_read(0);
    }
    bool is_open() const { return file_ != nullptr; }
    // The block at `at`, which is below the length. Empty: it cannot be read, or the file is no longer of
    // that length.
    std::span<const std::byte> block(std::int64_t at) {
        if (!file_) return {};
        const std::int64_t wanted = std::min(length_ - at, block_size);
        // One byte more at the end: a file that has grown is not the one that was listed.
        const auto asked = static_cast<std::size_t>(wanted + (at + wanted == length_ ? 1 : 0));
        if (file_->read_at(at, std::span(bytes_.data(), asked)) != wanted) return {};
        return {bytes_.data(), static_cast<std::size_t>(wanted)};
    }

  private:
    std::int64_t length_;
    std::vector<std::byte> bytes_;
    std::unique_ptr<file_reader> file_;
};

}  // namespace

// Small files share a turn.
bool content_check::take_turn(std::int64_t bytes) {
    read_since_turn_ += bytes;
    if (read_since_turn_ < block_size) return true;
    read_since_turn_ = 0;
    return turn_();
}

bool content_check::same(std::string_view a, std::string_view b, std::int64_t length) {
    block_reader reader_a(files_, a, length);
    block_reader reader_b(files_, b, length);
    // A file without a byte must be there all the same.
    if (!reader_a.is_open() || !reader_b.is_open()) return false;
    for (std::int64_t at = 0; at < length; at += block_size) {
        const std::span<const std::byte> block_a = reader_a.block(at);
        const std::span<const std::byte> block_b = reader_b.block(at);
        if (block_a.empty() || block_a.size() != block_b.size() ||
            std::memcmp(block_a.data(), block_b.data(), block_a.size()) != 0)
            return false;
        if (!take_turn(2 * static_cast<std::int64_t>(block_a.size()))) return false;
    }
    return true;
}

std::optional<std::uint32_t> content_check::checksum(std::string_view path, std::int64_t length) {
    block_reader reader(files_, path, length);
    checksum_stream sum;
    for (std::int64_t at = 0; at < length; at += block_size) {
        if (!turn_()) return {};
        const std::span<const std::byte> block = reader.block(at);
        if (block.empty()) return {};
        sum.add(block);
    }
    return sum.value();
}

}  // namespace corvane
