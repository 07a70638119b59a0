// Figures as text and back: elapsed times, sizes with units, the number forms of the data files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// Mode 0: h:m:s.c, mode 1: h:m:s, mode 2: h:m, without leading zeros; hours are not capped. A negative value
// is raised by 86,400 until it is not negative (a task that passed midnight).
std::string format_elapsed(double seconds, int mode);

// Scales `bytes` in place by its number of decimal digits: from 10^6 by 1024 " K", from 10^9 by 1024^2 " M",
// from 10^12 by 1024^3 " G". Returns the unit and stores it in `size_unit`. A value of 1 or less stays, the
// unit keeps its old text, and the returned text is empty.
std::string scale_size(double& bytes, std::string& size_unit);

// Rounded to a whole number, digits in groups of three; 0 gives an empty text ("###,###,###,###").
std::string group_digits(double number);
// The same, with "0" for nothing.
std::string group_count(double number);

// "17.4 KB": whole bytes below 1,024, else one decimal.
std::string short_size(double bytes);

// Parts from index 1; the text behind the last delimiter is one more part, also when empty. An empty text has
// no parts. Returns the number of parts.
int split_text(std::string_view text, std::string_view delimiter, std::vector<std::string>& parts);

// A number on a line of its own: a blank or the minus sign, the digits, one blank.
std::string number_line(std::int64_t number);

// Skips blanks, reads the leading number, 0 if there is none. A value outside the type becomes its limit.
std::int64_t parse_number(std::string_view text);
// The same for numbers with a fraction.
double parse_decimal(std::string_view text);

// The number rounded to a whole one, halves to the even neighbour, cut to the type's range.
std::int32_t whole_number(std::string_view text);

// Length in bytes of code page 936: one for ASCII and the euro sign, two for every other character.
int code_page_length(std::string_view text);

// The text without blanks at both ends.
std::string_view trimmed(std::string_view text);

// The text with a blank for each unit of a line break, as one line of a data file.
std::string one_line(std::string text);

// Line 1 of 相同文件.txt: the title, padded with blanks to 20 characters.
constexpr std::string_view padded_same_file_title() {
    return "内容相同文件清单            ";
}

// True when the text does not compare greater than a single blank.
bool is_blank(std::string_view text);

}  // namespace corvane
