#include "console/progress_line.h"

#include <cmath>
#include <string_view>

#include "reports/size_words.h"

namespace corvane {

namespace {

constexpr std::chrono::milliseconds between_lines{100};
constexpr char erase_line[] = "\r\033[K";
// What it costs to open a file, in bytes that could be read meanwhile; and to pass over one.
constexpr std::int64_t opening_work = 20'000;
constexpr std::int64_t passing_work = 20;

std::string minutes(double seconds) {
    const auto whole = static_cast<std::int64_t>(std::ceil(seconds));
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

std::string per_second(double amount, double seconds) {
    return seconds > 0 ? grouped_number(std::llround(amount / seconds)) + " files/s" : std::string();
}

}  // namespace

progress_line::phase progress_line::current_phase() const {
    if (form_.Command28.visible) return phase::comparing;
    if (form_.state.file_count == 0) return form_.state.walk_count > 0 ? phase::searching : phase::none;
    return form_.state.compared_files == 0 && form_.pic_gressbar1.visible ? phase::checking : phase::none;
}

std::int64_t progress_line::work_of(std::int32_t i) const {
    const run_state& state = form_.state;
    const std::int64_t length = state.file_len[i];
    const bool alone = (i == 1 || state.file_len[i - 1] != length) &&
                       (i == state.file_count || state.file_len[i + 1] != length);
    return alone || length == 0 ? passing_work : length + opening_work;
}

void progress_line::begin(phase now, clock::time_point moment) {
    phase_ = now;
    begun_ = moment;
    total_ = done_ = place_ = 0;
    const run_state& state = form_.state;
    if (now == phase::comparing && state.file_len.size() == state.file_count)
        for (std::int32_t i = 1; i <= state.file_count; ++i) total_ += work_of(i);
}

void progress_line::advance() {
    const run_state& state = form_.state;
    const auto reached = static_cast<std::int32_t>(
        std::llround(form_.pic_gressbar1.filled() * static_cast<double>(form_.pic_gressbar1.total())));
    if (phase_ == phase::searching) done_ = state.walk_count;
    if (phase_ == phase::checking) {
        total_ = form_.pic_gressbar1.total();
        done_ = reached;
    }
    if (phase_ == phase::comparing && state.file_len.size() == state.file_count)
        while (place_ < std::min(reached, state.file_count)) done_ += work_of(++place_);
}

std::string progress_line::words(double seconds) const {
    const auto done = static_cast<double>(done_);
    if (phase_ == phase::searching)
        return "searching  " + grouped_number(done_) + " files  " + per_second(done, seconds);
    const double share = total_ > 0 ? std::min(1.0, done / static_cast<double>(total_)) : 0;
    std::string line = phase_ == phase::checking ? "checking  " : "comparing  ";
    line += std::to_string(static_cast<int>(share * 100)) + " %";
    if (seconds > 0)
        line += "  " + (phase_ == phase::checking ? per_second(done, seconds)
                                                  : size_words(std::llround(done / seconds)) + "/s");
    if (share > 0 && seconds > 0.5) line += "  " + minutes(seconds * (1 - share) / share) + " left";
    return line;
}

void progress_line::step() {
    const clock::time_point moment = clock::now();
    if (moment - last_ < between_lines) return;
    last_ = moment;
    const phase now = current_phase();
    if (now != phase_) begin(now, moment);
    if (now == phase::none) return clear();
    advance();
    const std::string line = erase_line + words(std::chrono::duration<double>(moment - begun_).count());
    std::fwrite(line.data(), 1, line.size(), terminal_);
    std::fflush(terminal_);
    shown_ = true;
}

void progress_line::clear() {
    if (!shown_) return;
    std::fputs(erase_line, terminal_);
    std::fflush(terminal_);
    shown_ = false;
}

}  // namespace corvane
