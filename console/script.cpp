#include "console/script.h"

#include <algorithm>
#include <cstdio>

#include "console/find_control.h"
#include "console/script_words.h"
#include "console/typed_path.h"
#include "core/model/state_table.h"
#include "core/text/text_format.h"

namespace corvane {

int script_runner::run(std::istream& lines) {
    screen_.set_unanswered([this] {
        status_ = status_unanswered;
        program_.main_form().state.quit_requested = -1;
    });
    std::string line;
    for (int number = 1; status_ == status_done && !screen_.ended() && std::getline(lines, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!run_line(line, number) && status_ == status_done) status_ = status_usage;
        output_.flush();
    }
    program_.close();
    output_.flush();
    if (status_ == status_done && screen_.failure_shown()) status_ = status_failed;
    return status_;
}

bool script_runner::run_line(std::string_view line, int number) {
    std::string_view rest = line;
    const std::string_view command = take_word(rest);
    if (command.empty() || command.front() == '#') return true;
    if (command == "select") return select(rest) || complain(number, "wrong path", rest);
    if (command == "call") {
        const std::string_view handler = take_word(rest);
        return program_.main_form().run(handler) || complain(number, "unknown handler", handler);
    }
    if (command == "answer") {
        screen_.queue_answer(std::string(rest));
        return true;
    }
    if (command == "set") {
        const std::string_view name = take_word(rest);
        return set(name, rest) || complain(number, "unknown control", name);
    }
    if (command == "mouse") return input_.mouse(rest) || complain(number, "wrong control, act or row", rest);
    if (command == "header") return input_.header(rest) || complain(number, "wrong control or column", rest);
    if (command == "key") return input_.key(rest) || complain(number, "wrong control", rest);
    if (command == "at_yield") {
        const std::int64_t count = parse_number(take_word(rest));
        screen_.at_yield(count, [this, act = std::string(rest), number] {
            if (!run_line(act, number)) {
                status_ = status_usage;
                program_.main_form().state.quit_requested = -1;
            }
        });
        return true;
    }
    if (command == "show") return show(rest) || complain(number, "unknown control or value", rest);
    if (command == "quit") {
        program_.close();
        return true;
    }
    return complain(number, "unknown command", command);
}

bool script_runner::complain(int number, std::string_view what, std::string_view name) {
    std::fprintf(stderr, "line %d: %.*s: %.*s\n", number, static_cast<int>(what.size()), what.data(),
                 static_cast<int>(name.size()), name.data());
    return false;
}

bool script_runner::select(std::string_view path) {
    if (path.empty()) return false;
    directory_form& window = program_.directory_window();
    if (!window.visible) program_.main_form().run("Picture1_Click");
    window.add_paths({absolute_path(path)});
    window.Command34_Click();
    return true;
}

// The value of a list box is "ROW 0" or "ROW 1": the check mark of a row.
bool script_runner::set(std::string_view name, std::string_view value) {
    form_model* form = nullptr;
    control* target = find_control(program_, name, &form);
    if (target == nullptr) return false;
    if (target->kind() == control_kind::list_box) {
        auto& list = static_cast<list_box&>(*target);
        const std::int64_t row = parse_number(take_word(value));
        if (row < 1 || row > list.row_count()) return false;
        list.check(static_cast<std::size_t>(row - 1), parse_number(value) != 0);
        return true;
    }
    if (target->kind() == control_kind::check_box || target->kind() == control_kind::menu_item ||
        target->kind() == control_kind::scroll_bar)
        target->value = static_cast<int>(parse_number(value));
    else
        target->text = value;
    const bool is_main = form == &program_.main_form();
    const std::string handler = (is_main ? std::string() : form->name() + ".") + target->name();
    program_.main_form().run(handler + (target->kind() == control_kind::check_box ? "_Click" : "_Change"));
    return true;
}

void script_runner::property(std::string_view name, std::string_view key, std::string_view value) {
    output_.record({name, key, value});
}

void script_runner::show_control(std::string_view name, const control& shown) {
    if (!shown.caption.empty()) property(name, "caption", shown.caption);
    if (!shown.text.empty() || shown.kind() == control_kind::text_box) property(name, "text", shown.text);
    if (shown.kind() == control_kind::check_box || shown.kind() == control_kind::menu_item ||
        shown.kind() == control_kind::scroll_bar || shown.kind() == control_kind::progress_bar)
        property(name, "value", std::to_string(shown.value));
    if (shown.kind() == control_kind::text_pane)
        property(name, "file", static_cast<const text_pane&>(shown).path());
    property(name, "tooltip", shown.tooltip);
    property(name, "visible", shown.visible ? "1" : "0");
    property(name, "enabled", shown.enabled ? "1" : "0");
}

void script_runner::show_list_box(const list_box& list) {
    output_.record({"rows", std::to_string(list.rows().size())});
    int number = 0;
    for (const list_box::row& row : list.rows())
        output_.record(
            {std::to_string(++number), row.selected ? "1" : "0", row.checked ? "1" : "0", row.text});
}

void script_runner::show_list_view(const list_view& list) {
    output_.record({"rows", std::to_string(list.row_count()), "list_mode",
                    std::to_string(program_.main_form().state.list_mode), "visible",
                    list.visible ? "1" : "0"});
    std::string line;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        line = std::to_string(row);
        for (int column = 1; column < list.column_count(); ++column) {
            append_field(line += '\t', list.cell(row, column));
            line += '\t' + std::to_string(list.colour(row, column));
        }
        output_.line(line);
    }
}

bool script_runner::show(std::string_view name) {
    if (const control* shown = find_control(program_, name, nullptr)) {
        switch (shown->kind()) {
            case control_kind::list_box:
                show_list_box(static_cast<const list_box&>(*shown));
                break;
            case control_kind::list_view:
                show_list_view(static_cast<const list_view&>(*shown));
                break;
            case control_kind::status_bar:
                for (int number = 1; number <= status_bar::panel_count; ++number)
                    output_.record(
                        {std::to_string(number), static_cast<const status_bar&>(*shown).panel(number)});
                break;
            default:
                show_control(name, *shown);
        }
        return true;
    }
    const std::optional<std::string> value = state_value(program_.main_form().state, name);
    if (!value) return false;
    output_.record({name, *value});
    return true;
}

}  // namespace corvane
