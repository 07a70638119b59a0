#include "search/given_paths.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "core/text/text_case.h"

namespace corvane {

namespace {

constexpr std::size_t most_lines = 20'000;
constexpr std::size_t longest_path = 32'768;  // no system takes a longer one
constexpr std::size_t others_shown = 5;
constexpr std::size_t longest_shown = 200;  // bytes of a line that is no path
constexpr char blanks[] = " \t";

std::string_view without_blanks(std::string_view line) {
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

int hex_digit(char sign) {
    if (sign >= '0' && sign <= '9') return sign - '0';
    if (sign >= 'a' && sign <= 'f') return sign - 'a' + 10;
    return sign >= 'A' && sign <= 'F' ? sign - 'A' + 10 : -1;
}

// An escape that is none stays as it stands.
std::string without_escapes(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const int high = text[at] == '%' && at + 2 < text.size() ? hex_digit(text[at + 1]) : -1;
        const int low = high < 0 ? -1 : hex_digit(text[at + 2]);
        if (low < 0) {
            plain += text[at];
        } else {
            plain += static_cast<char>(high * 16 + low);
            at += 2;
        }
    }
    return plain;
}

bool is_url(std::string_view line) {
    return line.size() > 5 && upper_case(line.substr(0, 5)) == "FILE:";
}

// The path of a URL of this machine; nothing for another one.
std::optional<std::string> path_of_url(std::string_view url) {
    std::string_view rest = url.substr(5);
    if (rest.starts_with("//")) {
        rest.remove_prefix(2);
        const std::size_t path = rest.find('/');
        if (path == std::string_view::npos) return {};
        const std::string host = upper_case(rest.substr(0, path));
        if (!host.empty() && host != "LOCALHOST" && host != "127.0.0.1") return {};
        rest.remove_prefix(path);
    }
    return without_escapes(rest);
}

std::string home_of(file_system& files) {
    for (const volume& place : files.volumes())
        if (place.kind == volume_kind::home) return place.path;
    return {};
}

// Parts that only go back and forth taken out: "/a/./b//../c/" is "/a/c".
std::string tidied(std::string_view path, char separator) {
    const std::size_t root = separator == '/' || path.size() < 3 || path[1] != ':' ? 1 : 3;
    std::vector<std::string_view> parts;
    for (std::size_t at = root; at <= path.size();) {
        const std::size_t end = std::min(path.find(separator, at), path.size());
        const std::string_view part = path.substr(at, end - at);
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        at = end + 1;
    }
    std::string tidy(path.substr(0, root));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) tidy += separator;
        tidy += parts[i];
    }
    return tidy;
}

bool is_absolute(std::string_view path, char separator) {
    if (separator == '/') return path.starts_with('/');
    return path.starts_with("\\\\") || (path.size() >= 3 && path[1] == ':' && path[2] == separator);
}

// Nothing where the line is no path of this machine.
std::optional<std::string> path_of(file_system& files, std::string_view line) {
    const char separator = files.separator();
    std::string path(line);
    bool exact = false;  // every byte stands for itself
    if (is_url(line)) {
        std::optional<std::string> named = path_of_url(line);
        if (!named) return {};
        path = std::move(*named);
        exact = true;
        if (separator == '\\') {
            std::replace(path.begin(), path.end(), '/', '\\');
            if (path.size() > 2 && path[2] == ':') path.erase(0, 1);
        }
    } else if (path == "~" || path.starts_with(std::string("~") + separator)) {
        const std::string home = home_of(files);
        if (home.empty()) return {};
        path = home + path.substr(1);
    }
    if (path.size() > longest_path || path.find('\0') != std::string::npos || !is_absolute(path, separator))
        return {};
    // A name that was copied as the program shows it stays; a "*" can only be meant as it stands on the disk.
    if (exact || path.find('*') != std::string::npos) path = files.text_of(path);
    return tidied(path, separator);
}

// The parts of a line of quoted texts with blanks between; nothing where it is none.
std::vector<std::string_view> quoted_parts(std::string_view line) {
    std::vector<std::string_view> parts;
    while (!line.empty()) {
        const char quote = line.front();
        if (quote != '"' && quote != '\'') return {};
        const std::size_t end = line.find(quote, 1);
        if (end == std::string_view::npos) return {};
        parts.push_back(line.substr(1, end - 1));
        line.remove_prefix(end + 1);
        if (line.empty()) break;
        const std::size_t next = line.find_first_not_of(blanks);
        if (next == 0 || next == std::string_view::npos) return {};
        line.remove_prefix(next);
    }
    return parts;
}

std::string shortened(std::string_view line) {
    if (line.size() <= longest_shown) return std::string(line);
    std::size_t cut = longest_shown;
    // Not within a letter.
    while (cut > 0 && (static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80) --cut;
    return std::string(line.substr(0, cut)) + "…";
}

}  // namespace

given_paths read_given_paths(file_system& files, std::string_view text) {
    given_paths found;
    std::unordered_set<std::string> known;
    const auto take = [&](std::string_view words) {
        std::optional<std::string> path = path_of(files, words);
        if (!path)
            found.others.push_back(shortened(words));
        else if (known.insert(*path).second)
            found.paths.push_back(std::move(*path));
    };
    std::size_t lines = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        const std::string_view line = without_blanks(text.substr(at, end - at));
        at = end + 1;
        // A list of URLs may hold notes.
        if (line.empty() || line.front() == '#') continue;
        if (++lines > most_lines) {
            found.cut = true;
            break;
        }
        const std::vector<std::string_view> parts = quoted_parts(line);
        for (const std::string_view part : parts) take(part);
        if (parts.empty()) take(line);
    }
    return found;
}

given_directories find_given_directories(file_system& files, std::string_view text, std::size_t most) {
    given_directories found;
    given_paths given = read_given_paths(files, text);
    found.others = std::move(given.others);
    for (std::string& path : given.paths) {
        if (found.directories.size() >= most) break;
        if (files.attributes(path).directory)
            found.directories.push_back(std::move(path));
        else
            found.others.push_back(std::move(path));
    }
    return found;
}

std::string others_words(const std::vector<std::string>& others) {
    std::string words;
    for (std::size_t i = 0; i < std::min(others.size(), others_shown); ++i) {
        if (i > 0) words += "\r\n";
        words += others[i];
    }
    if (others.size() > others_shown) words += "\r\n…";
    return words;
}

}  // namespace corvane
