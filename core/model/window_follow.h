// Child windows that keep their distance to the right edge of the main form when it moves, and where they
// stand when they open. Positions are in twips.
#pragma once

#include <array>
#include <cstdint>

namespace corvane {

class Tavrel;
class form_model;

constexpr std::size_t following_windows = 6;

struct follow_state {
    // By the place of the window in the table of window_follow.cpp: it has been placed once.
    std::array<std::int16_t, following_windows> placed{};
    int last_left = 0;  // of the main form
    int last_top = 0;
    int last_height = 0;
    int last_width = 0;
    double follow_stamp = 0;  // time of the last move, seconds
    bool ticking = false;     // Timer2 runs and yields; a second tick inside it would move a window twice
};

// One tick of Timer2.
void Timer2_Timer(Tavrel& form);

// A child window opens: it takes its stored place, moved onto the screen, if it has one, and follows from now
// on.
void open_following(Tavrel& form, form_model& window);

// The main form closes: the place of every window that has been placed goes into the settings.
void store_followers(Tavrel& form);

}  // namespace corvane
