// Editing one option list in the options window: a check list over its file and its array of the run state.
// Used by options_form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/model/controls.h"
#include "core/tasks/option_lists.h"

namespace corvane {

class Tavrel;

class option_list_edit {
  public:
    // Both outlive the editor.
    option_list_edit(Tavrel& main, list_box& rows, option_list list)
        : main_(main), rows_(rows), list_(list) {}

    // The rows become those of the run state's array.
    void fill();
    // The run state becomes that of the rows; the file stays.
    void apply();
    // apply(), and the file becomes that of the rows. Returns what went wrong, with the path, or an empty
    // text.
    std::string save();
    // Adds a checked row for each text, as it is. At the capacity of the list the rest is left out, which the
    // user is told once.
    void add(const std::vector<std::string>& texts);
    // One type as the user typed it: dot in front, in small letters, once.
    void add_typed(std::string type);
    // Types dropped as lines of text, each up to its first blank.
    void add_lines(std::string_view lines);
    void remove_selected();
    void check_all(bool checked);

    // The active string of the run state as it stands.
    const std::string& active() const;

  private:
    Tavrel& main_;
    list_box& rows_;
    option_list list_;
};

// Up to the first blank.
std::string first_word(std::string_view text);

}  // namespace corvane
