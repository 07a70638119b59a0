#include "core/archives/archive_input.h"

#include <algorithm>
#include <cstring>

#include "core/text/utf8.h"
#include "platform/file_system.h"
#include "platform/text_encoding.h"

namespace corvane {

namespace {

constexpr std::size_t least_block = 8 * std::size_t{1024};
constexpr std::size_t most_block = 256 * std::size_t{1024};
constexpr std::int64_t end_block =
    64 * std::int64_t{1024};  // the directory of most archives, in one read with the end
constexpr unsigned first_lead_byte = 161;
constexpr char32_t first_mapped = 0xF000;  // stands for a byte, as in names from the disk
constexpr char32_t last_mapped = 0xF0FF;
constexpr char32_t replacement = 0xFFFD;

constexpr char digits[] = "0123456789ABCDEF";

void append_byte(std::string& text, unsigned byte) {
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
}

constexpr bool is_mapped(char32_t byte) {
    return byte < 0x20 || byte == 0x7F || byte == '*';
}

}  // namespace

archive_input::archive_input(const archive_context& context, const std::string& path)
    : state_(context.state),
      encoding_(context.encodings),
      view_(context.state.entry_buffer.data()),
      next_block_(least_block) {
    static_assert(std::tuple_size_v<decltype(archive_state::entry_buffer)> == buffer_size);
    file_ = context.files.open_file(path).object;
    length_ = file_ ? context.files.facts(path).length : 0;
    state_.archive_path = path;
    state_.archive_length = length_;
}

archive_input::~archive_input() {
    keep();
}

// The buffer itself takes what it holds so far by reference.
void archive_input::keep() {
    if (view_ == state_.entry_buffer.data()) return;
    std::memcpy(state_.entry_buffer.data(), view_, buffer_size);
    view_ = state_.entry_buffer.data();
}

std::int64_t archive_input::read_beside(std::int64_t offset, std::span<std::byte> buffer) {
    return file_->read_at(offset, buffer);
}

// Makes the block hold what a read at the offset needs: the file's end as a whole, else longer pieces as long
// as the reads follow each other.
bool archive_input::load(std::int64_t offset) {
    constexpr auto one_read = static_cast<std::int64_t>(buffer_size);
    std::int64_t start = offset;
    std::int64_t end;
    if (length_ - offset <= one_read) {
        start = std::min(offset, std::max<std::int64_t>(0, length_ - end_block));
        end = length_;
    } else {
        const bool follows = offset >= block_start_ && offset <= block_end_;
        next_block_ = follows ? std::min(next_block_ * 4, most_block) : least_block;
        end = std::min(length_, offset + static_cast<std::int64_t>(next_block_));
    }
    const auto size = static_cast<std::size_t>(end - start);
    keep();
    if (size > block_capacity_) {
        block_ = std::make_unique_for_overwrite<std::byte[]>(size);
        block_capacity_ = size;
    }
    block_start_ = block_end_ = start;
    const std::int64_t count = file_->read_at(start, std::span(block_.get(), size));
    if (count < 0) return false;
    block_end_ = start + count;
    return true;
}

bool archive_input::read(std::int64_t position) {
    if (position < 1) return false;
    const std::int64_t offset = position - 1;
    const std::int64_t end = std::min(length_, offset + static_cast<std::int64_t>(buffer_size));
    if (offset >= end) return true;
    if ((offset < block_start_ || end > block_end_) && !load(offset)) return false;
    // A file that has been cut short meanwhile may have left less than asked for.
    const std::int64_t available = std::min(end, block_end_) - offset;
    if (available <= 0) return true;
    const std::byte* from = block_.get() + (offset - block_start_);
    if (available == static_cast<std::int64_t>(buffer_size)) {
        view_ = from;
    } else {
        keep();
        std::memcpy(state_.entry_buffer.data(), from, static_cast<std::size_t>(available));
    }
    return true;
}

std::uint16_t archive_input::u16_at(std::size_t i) const {
    return static_cast<std::uint16_t>(byte_at(i) | byte_at(i + 1) << 8);
}

std::uint32_t archive_input::u32_at(std::size_t i) const {
    return byte_at(i) | byte_at(i + 1) << 8 | byte_at(i + 2) << 16 | byte_at(i + 3) << 24;
}

std::string archive_input::hex32_forward_at(std::size_t i) const {
    std::string text;
    for (std::size_t at = i; at < i + 4; ++at) append_byte(text, byte_at(at));
    return text;
}

std::string archive_input::hex32_at(std::size_t i) const {
    std::string text;
    for (std::size_t at = i + 4; at > i; --at) append_byte(text, byte_at(at - 1));
    return text;
}

std::string archive_input::hex16_at(std::size_t i) const {
    std::string text;
    append_byte(text, byte_at(i + 1));
    append_byte(text, byte_at(i));
    return text;
}

std::string archive_input::hex8_at(std::size_t i) const {
    std::string text;
    append_byte(text, byte_at(i));
    if (text.front() == '0') text.erase(0, 1);
    return text;
}

std::string_view archive_input::bytes_at(std::size_t i, std::size_t length) const {
    if (i >= buffer_size) return {};
    return {reinterpret_cast<const char*>(view_ + i), std::min(length, buffer_size - i)};
}

bool archive_input::name_at(std::size_t i, std::size_t length, std::string& name) const {
    name.clear();
    const std::size_t end = i + length;
    while (i < end) {
        if (i >= buffer_size) return false;
        const unsigned byte = byte_at(i);
        if (byte == 0) return true;
        if (byte < first_lead_byte) {
            append_utf8(name, is_mapped(byte) ? first_mapped + byte : byte);
            ++i;
        } else {
            if (i + 1 >= buffer_size) return false;
            append_utf8(name, encoding_.double_byte_936(static_cast<unsigned char>(byte),
                                                        static_cast<unsigned char>(byte_at(i + 1))));
            i += 2;
        }
    }
    return true;
}

bool archive_input::utf8_name_at(std::size_t i, std::size_t length, std::string& name) const {
    name.clear();
    std::string_view rest = bytes_at(i, length);
    const bool is_whole = rest.size() == length;
    const std::size_t end = rest.find('\0');
    rest = rest.substr(0, end);
    while (!rest.empty()) {
        const utf8_letter found = decode_utf8(rest);
        if (found.length == 0) {
            append_utf8(name, replacement);
            rest.remove_prefix(1);
            continue;
        }
        const bool is_single = found.length == 1 && is_mapped(found.letter);
        if (found.letter >= first_mapped && found.letter <= last_mapped) append_utf8(name, first_mapped);
        append_utf8(name, is_single ? first_mapped + found.letter : found.letter);
        rest.remove_prefix(found.length);
    }
    return is_whole || end != std::string_view::npos;
}

}  // namespace corvane
