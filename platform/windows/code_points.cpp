#include "platform/windows/code_points.h"

namespace corvane {

char32_t next_code_point(std::string_view bytes, std::size_t& at) {
    const auto unit = [bytes](std::size_t place) { return static_cast<unsigned char>(bytes[place]); };
    const unsigned char lead = unit(at++);
    if (lead < 0x80) return lead;
    struct form {
        unsigned char mask, mark;
        std::size_t more;
        char32_t least;
    };
    static constexpr form forms[] = {{0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};
    for (const form& each : forms) {
        if ((lead & each.mask) != each.mark) continue;
        if (bytes.size() - at < each.more) return no_code_point;
        char32_t point = lead & static_cast<unsigned char>(~each.mask);
        for (std::size_t i = 0; i < each.more; ++i) {
            if ((unit(at + i) & 0xC0) != 0x80) return no_code_point;
            point = point << 6 | (unit(at + i) & 0x3F);
        }
        if (point < each.least || point > 0x10FFFF) return no_code_point;
        at += each.more;
        return point;
    }
    return no_code_point;
}

void append_code_point(std::string& out, char32_t point) {
    const auto add = [&out](char32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (point < 0x80) return add(point);
    if (point < 0x800) {
        add(0xC0 | point >> 6);
    } else {
        if (point < 0x10000) {
            add(0xE0 | point >> 12);
        } else {
            add(0xF0 | point >> 18);
            add(0x80 | (point >> 12 & 0x3F));
        }
        add(0x80 | (point >> 6 & 0x3F));
    }
    add(0x80 | (point & 0x3F));
}

void append_code_point(std::wstring& out, char32_t point) {
    if (point < 0x10000) {
        out += static_cast<wchar_t>(point);
        return;
    }
    out += static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
    out += static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
}

}  // namespace corvane
