// The program's own texts in another language. Models, stored files and the console keep their Chinese; a
// front end asks here at the moment when it shows a text. The table drives it: one row a text.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

// A text and what it is called in the other language. Both sides have the same holes in the same order: "{}"
// for any run of characters, which is taken over as it is, "{n}" for a figure, "{t}" for a text that is
// translated itself. A row that begins with a count says so: a bare path is a line, too, and may end like it.
struct translation_row {
    std::string_view text;
    std::string_view translated;
};

class translation {
  public:
    // The rows outlive the object. A text that several patterns fit goes to the one with the longest fixed
    // beginning.
    explicit translation(std::initializer_list<std::span<const translation_row>> tables);

    // A whole text of the table, or line by line. "(&X)" at the end of a caption becomes a mark before that
    // letter. What no row fits is given back as it stands.
    std::string translated(std::string_view text) const;

  private:
    struct pattern {
        std::vector<std::string_view> pieces;  // fixed texts around the holes
        std::vector<char> holes;               // 0, 'n' or 't'
        std::string_view translated;
    };

    bool translate_line(std::string_view line, std::string& out) const;
    bool translate_bare(std::string_view words, std::string& out) const;
    bool fit(const pattern& candidate, std::string_view words, std::string& out) const;
    void add_pattern(const translation_row& row);

    std::unordered_map<std::string_view, std::string_view> whole_;
    std::vector<pattern> patterns_;  // longest beginning first, then most fixed text
};

// True for bytes of CJK letters and of full-width signs.
bool holds_chinese(std::string_view text);

// The table of English, in parts.
std::span<const translation_row> english_windows();
std::span<const translation_row> english_menus();
std::span<const translation_row> english_messages();
std::span<const translation_row> english_reports();
std::span<const translation_row> english_status();
// All of them.
translation english();

}  // namespace corvane
