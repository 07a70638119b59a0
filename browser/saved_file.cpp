#include "browser/saved_file.h"

#include <charconv>
#include <span>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

using namespace saved_line;

namespace {

constexpr char title[] = "Corvane result 1";
constexpr char end_line = 'Z';
constexpr std::string_view order = "DLNPM";
constexpr std::int32_t lines_per_yield = 1000;
constexpr std::int64_t most_marks = 2'000'000;  // both cells of each row of a full list

}  // namespace

void line_sum::add(std::string_view line) {
    sum_.add(std::as_bytes(std::span(line.data(), line.size())));
    sum_.add(std::as_bytes(std::span("\n", 1)));
    ++lines_;
}

std::string line_sum::words() const {
    return std::to_string(lines_) + " " + std::to_string(sum_.value());
}

saved_writer::saved_writer(Tavrel& form, const std::string& path)
    : form_(form), writer_(form.outside.files, path) {
    line(title);
}

void saved_writer::line(char letter, std::string_view text) {
    text_.assign(1, letter).append(" ").append(text);
    line(text_);
}

void saved_writer::lines_of(char letter, const std::string& path) {
    line_reader lines(form_.outside.files, path);
    std::string_view text;
    while (!form_.state.quit_requested && lines.next(text)) line(letter, text);
    if (lines.failed()) fail();
}

bool saved_writer::finish() {
    if (!is_whole_) return false;
    writer_.line(std::string(1, end_line) + " " + sum_.words());
    return finish_file(form_, writer_);
}

void saved_writer::line(std::string_view text) {
    sum_.add(text);
    writer_.line(text);
    if (sum_.lines() % lines_per_yield == 0) form_.yield();
}

saved_reader::saved_reader(Tavrel& form, const std::string& path)
    : form_(form), lines_(form.outside.files, path) {}

saved_kind saved_reader::read(saved_target& target) {
    std::string_view line;
    if (!lines_.is_open()) return saved_kind::missing;
    if (!lines_.next(line)) return saved_kind::foreign;
    if (line != title)
        return line.starts_with(any_saved_title) ? saved_kind::other_version : saved_kind::foreign;
    sum_.add(line);
    while (lines_.next(line)) {
        if (line.size() < 2 || line[1] != ' ') return saved_kind::damaged;
        const char letter = line[0];
        const std::string_view text = line.substr(2);
        if (letter == end_line) return ends_well(text) ? saved_kind::whole : saved_kind::damaged;
        if (!stands_right(letter, text)) return saved_kind::damaged;
        target.line(letter, text);
        sum_.add(line);
        if (sum_.lines() % lines_per_yield == 0) form_.yield();
        if (form_.state.quit_requested) return saved_kind::closing;
    }
    return saved_kind::damaged;
}

bool saved_reader::ends_well(std::string_view text) {
    std::string_view more;
    return text == sum_.words() && row_ == 0 && marks_ % 4 == 0 && pairs_ > 0 && !lines_.next(more);
}

// A kind never comes again behind a later one; the lines of a pair stand together.
bool saved_reader::stands_right(char letter, std::string_view text) {
    if (row_ > 0) {
        const bool right = letter == (row_ == 1 ? first_path : second_path);
        row_ = row_ == 1 ? 2 : 0;
        return right && !text.empty();
    }
    const std::size_t place = order.find(letter);
    if (place == std::string_view::npos || place < place_) return false;
    place_ = place;
    if (letter == mark) return ++marks_ <= 4 * most_marks;
    if (letter != length) return true;
    row_ = 1;
    ++pairs_;
    std::int64_t bytes = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), bytes);
    return error == std::errc() && rest == text.data() + text.size() && bytes >= 0;
}

}  // namespace corvane
