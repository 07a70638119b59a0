#include "platform/linux/linux_text_encoding.h"

#include <cstddef>

namespace corvane {

namespace {
constexpr char16_t replacement = 0xFFFD;
}

linux_text_encoding::~linux_text_encoding() {
    if (converter_ != closed) iconv_close(converter_);
}

char16_t linux_text_encoding::convert(unsigned char lead, unsigned char trail) {
    if (!opened_) {
        converter_ = iconv_open("UTF-16BE", "CP936");
        opened_ = true;
    }
    if (converter_ == closed) return replacement;
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    char pair[] = {static_cast<char>(lead), static_cast<char>(trail)};
    char* from = pair;
    std::size_t bytes_left = sizeof pair;
    unsigned char units[4];
    char* to = reinterpret_cast<char*>(units);
    std::size_t room = sizeof units;
    const std::size_t result = iconv(converter_, &from, &bytes_left, &to, &room);
    // Both bytes in one go, and one character of them.
    if (result == static_cast<std::size_t>(-1) || bytes_left != 0 || room != sizeof units - 2)
        return replacement;
    return static_cast<char16_t>(units[0] << 8 | units[1]);
}

char32_t linux_text_encoding::double_byte_936(unsigned char lead, unsigned char trail) {
    const std::size_t pair = static_cast<std::size_t>(lead) << 8 | trail;
    if (!known_[pair]) {
        characters_[pair] = convert(lead, trail);
        known_[pair] = true;
    }
    return characters_[pair];
}

}  // namespace corvane
