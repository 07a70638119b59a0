// How many columns a text takes where every character has one or two of them, as a Chinese one has. Used by
// whatever sets texts below each other.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvane {

// Combining signs take none, and each byte that is no UTF-8 takes one.
std::size_t text_width(std::string_view text);

}  // namespace corvane
