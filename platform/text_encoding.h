// Character sets as the system knows them, for texts that are not the program's own: names that stand in
// archive directories. Everything above platform/ decodes through this interface.
#pragma once

namespace corvane {

class text_encoding {
  public:
    virtual ~text_encoding() = default;
    // The character of code page 936 that two bytes are together, below U+10000; U+FFFD when they are none.
    virtual char32_t double_byte_936(unsigned char lead, unsigned char trail) = 0;
};

}  // namespace corvane
