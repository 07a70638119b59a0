// Picking directories with the mouse: which rows a press takes, and the caption that flies from the press to
// the list of chosen directories. The picked paths join the list when it has arrived. Part of directory_form.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/model/controls.h"

namespace corvane {

// Bits of the argument `shift` of a press.
constexpr int shift_key = 1;
constexpr int ctrl_key = 2;
enum class mouse_button { left, right };

// One list to pick from. Rows count from 0 in the order on the screen.
struct pick_source {
    // The paths of the rows `first` to `last`.
    std::function<std::vector<std::string>(int first, int last)> paths;
    int pressed_row = -1;  // row pressed last, the start of a range

    struct picked {
        std::vector<std::string> paths;
        bool joins = false;  // joins the paths that are on their way already
    };
    // What a press takes; nothing for a plain left press.
    picked press(mouse_button button, int shift, int row);
};

class pick_flight {
  public:
    static constexpr int steps = 30;

    // `caption` is the text that flies, `timer` its clock; both belong to the form.
    pick_flight(control& caption, timer_control& timer);

    // Starts at `x`, `y`, ends at `end_x`, `end_y`, in twips of the window. `row_height` is the height of a
    // line.
    void start(std::vector<std::string> paths, int x, int y, int end_x, int end_y, int row_height);
    // One tick. True at the last one: paths() may join the list.
    bool step();
    bool is_running() const { return timer_.enabled; }
    // Ends at once and hands over what was on its way.
    std::vector<std::string> land();
    const std::vector<std::string>& paths() const { return paths_; }

  private:
    control& caption_;
    timer_control& timer_;
    std::vector<std::string> paths_;
    double x_ = 0, y_ = 0;
    double step_x_ = 0, step_y_ = 0;
    int step_ = 0;
};

}  // namespace corvane
