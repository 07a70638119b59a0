// The preview beside the list: whether it is shown, which is remembered, and what it is asked for a row. What
// it shows is read by browser/file_preview.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class Tavrel;

// The menu entry "预览": shows the preview, or hides it, and remembers that.
void preview_m_Click(Tavrel& form);
// As it was left; a file that is none counts as hidden.
void read_preview_shown(Tavrel& form);
bool preview_shown(const Tavrel& form);

struct preview_question {
    std::vector<std::string> paths;         // of the row: one or two, or none
    std::vector<std::string> lengths;       // what the row says of each, empty where it says nothing
    std::vector<std::string> other_copies;  // other rows' paths of the same content
    bool more_copies = false;               // there are others beyond those
};

// For a row from 1 on; empty for another one. Looks through the whole list for copies: some milliseconds for
// a million rows.
preview_question preview_of_row(const Tavrel& form, std::int32_t row);

}  // namespace corvane
