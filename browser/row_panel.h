// The panel that shows the two paths of a row with their dates and lengths.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

// Fills and shows Frame4 for a row, counted from 1.
void show_row_panel(Tavrel& form, std::int32_t row);

}  // namespace corvane
