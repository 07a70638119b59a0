// Character sets by the C library's converter. One converter is opened with the first pair and kept; a pair
// is converted once.
#pragma once

#include <iconv.h>

#include <array>
#include <bitset>

#include "platform/text_encoding.h"

namespace corvane {

class linux_text_encoding : public text_encoding {
  public:
    linux_text_encoding() = default;
    ~linux_text_encoding() override;
    linux_text_encoding(const linux_text_encoding&) = delete;
    linux_text_encoding& operator=(const linux_text_encoding&) = delete;

    char32_t double_byte_936(unsigned char lead, unsigned char trail) override;

  private:
    char16_t convert(unsigned char lead, unsigned char trail);

    // What iconv_open gives on failure.
    static inline const iconv_t closed =
        reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): its word
    iconv_t converter_ = closed;
    bool opened_ = false;
    std::array<char16_t, 0x10000> characters_{};
    std::bitset<0x10000> known_;
};

}  // namespace corvane
