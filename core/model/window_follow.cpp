#include "core/model/window_follow.h"

#include <string_view>

#include "core/model/main_form.h"
#include "core/settings/environment_table.h"

namespace corvane {

namespace {

constexpr int moving_interval = 1;  // milliseconds
constexpr int resting_interval = 100;

// The settings of a window stand on five lines that follow one another: left, top, width, height, follow
// word.
struct follower {
    const char* window;
    int first_line;
    bool word_is_written;  // by Timer2; the word of the others has no writer
};

constexpr std::array<follower, following_windows> followers = {{
    {"目录选择", 64, true},
    {"tree_dir", 59, false},
    {"sleep_music", 69, true},
    {"Form_no_dire", 79, true},
    {"frmAbout", 84, false},
    {"shut_msg", 89, false},
}};
constexpr int follow_word = 4;      // its distance from first_line
constexpr int selection_word = 68;  // follow word of 目录选择

// Moves the window by the differences; false when it does not follow.
bool move_along(Tavrel& form, std::size_t index, int right, int down) {
    const follower& line = followers[index];
    form_model* window = form.child(line.window);
    if (window == nullptr || form.follow.placed[index] == 0 || window->window != window_state::normal)
        return false;
    const int word = line.first_line + follow_word;
    if (line.word_is_written)
        set_setting_number(form.state, word, 1);
    else if (setting_number(form.state, word) != 1)
        return false;
    form.yield();
    window->place.left += right;
    window->place.top += down;
    form.yield();
    return true;
}

void remember_main_form(Tavrel& form, const rectangle& place) {
    form.follow.last_left = place.left;
    form.follow.last_top = place.top;
    form.follow.last_height = place.height;
    form.follow.last_width = place.width;
    form.follow.follow_stamp = form.outside.screen.seconds();
}

// A stored coordinate that leaves less than a quarter of the window on the screen becomes 0.
int on_screen(int coordinate, int size, int screen) {
    return coordinate < 0 || screen - coordinate < size / 4 ? 0 : coordinate;
}

void take_stored_place(Tavrel& form, form_model& window, int first_line) {
    const rectangle stored = {
        setting_number(form.state, first_line), setting_number(form.state, first_line + 1),
        setting_number(form.state, first_line + 2), setting_number(form.state, first_line + 3)};
    if (stored.width < 2 || stored.height < 2) return;
    const screen_size screen = form.outside.screen.screen();
    window.place = {on_screen(stored.left, stored.width, screen.width),
                    on_screen(stored.top, stored.height, screen.height), stored.width, stored.height};
}

}  // namespace

void Timer2_Timer(Tavrel& form) {
    follow_state& follow = form.follow;
    if (follow.ticking) return;
    set_setting_number(form.state, selection_word, 1);
    rectangle now = {follow.last_left, follow.last_top, follow.last_width, follow.last_height};
    const rectangle before = now;
    if (form.window == window_state::normal) now = form.place;
    if (now == before) {
        if (form.outside.screen.seconds() - follow.follow_stamp > 1) form.Timer2.interval = resting_interval;
        return;
    }
    follow.ticking = true;
    const int right = now.left - before.left + now.width - before.width;
    const int down = now.top - before.top;
    for (std::size_t index = 0; index < followers.size(); ++index) move_along(form, index, right, down);
    follow.ticking = false;
    remember_main_form(form, now);
    form.Timer2.interval = moving_interval;
}

void open_following(Tavrel& form, form_model& window) {
    form.Timer2.enabled = false;
    remember_main_form(form, form.place);
    for (std::size_t index = 0; index < followers.size(); ++index) {
        if (window.name() != followers[index].window) continue;
        if (window.window != window_state::minimised && form.follow.placed[index] != 0) continue;
        form.follow.placed[index] = -1;
        take_stored_place(form, window, followers[index].first_line);
    }
    form.Timer2.enabled = true;
}

void store_followers(Tavrel& form) {
    for (std::size_t index = 0; index < followers.size(); ++index) {
        const form_model* window = form.child(followers[index].window);
        if (window != nullptr && form.follow.placed[index] != 0) {
            const int line = followers[index].first_line;
            set_setting_number(form.state, line, window->place.left);
            set_setting_number(form.state, line + 1, window->place.top);
            set_setting_number(form.state, line + 2, window->place.width);
            set_setting_number(form.state, line + 3, window->place.height);
        }
        form.follow.placed[index] = 0;
    }
}

}  // namespace corvane
