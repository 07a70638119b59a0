#include "core/settings/remembered.h"

#include <charconv>
#include <utility>

#include "core/text/text_file.h"

namespace corvane {

namespace {
constexpr char title[] = "Corvane windows 1";
}

std::string remembered_values::value(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string() : found->second;
}

void remembered_values::set(const std::string& name, std::string value) {
    std::string& kept = values_[name];
    if (kept == value) return;
    kept = std::move(value);
    changed_ = true;
}

void remembered_values::read(file_system& files, const std::string& path) {
    line_reader lines(files, path);
    std::string_view line;
    if (!lines.is_open() || !lines.next(line)) return;
    is_foreign_ = line != title;
    while (!is_foreign_ && lines.next(line)) {
        const std::size_t sign = line.find('=');
        if (sign != std::string_view::npos && sign > 0)
            values_[std::string(line.substr(0, sign))] = line.substr(sign + 1);
    }
}

outcome remembered_values::write(file_system& files, const std::string& path) {
    if (!changed_ || is_foreign_) return outcome::success();
    line_writer writer(files, path);
    writer.line(title);
    for (const auto& [name, value] : values_) {
        std::string line = name;
        writer.line(line.append("=").append(value));
    }
    if (!writer.finish()) return outcome::failure(writer.error());
    changed_ = false;
    return outcome::success();
}

int remembered_number(std::string_view text, int least, int most, int otherwise) {
    int number = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool is_one = error == std::errc() && rest == text.data() + text.size();
    return is_one && number >= least && number <= most ? number : otherwise;
}

}  // namespace corvane
