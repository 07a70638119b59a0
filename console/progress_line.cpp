#include "console/progress_line.h"

#include <algorithm>
#include <cmath>

#include "reports/size_words.h"

namespace corvane {

namespace {

constexpr std::chrono::milliseconds between_lines{100};
constexpr char erase_line[] = "\r\033[K";

std::string minutes(double seconds) {
    const auto whole = static_cast<std::int64_t>(std::ceil(seconds));
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

std::string per_second(double amount, double seconds) {
    return seconds > 0 ? grouped_number(std::llround(amount / seconds)) + " files/s" : std::string();
}

}  // namespace

std::string progress_line::words(double seconds) const {
    const auto done = static_cast<double>(work_.done());
    const bool checking = work_.now() == run_work::phase::checking;
    if (work_.now() == run_work::phase::searching)
        return "searching  " + grouped_number(work_.done()) + " files  " + per_second(done, seconds);
    const double share = std::max(work_.share(), 0.0);
    std::string line = checking ? "checking  " : "comparing  ";
    line += std::to_string(static_cast<int>(share * 100)) + " %";
    if (seconds > 0)
        line +=
            "  " + (checking ? per_second(done, seconds) : size_words(std::llround(done / seconds)) + "/s");
    if (share > 0 && seconds > 0.5) line += "  " + minutes(seconds * (1 - share) / share) + " left";
    return line;
}

void progress_line::step() {
    const clock::time_point moment = clock::now();
    if (moment - last_ < between_lines) return;
    last_ = moment;
    work_.follow(form_);
    if (work_.phases() != phase_) begun_ = moment;
    phase_ = work_.phases();
    if (work_.now() == run_work::phase::none) return clear();
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
