#include "core/model/task_hover.h"

#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr int lifted = 10;  // twips
constexpr int sunk = 50;
constexpr int tip_distance = 10;
constexpr double line_share = 0.7;  // part of tip_line_height that each of several lines takes

control& picture_of(Tavrel& form, int number) {
    return *form.pictures[static_cast<std::size_t>(number)];
}

// Moves the picture off its resting place, by the same distance to the right and down.
void shift(Tavrel& form, int number, int distance) {
    const auto index = static_cast<std::size_t>(number);
    rectangle& place = form.pictures[index]->place;
    place.left = form.hover.pic_left[index] + distance;
    place.top = form.hover.pic_top[index] + distance;
}

}  // namespace

void keep_resting_places(Tavrel& form) {
    for (std::size_t number = 1; number < form.pictures.size(); ++number) {
        form.hover.pic_left[number] = form.pictures[number]->place.left;
        form.hover.pic_top[number] = form.pictures[number]->place.top;
    }
}

void tip_show(Tavrel& form, std::string_view words, const rectangle& owner) {
    const std::string_view shown = trimmed(words);
    control& tip = form.tiptext;
    if (shown.empty() || (tip.visible && tip.text == shown)) return;
    tip.text = shown;
    int top = owner.top + owner.height + tip_distance;
    int length = code_page_length(shown);
    rectangle& box = tip.place;
    if (length <= tip_max_chars) {
        box.height = form.hover.tip_line_height;
    } else {
        const int lines = length / tip_max_chars + (length % tip_max_chars != 0 ? 1 : 0);
        box.height = static_cast<int>(form.hover.tip_line_height * lines * line_share);
        length = tip_max_chars;
    }
    box.width = form.hover.tip_char_width * length;
    if (top + 1.5 * box.height > form.place.height) top = owner.top - box.height - tip_distance;
    int left = owner.left;
    if (left + box.width > form.place.width) left = owner.left + owner.width - box.width;
    box.left = left;
    box.top = top;
    tip.visible = true;
}

void picture_moved(Tavrel& form, int number, int x, int y) {
    hover_state& hover = form.hover;
    if (hover.pic_pressed != 0) return;
    control& picture = picture_of(form, number);
    if (x < 0 || y < 0 || x > picture.place.width || y > picture.place.height) {
        hover.captured.clear();
        shift(form, number, 0);
        form.tiptext.visible = false;
        hover.tip_shown = 0;
        return;
    }
    if (hover.tip_shown != 0) return;
    hover.captured = picture.name();
    shift(form, number, lifted);
    if (form.state.tip_help_on == 0) return;
    tip_show(form, picture.tooltip, picture.place);
    hover.tip_shown = -1;
}

void picture_pressed(Tavrel& form, int number) {
    shift(form, number, sunk);
    form.hover.pic_pressed = 1;
}

void picture_released(Tavrel& form, int number) {
    shift(form, number, 0);
    form.hover.pic_pressed = 0;
}

void button_moved(Tavrel& form, control& button, bool inside) {
    if (inside)
        form.hover.captured = button.name();
    else
        form.hover.captured.clear();
    button.back_colour = inside ? lit_button : button_face;
}

}  // namespace corvane
