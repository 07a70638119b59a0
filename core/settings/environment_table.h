// The lines of 'Tavrel环境.txt': line number, type, setting and default, in one table that reader and writer
// share. A value is known by its line alone.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/settings/settings.h"

namespace corvane {

constexpr int environment_lines = 122;

// The type of the member is the type of the line: text, int16, int32 or date (double). An array takes as many
// lines as it has elements.
using setting_member =
    std::variant<std::string settings::*, std::int16_t settings::*, std::int32_t settings::*,
                 double settings::*, std::array<std::int32_t, 5> settings::*,
                 std::array<std::string, 29> settings::*>;

struct environment_entry {
    int line;  // from 1; the first line of an array
    const char* name;
    setting_member member;
    const char* initial;  // what a fresh file holds
};

std::span<const environment_entry> environment_table();

// The text of a line as it stands on disk, without its end.
std::string environment_text(const settings& values, int line);
// Takes a line into its setting. False for a number outside the type or a text that is no date: the setting
// keeps its value.
bool take_environment_line(settings& values, int line, std::string_view text);
// Every setting as a fresh file has it.
void set_defaults(settings& values);

// A numeric setting by its line; writing cuts the number to the range of the line's type.
std::int32_t setting_number(const settings& values, int line);
void set_setting_number(settings& values, int line, std::int32_t number);

}  // namespace corvane
