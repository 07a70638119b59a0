#include "console/script_input.h"

#include <string>

#include "console/find_control.h"
#include "console/script_words.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

// What may follow the place of an act, in any order.
struct act_keys {
    int button = list_pointer::left_button;
    bool shift = false;
    bool ctrl = false;
};

bool take_keys(std::string_view rest, act_keys& keys) {
    while (!rest.empty()) {
        const std::string_view word = take_word(rest);
        if (word == "right")
            keys.button = list_pointer::right_button;
        else if (word == "shift")
            keys.shift = true;
        else if (word == "ctrl")
            keys.ctrl = true;
        else if (word != "left")
            return false;
    }
    return true;
}

const char* handler_of(std::string_view act) {
    if (act == "down") return "_MouseDown";
    if (act == "click") return "_Click";
    return act == "double" ? "_DblClick" : nullptr;
}

// The middle of a column, in the twips that locate_column reads.
int middle_of(const list_view& list, int column) {
    int left = 0;
    for (int before = 0; before < column; ++before)
        left += list.columns()[static_cast<std::size_t>(before)].width;
    return left + list.columns()[static_cast<std::size_t>(column)].width / 2;
}

}  // namespace

// What the names of a form's handlers begin with.
std::string script_input::handler_prefix(const form_model& form) const {
    return &form == &program_.main_form() ? std::string() : form.name() + ".";
}

// CONTROL ACT ROW COLUMN [BUTTON] [shift] [ctrl]
bool script_input::mouse(std::string_view arguments) {
    form_model* form = nullptr;
    control* target = find_control(program_, take_word(arguments), &form);
    if (target == nullptr) return false;
    const std::string handler = handler_prefix(*form) + target->name();
    if (target->kind() == control_kind::list_box)
        return mouse_on_box(static_cast<list_box&>(*target), handler, arguments);
    if (target->kind() == control_kind::list_view)
        return mouse_on_view(static_cast<list_view&>(*target), handler, arguments);
    return false;
}

// Selects the row alone, with ctrl turns its selection round; then runs the handler, if there is one.
bool script_input::mouse_on_box(list_box& list, std::string_view handler, std::string_view arguments) {
    const char* act = handler_of(take_word(arguments));
    const std::int64_t row = parse_number(take_word(arguments));
    take_word(arguments);
    act_keys keys;
    if (act == nullptr || row < 1 || row > list.row_count() || !take_keys(arguments, keys)) return false;
    const auto index = static_cast<std::size_t>(row - 1);
    if (keys.ctrl)
        list.select(index, !list.rows()[index].selected);
    else
        list.select_only(index);
    Tavrel& form = program_.main_form();
    form.list_event = {};
    form.list_event.button = keys.button;
    form.run(std::string(handler) + act);
    return true;
}

// Row 0 is a place below the rows, which selects nothing.
bool script_input::mouse_on_view(list_view& list, std::string_view handler, std::string_view arguments) {
    const char* act = handler_of(take_word(arguments));
    const std::int64_t row = parse_number(take_word(arguments));
    const std::int64_t column = parse_number(take_word(arguments));
    act_keys keys;
    if (act == nullptr || row < 0 || row > list.row_count() || column < 0 || column >= list.column_count() ||
        !take_keys(arguments, keys))
        return false;
    Tavrel& form = program_.main_form();
    list.selected_row = static_cast<std::int32_t>(row);
    form.list_event = {};
    form.list_event.button = keys.button;
    form.list_event.shift = keys.shift;
    form.list_event.ctrl = keys.ctrl;
    form.list_event.x = middle_of(list, static_cast<int>(column));
    form.run(std::string(handler) + act);
    form.popup_menu.clear();
    return true;
}

// CONTROL COLUMN
bool script_input::header(std::string_view arguments) {
    form_model* owner = nullptr;
    control* target = find_control(program_, take_word(arguments), &owner);
    const std::int64_t column = parse_number(take_word(arguments));
    if (target == nullptr || target->kind() != control_kind::list_view) return false;
    if (column < 0 || column >= static_cast<list_view*>(target)->column_count()) return false;
    Tavrel& form = program_.main_form();
    form.list_event = {};
    form.list_event.column = static_cast<int>(column);
    return form.run(handler_prefix(*owner) + target->name() + "_ColumnClick");
}

// CONTROL CODE [shift] [ctrl]
bool script_input::key(std::string_view arguments) {
    form_model* owner = nullptr;
    control* target = find_control(program_, take_word(arguments), &owner);
    const std::int64_t code = parse_number(take_word(arguments));
    act_keys keys;
    if (target == nullptr || !take_keys(arguments, keys)) return false;
    Tavrel& form = program_.main_form();
    form.list_event = {};
    form.list_event.key_code = static_cast<int>(code);
    form.list_event.shift = keys.shift;
    form.list_event.ctrl = keys.ctrl;
    return form.run(handler_prefix(*owner) + target->name() + "_KeyDown");
}

}  // namespace corvane
