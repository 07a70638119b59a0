#include "console/plain_words.h"

namespace corvane {

void plain_words::say(std::string_view sentence) {
    if (!quiet_) line({}, sentence);
}

void plain_words::say_failure(std::string_view sentence) {
    line("corvane-console: ", sentence);
}

void plain_words::line(std::string_view prefix, std::string_view sentence) {
    if (before_) before_();
    std::string text(prefix);
    for (const char unit : sentence) {
        const bool is_control = static_cast<unsigned char>(unit) < 0x20 || unit == 0x7F;
        // A line break of several signs is one blank.
        if (!is_control)
            text += unit;
        else if (!text.ends_with(' '))
            text += ' ';
    }
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stream_);
    std::fflush(stream_);
}

}  // namespace corvane
