#include "search/directory_pick.h"

#include <algorithm>
#include <utility>

namespace corvane {

pick_source::picked pick_source::press(mouse_button button, int shift, int row) {
    picked taken;
    const bool left = button == mouse_button::left;
    if (left && shift == shift_key) {
        const int from = pressed_row < 0 ? row : pressed_row;
        taken.paths = paths(std::min(from, row), std::max(from, row));
    } else if (left && shift == ctrl_key) {
        taken.paths = paths(row, row);
        taken.joins = true;
    } else if (!left && shift == 0) {
        taken.paths = paths(row, row);
    }
    pressed_row = row;
    return taken;
}

pick_flight::pick_flight(control& caption, timer_control& timer) : caption_(caption), timer_(timer) {
    caption_.visible = false;
}

void pick_flight::start(std::vector<std::string> paths, int x, int y, int end_x, int end_y, int row_height) {
    paths_ = std::move(paths);
    caption_.text.clear();
    for (const std::string& path : paths_) {
        if (!caption_.text.empty()) caption_.text += "\r\n";
        caption_.text += path;
    }
    x_ = x;
    y_ = y;
    step_x_ = static_cast<double>(end_x - x) / steps;
    step_y_ = static_cast<double>(end_y - y) / steps;
    step_ = 0;
    caption_.place.left = x;
    caption_.place.top = y;
    caption_.place.height = row_height * static_cast<int>(paths_.size());
    caption_.visible = true;
    timer_.enabled = true;
}

bool pick_flight::step() {
    if (!timer_.enabled) return false;
    ++step_;
    x_ += step_x_;
    y_ += step_y_;
    caption_.place.left = static_cast<int>(x_);
    caption_.place.top = static_cast<int>(y_);
    if (step_ < steps) return false;
    timer_.enabled = false;
    caption_.visible = false;
    return true;
}

std::vector<std::string> pick_flight::land() {
    timer_.enabled = false;
    caption_.visible = false;
    return std::exchange(paths_, {});
}

}  // namespace corvane
