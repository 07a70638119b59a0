#include "console/records.h"

namespace corvane {

void append_field(std::string& line, std::string_view field) {
    if (field.find_first_of("\t\r\n\\") == std::string_view::npos) {
        line += field;
        return;
    }
    for (const char unit : field) {
        switch (unit) {
            case '\t':
                line += "\\t";
                break;
            case '\r':
                line += "\\r";
                break;
            case '\n':
                line += "\\n";
                break;
            case '\\':
                line += "\\\\";
                break;
            default:
                line += unit;
        }
    }
}

void record_output::record(std::initializer_list<std::string_view> fields) {
    std::string text;
    bool first = true;
    for (const std::string_view field : fields) {
        if (!first) text += '\t';
        first = false;
        append_field(text, field);
    }
    line(text);
}

void record_output::line(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream_);
    std::fputc('\n', stream_);
}

}  // namespace corvane
