// The Chinese encoding of data files: code page 936 for all that it can say, GB 18030 for the rest, so that
// no character is lost. Windows has it as code page 54936, but not everywhere.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

class gb18030_files : public data_encoding {
  public:
    void append_bytes(std::string& out, std::string_view text) const override;
    // U+FFFD for bytes that are none.
    void append_text(std::string& out, std::string_view bytes) const override;
};

}  // namespace corvane
