#include "reports/cell_text.h"

#include <algorithm>

#include "core/text/shown_text.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int64_t kilobyte = 1024;
constexpr unsigned char lead_of_mapped = 0xEF;

// A byte that may show as another one.
bool is_suspect(char unit) {
    const auto byte = static_cast<unsigned char>(unit);
    return byte < 0x20 || byte == 0x7F || byte == lead_of_mapped;
}

}  // namespace

void append_name(std::string& out, std::string_view text) {
    if (std::none_of(text.begin(), text.end(), is_suspect))
        out += text;
    else
        out += typed_as_shown(text);
}

void append_cell(std::string& out, std::string_view text) {
    if (!text.starts_with('"')) return append_name(out, text);
    std::string shown;
    append_name(shown, text);
    out += '"';
    for (const char unit : shown) {
        if (unit == '"') out += '"';
        out += unit;
    }
    out += '"';
}

size_text scaled_size(std::int64_t bytes, const char* unit) {
    if (bytes < kilobyte) return {bytes, unit};
    // The whole part of (bytes + 1) / 1024 + 0.5, without the rounding of a fraction.
    return {(bytes - kilobyte + 1 + kilobyte / 2) / kilobyte + 1, "KB"};
}

void append_size(std::string& out, const size_text& size) {
    out.append(group_digits(static_cast<double>(size.value))).append(1, ' ').append(size.unit);
}

}  // namespace corvane
