// The run state by the stated names of its values, for the console.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

struct run_state;

// The value as text; an element of a column is "file_list(3)". Nothing for an unknown name or index.
std::optional<std::string> state_value(const run_state& state, std::string_view name);

}  // namespace corvane
