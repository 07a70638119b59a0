#include "power/sleep_form.h"

#include <algorithm>
#include <string>

#include "core/model/main_form.h"
#include "core/model/window_handlers.h"
#include "core/tasks/environment.h"
#include "core/tasks/help.h"
#include "core/text/text_format.h"
#include "power/shutdown.h"
#include "power/warning_form.h"

namespace corvane {

namespace {

constexpr int minutes_of_day = 1440;
constexpr std::int32_t seconds_of_day = 86'400;
constexpr int second = 1000;                 // milliseconds
constexpr std::int32_t usual_warning = 180;  // seconds
constexpr std::int32_t open_seconds = 5;     // of a countdown before its window is minimised
constexpr int longest_warning = 60;          // minutes
constexpr int longest_delay = 1'000'000;     // minutes; its seconds are a number still
constexpr int at_the_end_time = 2;           // shutdown_after_task
constexpr int topic = 41;

constexpr const char* action_captions[] = {"停止播放", "退出程序", "重启WINDOWS", "重启计算机", "关机"};
constexpr const char* form_captions[] = {"不关机", "查找完关机", "定时关机"};
constexpr const char* command_captions[] = {"",     "计时开始", "取消计时", "初始",
                                            "试验", "电源选项", "帮助",     "确定"};

std::string clock_text(const local_time& time) {
    const auto two_digits = [](int number) { return (number < 10 ? ":0" : ":") + std::to_string(number); };
    return std::to_string(time.hour) + two_digits(time.minute) + two_digits(time.second);
}

int minute_of_day(const local_time& time) {
    return time.hour * 60 + time.minute;
}

std::int32_t second_of_day(const local_time& time) {
    return minute_of_day(time) * 60 + time.second;
}

}  // namespace

sleep_form::sleep_form(Tavrel& main, warning_form& warning, shutdown& end)
    : form_model("sleep_music"),
      Text2(add<control>(control_kind::text_box, "Text2")),
      Label9(add<control>(control_kind::label, "Label9")),
      Text_h(add<control>(control_kind::text_box, "Text_h")),
      Text_m(add<control>(control_kind::text_box, "Text_m")),
      VScroll1(add<range_control>(control_kind::scroll_bar, "VScroll1", 0, 24)),
      VScroll2(add<range_control>(control_kind::scroll_bar, "VScroll2", 0, 59)),
      Text3(add<control>(control_kind::text_box, "Text3")),
      Text1(add<control>(control_kind::text_box, "Text1")),
      VScroll3(add<range_control>(control_kind::scroll_bar, "VScroll3", 0, longest_warning)),
      Label4(add<control>(control_kind::label, "Label4")),
      pic_gressbar1(add<colour_bar>("pic_gressbar1")),
      Timer1(add<timer_control>("Timer1", second)),
      main_(main),
      warning_(warning),
      end_(end) {
    caption = "关机选择";
    help_context = 1041;
    const auto label = [this](const char* name, const char* words) {
        add<control>(control_kind::label, name).caption = words;
    };
    for (std::size_t i = 0; i < Option1.size(); ++i) {
        Option1[i] = &add<control>(control_kind::check_box, element_name("Option1", i));
        Option1[i]->caption = action_captions[i];
    }
    for (std::size_t i = 0; i < Option2.size(); ++i) {
        Option2[i] = &add<control>(control_kind::check_box, element_name("Option2", i));
        Option2[i]->caption = form_captions[i];
    }
    for (std::size_t i = 1; i < commands.size(); ++i) {
        commands[i] = &add<control>(control_kind::button, numbered_name("Command", i));
        commands[i]->caption = command_captions[i];
    }
    add<control>(control_kind::frame, "Frame1").caption = "关机类型";
    add<control>(control_kind::frame, "Frame2").caption = "关机形式";
    label("Label1", "终止时间");
    label("Label2", "延迟时间");
    label("Label3", "分钟");
    label("Label7", "提示时间");
    label("Label8", "剩余时间");
    Text3.text = "50";
    commands[3]->tooltip = "根据延迟时间调整终止时间";
    Text1.tooltip = VScroll3.tooltip = "关机前提示准备的时间(分钟)";
    pic_gressbar1.visible = false;
}

handler_table sleep_form::handlers() {
    handler_table table = {{"shut_computer", [this](Tavrel&) { open(); }}};
    window_handlers bind(table, *this);
    for (std::size_t i = 0; i < Option1.size(); ++i)
        bind(Option1[i]->name() + "_Click", [this, i] { choose_action(static_cast<int>(i)); });
    for (std::size_t i = 0; i < Option2.size(); ++i)
        bind(Option2[i]->name() + "_Click", [this, i] { choose_form(static_cast<int>(i)); });
    bind("VScroll1_Change", [this] { take_scroll(); });
    bind("VScroll2_Change", [this] { take_scroll(); });
    bind("VScroll3_Change", [this] { take_warning(VScroll3.value); });
    // Enter and a double click take a typed value over.
    for (const char* act : {"_KeyPress", "_DblClick"}) {
        bind(std::string("Text_h") + act, [this] { take_end_time(); });
        bind(std::string("Text_m") + act, [this] { take_end_time(); });
        bind(std::string("Text3") + act, [this] { take_delay(); });
        bind(std::string("Text1") + act, [this] { take_warning(whole_number(Text1.text)); });
    }
    bind("Command1_Click", [this] { Command1_Click(); });
    bind("Command2_Click", [this] { Command2_Click(); });
    bind("Command3_Click", [this] { Command3_Click(); });
    bind("Command4_Click", [this] { end_.shout_close(); });
    bind("Command5_Click", [this] {
        const outcome result = main_.outside.desktop.open_power_settings();
        if (!result) main_.complain(result.reason);
    });
    bind("Command6_Click", [this] { open_topic(main_, topic); });
    bind("Command7_Click", [this] { Form_Unload(); });
    bind("Form_Unload", [this] { Form_Unload(); });
    bind("Timer1_Timer", [this] { Timer1_Timer(); });
    return table;
}

void sleep_form::open() {
    if (!visible) load();
    open_following(main_, *this);
    window = window_state::normal;
    visible = true;
}

void sleep_form::load() {
    run_state& state = main_.state;
    state.countdown_done = 0;
    state.shut_delay_min = std::clamp(state.shut_delay_min, 1, longest_delay);
    Text3.text = std::to_string(state.shut_delay_min);
    for (std::size_t i = 0; i < Option1.size(); ++i)
        Option1[i]->value = state.shut_action == static_cast<int>(i);
    for (std::size_t i = 0; i < Option2.size(); ++i)
        Option2[i]->value = state.shutdown_after_task == static_cast<int>(i);
    if (state.shut_warn_sec == 0) state.shut_warn_sec = usual_warning;
    VScroll3.value = std::min(state.shut_warn_sec / 60, VScroll3.maximum);
    Text1.text = std::to_string(VScroll3.value);
    Text2.text = clock_text(main_.outside.screen.now());
    Label4.caption.clear();
    Label9.caption.clear();
    pic_gressbar1.visible = false;
    if (const char* words = end_action_words(state.shut_action)) state.shutdown_action_text = words;
    enable_countdown();
    end_time_from_delay();
    Timer1.enabled = true;
}

void sleep_form::Form_Unload() {
    countdown_running = false;
    Timer1.enabled = false;
    visible = false;
}

void sleep_form::choose_action(int index) {
    for (std::size_t i = 0; i < Option1.size(); ++i) Option1[i]->value = static_cast<int>(i) == index;
    main_.state.shut_action = static_cast<std::int16_t>(index);
    if (const char* words = end_action_words(index)) main_.state.shutdown_action_text = words;
}

void sleep_form::choose_form(int index) {
    for (std::size_t i = 0; i < Option2.size(); ++i) Option2[i]->value = static_cast<int>(i) == index;
    main_.state.shutdown_after_task = static_cast<std::int16_t>(index);
    enable_countdown();
}

void sleep_form::enable_countdown() {
    const bool timed = main_.state.shutdown_after_task == at_the_end_time;
    for (control* each : {&Text_h, &Text_m, &Text3, static_cast<control*>(&VScroll1),
                          static_cast<control*>(&VScroll2), commands[1]})
        each->enabled = timed;
    commands[2]->enabled = false;
}

void sleep_form::take_scroll() {
    int hours = VScroll1.value;
    int minutes = VScroll2.value;
    if (minutes > VScroll2.maximum) {
        minutes = 0;
        ++hours;
    } else if (minutes < 0) {
        minutes = VScroll2.maximum;
        --hours;
    }
    if (hours > VScroll1.maximum) hours = 0;
    if (hours < 0) hours = VScroll1.maximum;
    show_end_time(hours, minutes);
    delay_from_end_time();
}

void sleep_form::take_warning(int minutes) {
    VScroll3.value = std::clamp(minutes, VScroll3.minimum, VScroll3.maximum);
    Text1.text = std::to_string(VScroll3.value);
    main_.state.shut_warn_sec = VScroll3.value * 60;
}

void sleep_form::take_end_time() {
    show_end_time(std::clamp(whole_number(Text_h.text), VScroll1.minimum, VScroll1.maximum),
                  std::clamp(whole_number(Text_m.text), VScroll2.minimum, VScroll2.maximum));
    delay_from_end_time();
}

void sleep_form::take_delay() {
    main_.state.shut_delay_min = std::clamp(whole_number(Text3.text), 1, longest_delay);
    Text3.text = std::to_string(main_.state.shut_delay_min);
    end_time_from_delay();
}

void sleep_form::show_end_time(int hours, int minutes) {
    Text_h.text = std::to_string(hours);
    Text_m.text = std::to_string(minutes);
    VScroll1.value = std::clamp(hours, VScroll1.minimum, VScroll1.maximum);
    VScroll2.value = minutes;
}

void sleep_form::delay_from_end_time() {
    const int end = whole_number(Text_h.text) * 60 + whole_number(Text_m.text);
    int delay = end - minute_of_day(main_.outside.screen.now());
    if (delay < 0) delay += minutes_of_day;
    main_.state.shut_delay_min = delay;
    Text3.text = std::to_string(delay);
}

void sleep_form::end_time_from_delay() {
    int end = main_.state.shut_delay_min + minute_of_day(main_.outside.screen.now());
    if (end > minutes_of_day) end -= minutes_of_day;
    show_end_time(end / 60, end % 60);
}

void sleep_form::Command3_Click() {
    take_delay();
}

void sleep_form::Command1_Click() {
    run_state& state = main_.state;
    if (state.shut_delay_min == 0) return main_.inform("睡眠延迟时间=0, 请重新预定睡眠延迟时间");
    commands[2]->enabled = true;
    // A warning of an earlier countdown must not come to its end in this one.
    warning_.Form_Unload();
    const local_time now = main_.outside.screen.now();
    minimise_at = second_of_day(now);
    end_time_from_delay();
    if (state.shut_delay_min < 3) state.shut_warn_sec = state.shut_delay_min * 60;
    countdown_total = state.shut_delay_min * 60;
    pic_gressbar1.set_colours(255, 65408, 0xAAF0F0);
    pic_gressbar1.set_scale(countdown_total);
    pic_gressbar1.visible = true;
    state.countdown_done = 0;
    Label9.caption = clock_text(now);
    countdown_running = true;
    state.warn_shown = 0;
}

void sleep_form::Command2_Click() {
    run_state& state = main_.state;
    state.countdown_done = 0;
    countdown_running = false;
    choose_form(0);
    state.warn_done = 0;
    warning_.Form_Unload();
}

void sleep_form::Timer1_Timer() {
    if (!enabled || !Timer1.enabled) return;
    const local_time now = main_.outside.screen.now();
    Text2.text = clock_text(now);
    if (main_.state.shutdown_after_task == 0) return;
    if (main_.state.shutdown_after_task == at_the_end_time && countdown_running) count();
    if (minimise_at < 1) return;
    std::int32_t passed = second_of_day(now) - minimise_at;
    if (passed < 0) passed += seconds_of_day;
    if (passed < open_seconds) return;
    minimise_at = 0;
    window = window_state::minimised;
}

void sleep_form::count() {
    run_state& state = main_.state;
    ++state.countdown_done;
    if (state.countdown_done > countdown_total) return;
    pic_gressbar1.draw(state.countdown_done);
    const std::int32_t rest = countdown_total - state.countdown_done;
    Label4.caption = format_elapsed(rest, 1);
    if (rest >= state.shut_warn_sec || state.warn_shown) return;
    warning_.显示关机提示();
    state.warn_shown = -1;
}

}  // namespace corvane
