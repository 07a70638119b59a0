// Where the parts of the main form stand, in twips: what a resize does, and the splitter between the left
// list and the list view. The front end says how large the inside of the form is.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

struct main_layout {
    static constexpr std::int32_t no_drag = 0x7FFFFFFF;

    int inner_width = 0;
    int inner_height = 0;
    int design_width = 0;  // size of the form before any stored place is applied
    int design_height = 0;
    std::int32_t split_last_x = no_drag;
};

// The border between listleft and ListView1 after start: listleft keeps its width, ListView1 begins at its
// right edge.
void lay_out_halves(Tavrel& form);

// Keeps the form on the screen and shares out its inside. A maximised or minimised form is left to the
// system.
void Form_Resize(Tavrel& form);

// `x` is the pointer's position along the form. Moving without a press does nothing.
void Splitter_MouseDown(Tavrel& form, int x);
void Splitter_MouseMove(Tavrel& form, int x);
// Both halves take the new border.
void Splitter_MouseUp(Tavrel& form);

}  // namespace corvane
