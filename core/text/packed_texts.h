// Many texts in little memory, for what is only kept: each is held as what it does not share with the one
// before it. Of paths of one tree a third is left. Read from front to back alone.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class packed_texts {
  public:
    void push_back(std::string_view text) {
        // A block is read without the one before it.
        if (blocks_.empty() || blocks_.back().size() + text.size() + most_number > block_size) {
            if (!blocks_.empty()) blocks_.back().shrink_to_fit();
            blocks_.emplace_back().reserve(std::max(block_size, text.size() + most_number));
            last_.clear();
        }
        std::string& block = blocks_.back();
        const auto differ = std::mismatch(text.begin(), text.end(), last_.begin(), last_.end()).first;
        const auto shared = static_cast<std::size_t>(differ - text.begin());
        add_number(block, shared);
        add_number(block, text.size() - shared);
        block.append(text.substr(shared));
        last_ = text;
    }

    // Calls take(text) for each in order; the text is valid during the call.
    template <class Take>
    void each(Take take) const {
        for (const std::string& block : blocks_) {
            std::string text;
            for (std::size_t at = 0; at < block.size();) {
                text.resize(number_at(block, at));
                const std::size_t rest = number_at(block, at);
                text.append(block, at, rest);
                at += rest;
                take(std::string_view(text));
            }
        }
    }

    bool empty() const { return blocks_.empty(); }

  private:
    static constexpr std::size_t block_size = std::size_t{256} << 10;
    static constexpr std::size_t most_number = 20;  // bytes of two numbers

    // Seven bits a byte, the lowest first; the eighth bit says that more follow.
    static void add_number(std::string& block, std::size_t number) {
        for (; number > 0x7F; number >>= 7) block += static_cast<char>((number & 0x7F) | 0x80);
        block += static_cast<char>(number);
    }
    static std::size_t number_at(const std::string& block, std::size_t& at) {
        std::size_t number = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto byte = static_cast<unsigned char>(block[at++]);
            number |= static_cast<std::size_t>(byte & 0x7F) << shift;
            if ((byte & 0x80) == 0) return number;
        }
    }

    std::vector<std::string> blocks_;
    std::string last_;
};

}  // namespace corvane
