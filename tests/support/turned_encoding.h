// An encoding of data files that is not that of memory: every byte beyond ASCII is turned over.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

class turned_encoding : public data_encoding {
  public:
    void append_bytes(std::string& out, std::string_view text) const override { turn(out, text); }
    void append_text(std::string& out, std::string_view bytes) const override { turn(out, bytes); }
    static std::string of(std::string_view text) {
        std::string turned;
        turn(turned, text);
        return turned;
    }

  private:
    static void turn(std::string& out, std::string_view text) {
        for (const char unit : text) {
            const auto byte = static_cast<unsigned char>(unit);
            out += byte < 0x80 ? unit : static_cast<char>(0xFF - (byte - 0x80));
        }
    }
};

}  // namespace corvane
