#include "platform/linux/trash_info.h"

#include <algorithm>
#include <cstddef>

namespace corvane {

namespace {

constexpr std::size_t longest_name = 255;  // bytes, on every file system of Linux

int digit_of(char unit) {
    if (unit >= '0' && unit <= '9') return unit - '0';
    if (unit >= 'a' && unit <= 'f') return unit - 'a' + 10;
    if (unit >= 'A' && unit <= 'F') return unit - 'A' + 10;
    return -1;
}

bool climbs(std::string_view path) {
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        if (path.substr(at, end - at) == "..") return true;
        at = end + 1;
    }
    return false;
}

bool is_inside_character(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

}  // namespace

std::optional<std::string> percent_decoded(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            plain += text[at];
            continue;
        }
        if (at + 2 >= text.size()) return {};
        const int high = digit_of(text[at + 1]);
        const int low = digit_of(text[at + 2]);
        if (high < 0 || low < 0 || (high == 0 && low == 0)) return {};
        plain += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return plain;
}

std::optional<std::string> path_in_info(std::string_view info, std::string_view top) {
    constexpr std::string_view group = "[Trash Info]";
    constexpr std::string_view key = "Path=";
    bool in_group = false;
    for (std::size_t at = 0; at < info.size();) {
        const std::size_t end = std::min(info.find('\n', at), info.size());
        std::string_view line = info.substr(at, end - at);
        at = end + 1;
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.starts_with('[')) in_group = line == group;
        if (!in_group || !line.starts_with(key)) continue;
        std::optional<std::string> path = percent_decoded(line.substr(key.size()));
        if (!path || path->empty() || climbs(*path)) return {};
        if (path->front() == '/') return path;
        if (top.empty()) return {};
        return std::string(top) + "/" + *path;
    }
    return {};
}

std::string trash_name(std::string_view base, int number) {
    if (number <= 1) return std::string(base);
    // Before the first dot, as the bins of GIO count.
    const std::size_t dot = std::min(base.find('.'), base.size());
    return std::string(base.substr(0, dot)) + "." + std::to_string(number) + std::string(base.substr(dot));
}

std::string name_beside(std::string_view base, int number) {
    const std::string word = number <= 1 ? " (恢复)" : " (恢复 " + std::to_string(number) + ")";
    const std::size_t dot = base.rfind('.');
    std::string_view end;
    if (dot != std::string_view::npos && dot > 0) end = base.substr(dot);
    // An end that leaves no room is none.
    if (word.size() + end.size() >= longest_name) end = {};
    std::string_view stem = base.substr(0, base.size() - end.size());
    if (stem.size() + word.size() + end.size() > longest_name) {
        std::size_t length = longest_name - word.size() - end.size();
        while (length > 0 && is_inside_character(stem, length)) --length;
        stem = stem.substr(0, length);
    }
    return std::string(stem) + word + std::string(end);
}

std::string plain_path(std::string_view path) {
    std::string plain;
    plain.reserve(path.size());
    for (const char unit : path)
        if (unit != '/' || plain.empty() || plain.back() != '/') plain += unit;
    while (plain.size() > 1 && plain.back() == '/') plain.pop_back();
    return plain;
}

}  // namespace corvane
