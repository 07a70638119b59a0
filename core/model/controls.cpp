#include "core/model/controls.h"

#include <algorithm>

namespace corvane {

void list_box::clear() {
    rows_.clear();
    ++revision_;
}

void list_box::take(std::vector<row> rows) {
    rows_ = std::move(rows);
    ++revision_;
}

void list_box::add(std::string words, std::string tip) {
    rows_.push_back({std::move(words), false, false, std::move(tip)});
    ++revision_;
}

void list_box::add_checked(std::string words, bool checked) {
    rows_.push_back({std::move(words), false, checked, {}});
    ++revision_;
}

void list_box::remove(std::size_t index) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    ++revision_;
}

void list_box::select(std::size_t index, bool selected) {
    rows_[index].selected = selected;
    ++revision_;
}

void list_box::check(std::size_t index, bool checked) {
    rows_[index].checked = checked;
    ++revision_;
}

void list_box::select_only(std::size_t index) {
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i].selected = i == index;
    ++revision_;
}

void status_bar::clear_figures() {
    for (int number = 1; number <= 6; ++number) panel(number).clear();
}

void text_pane::load_file(std::string path) {
    path_ = std::move(path);
    ++revision_;
}

namespace {

colour_parts parts_of(std::int32_t colour) {
    return {static_cast<double>(colour & 0xFF), static_cast<double>((colour >> 8) & 0xFF),
            static_cast<double>((colour >> 16) & 0xFF)};
}

// Cut to a whole number; a value outside 0 to 255 becomes 0.
std::int32_t component(double value) {
    const auto whole = static_cast<std::int32_t>(value);
    return whole > 255 || whole < 0 ? 0 : whole;
}

}  // namespace

void colour_bar::set_colours(std::int32_t back, std::int32_t start, std::int32_t end) {
    start_ = parts_of(start);
    end_ = parts_of(end);
    back_ = back;
    visible = true;
}

void colour_bar::set_scale(std::int32_t total) {
    clear();
    if (total < 1) return;
    total_ = total;
}

void colour_bar::draw(std::int32_t position) {
    if (total_ < 1) return;
    const auto at = static_cast<double>(position);
    const auto count = static_cast<double>(total_);
    const auto mixed = [&](double start, double end) {
        return component((end - start) / count * at + start);
    };
    fill_ = mixed(start_.red, end_.red) | mixed(start_.green, end_.green) << 8 |
            mixed(start_.blue, end_.blue) << 16;
    filled_ = std::clamp(at / count, 0.0, 1.0);
}

void colour_bar::clear() {
    filled_ = 0;
    total_ = 0;
}

}  // namespace corvane
