// Code page 936 as Windows knows it. A pair is converted once.
#pragma once

#include <array>
#include <bitset>

#include "platform/text_encoding.h"

namespace corvane {

class windows_text_encoding : public text_encoding {
  public:
    char32_t double_byte_936(unsigned char lead, unsigned char trail) override;

  private:
    std::array<char16_t, 0x10000> characters_{};
    std::bitset<0x10000> known_;
};

}  // namespace corvane
