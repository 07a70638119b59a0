// Bytes of the disk as text of other languages: JSON, CSV, URLs, HTML, and times as ISO 8601 has them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// A JSON string with its quotes. A byte that belongs to no UTF-8 letter becomes U+FFFD.
void append_json_text(std::string& out, std::string_view bytes);

// Every byte but letters and digits of ASCII and "-._~/" as % and two digits: read back, it is the same
// bytes.
void append_percent_text(std::string& out, std::string_view bytes);

// A field of RFC 4180, in quotes where it needs them; the bytes as they are.
void append_csv_field(std::string& out, std::string_view bytes);

// A text of the program as HTML, also inside of an attribute in double quotes. A mapped byte is the sign that
// it is on the disk. What is no UTF-8, shows nothing, or turns the direction of writing stands there by its
// number: <i>\xFF</i>, <i>\x0A</i>, <i>U+202E</i>.
void append_html_text(std::string& out, std::string_view text);

// "2026-03-04T05:06:07Z", in UTC, of nanoseconds since 1970.
std::string iso_time(std::int64_t nanoseconds);

}  // namespace corvane
