// What the pointer does to the task pictures and to the buttons of child windows: the floating tip, the
// picture that lifts under the pointer and sinks under a press. Places are in twips of the main form.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/model/controls.h"

namespace corvane {

class Tavrel;

constexpr int tip_max_chars = 40;  // bytes of code page 936 in a line of the tip
constexpr std::int32_t lit_button = 10025880;

struct hover_state {
    std::int16_t tip_shown = 0;  // -1: the tip of the picture under the pointer is up
    // Size of one character; the front end takes it from its font at start.
    std::int16_t tip_char_width = 90;
    std::int16_t tip_line_height = 180;
    std::int32_t pic_pressed = 0;
    std::array<int, 9> pic_left{};  // resting places of Picture1 to Picture8; 0 is not used
    std::array<int, 9> pic_top{};
    std::string captured;  // name of the control that takes all moves of the pointer; empty: none
};

// The present places of Picture1 to Picture8 become their resting places.
void keep_resting_places(Tavrel& form);

// Opens the tip below the control that stands at `owner`, or above it where there is no room.
void tip_show(Tavrel& form, std::string_view words, const rectangle& owner);

// Picture `number`, 1 to 8. `x` and `y` count from the picture's corner.
void picture_moved(Tavrel& form, int number, int x, int y);
void picture_pressed(Tavrel& form, int number);
void picture_released(Tavrel& form, int number);

// The pointer moves over a button of a child window, or leaves it.
void button_moved(Tavrel& form, control& button, bool inside);

}  // namespace corvane
