#include "core/model/main_layout.h"

#include <algorithm>

#include "core/model/main_form.h"

namespace corvane {

namespace {

void keep_on_screen(Tavrel& form) {
    const screen_size screen = form.outside.screen.screen();
    if (form.place.left < 0) form.place.left = 1;
    if (form.place.top < 0) form.place.top = 1;
    if (screen.width <= 0 || screen.height <= 0) return;
    form.place.width = std::min(form.place.width, screen.width);
    form.place.height = std::min(form.place.height, screen.height - form.StatusBar1.place.height);
}

void place_list_view(Tavrel& form) {
    if (form.layout.inner_width <= 0) return;
    rectangle& list = form.ListView1.place;
    list.left = form.Splitter.place.left + form.Splitter.place.width;
    list.top = form.listleft.place.top;
    list.width = std::max(0, form.layout.inner_width - list.left);
    list.height = form.listleft.place.height;
    form.Frame4.place.left = list.left;
    form.Frame4.place.width = list.width;
}

}  // namespace

void lay_out_halves(Tavrel& form) {
    const rectangle& left = form.listleft.place;
    form.Splitter.place.left = left.left + left.width;
    form.Splitter.place.top = left.top;
    form.Splitter.place.height = left.height;
    place_list_view(form);
}

void Form_Resize(Tavrel& form) {
    if (form.window == window_state::normal) keep_on_screen(form);
    const int status_height = form.StatusBar1.place.height;
    rectangle& left = form.listleft.place;
    left.height = form.layout.inner_height - left.top - status_height + 80;
    left.width = form.layout.inner_width - 50;
    form.RichTextBox2.place = left;
    rectangle& bar = form.pic_gressbar1.place;
    bar.top = form.StatusBar1.place.top - bar.height + 50;
    bar.left = left.left;
    bar.width = left.width - 50;
    rectangle& cancel = form.Command28.place;
    cancel.top = left.top + left.height - bar.height - cancel.height - 100;
    cancel.left = left.left + left.width - cancel.width;
    form.Splitter.place.height = left.height;
    place_list_view(form);
    form.call(handlers::lay_out_list);
}

void Splitter_MouseDown(Tavrel& form, int x) {
    form.layout.split_last_x = x;
}

void Splitter_MouseMove(Tavrel& form, int x) {
    std::int32_t& last = form.layout.split_last_x;
    if (last == main_layout::no_drag) return;
    form.Splitter.place.left += x - last;
    last = x;
}

void Splitter_MouseUp(Tavrel& form) {
    form.layout.split_last_x = main_layout::no_drag;
    form.listleft.place.width = form.Splitter.place.left - form.listleft.place.left;
    place_list_view(form);
    form.call(handlers::lay_out_list);
}

}  // namespace corvane
