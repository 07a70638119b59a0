#include "core/tasks/progress.h"

#include <cmath>

#include "core/model/main_form.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

void set_task_state(Tavrel& form, bool enabled) {
    form.state.tasks_locked = !enabled;
    for (std::size_t number = 1; number < form.pictures.size(); ++number) {
        control& picture = *form.pictures[number];
        picture.enabled = enabled && form.has_handler(picture.name() + "_Click");
    }
    form.find("文件操作_m")->enabled = enabled;
    form.find("目录操作_m")->enabled = enabled;
    form.find("文件清单_M")->enabled = enabled && form.has_handler("文件清单_M");
}

}  // namespace

void lock_tasks(Tavrel& form) {
    set_task_state(form, false);
}
void unlock_tasks(Tavrel& form) {
    set_task_state(form, true);
}

bool tasks_locked(const Tavrel& form) {
    return form.state.tasks_locked;
}

std::int32_t tick_seconds(Tavrel& form) {
    return static_cast<std::int32_t>(std::nearbyint(form.outside.screen.seconds()));
}

void bar_colours(Tavrel& form, std::int32_t back, std::int32_t start, std::int32_t end) {
    form.pic_gressbar1.set_colours(back, start, end);
}

void bar_scale(Tavrel& form, std::int32_t total) {
    form.pic_gressbar1.set_scale(total);
}

void bar_draw(Tavrel& form, std::int32_t position) {
    form.yield();
    form.pic_gressbar1.draw(position);
}

void show_elapsed(Tavrel& form) {
    form.panel(6, format_elapsed(form.outside.screen.seconds() - form.state.base_time, 1));
}

void pointer_glide(Tavrel& form, const std::string& form_name, const std::string& control) {
    user_interface& screen = form.outside.screen;
    const auto target = screen.centre_of(form_name, control);
    const auto start = screen.pointer();
    if (!target || !start) return;
    constexpr int steps = 40;
    for (int step = 1; step <= steps; ++step) {
        screen.wait(0.01);
        screen.set_pointer({start->x + (target->x - start->x) * step / steps,
                            start->y + (target->y - start->y) * step / steps});
    }
    screen.set_pointer(*target);
}

void offer_cancel(Tavrel& form, const std::string& task) {
    form.Command28.caption = "取消[" + task + "]";
    form.Command28.visible = true;
    form.state.cancel_task = form.state.going_down;
}

void ask_for_shutdown(Tavrel& form) {
    std::string question = "  运行完毕后,";
    question.append(form.state.shutdown_action_text).append("同意吗(Y/N)?");
    if (!form.confirm(question)) form.state.shutdown_after_task = 0;
}

bool finish_file(Tavrel& form, line_writer& writer) {
    writer.flush();
    form.work_aside([&writer] { writer.settle(); });
    return writer.finish();
}

void report_write_failure(Tavrel& form, const std::string& path, const std::string& reason) {
    const std::string words = path + "\r\n" + reason;
    if (form.state.going_down) form.state.unsaved = words;
    form.complain(words);
}

}  // namespace corvane
