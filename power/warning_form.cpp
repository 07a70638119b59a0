#include "power/warning_form.h"

#include <algorithm>
#include <string>

#include "core/model/main_form.h"
#include "power/shutdown.h"

namespace corvane {

namespace {

constexpr int second = 1000;           // milliseconds
constexpr std::int32_t shortest = 60;  // seconds of a warning
constexpr int first_width = 5700;      // twips
constexpr int first_height = 2400;

}  // namespace

warning_form::warning_form(Tavrel& main, shutdown& end)
    : form_model("shut_msg"),
      Label1(add<control>(control_kind::label, "Label1")),
      ProgressBar1(add<range_control>(control_kind::progress_bar, "ProgressBar1", 0, 0)),
      Timer1(add<timer_control>("Timer1", 0)),
      main_(main),
      end_(end) {
    caption = "关机提示";
    help_context = 1041;
}

handler_table warning_form::handlers() {
    return {
        {"显示关机提示", [this](Tavrel&) { 显示关机提示(); }},
        {handlers::start_shutdown.text,
         [this](Tavrel& form) {
             显示关机提示();
             form.state.warn_shown = -1;
         }},
        {"shut_msg.Timer1_Timer", [this](Tavrel&) { Timer1_Timer(); }},
        {"shut_msg.Form_Unload", [this](Tavrel&) { Form_Unload(); }},
        {"shut_msg.Form_Resize", [this](Tavrel&) { Form_Resize(); }},
    };
}

void warning_form::显示关机提示() {
    run_state& state = main_.state;
    state.shut_warn_sec = std::max(state.shut_warn_sec, shortest);
    state.warn_text = "就要" + state.shutdown_action_text + "请做好准备";
    const screen_size screen = main_.outside.screen.screen();
    const int width = place.width > 0 ? place.width : first_width;
    const int height = place.height > 0 ? place.height : first_height;
    place = {(screen.width - width) / 2, (screen.height - height) / 2, width, height};
    Timer1.interval = second;
    Timer1.enabled = true;
    ProgressBar1.value = 0;
    ProgressBar1.maximum = state.shut_warn_sec;
    state.warn_done = 0;
    Label1.caption = state.warn_text;
    window = window_state::normal;
    visible = true;
}

void warning_form::Timer1_Timer() {
    if (Timer1.interval == 0) return;
    run_state& state = main_.state;
    ++state.warn_done;
    if (state.warn_done > state.shut_warn_sec) {
        Timer1.interval = 0;
        Timer1.enabled = false;
        if (main_.task_runs()) Label1.caption = "等待正在运行的任务结束," + state.warn_text;
        end_.shout_close();
        return;
    }
    const std::int32_t rest = state.shut_warn_sec - state.warn_done;
    Label1.caption =
        "还有 " + std::to_string(rest / 60) + " 分 " + std::to_string(rest % 60) + "秒," + state.warn_text;
    ProgressBar1.value = state.warn_done;
}

void warning_form::stop() {
    Timer1.interval = 0;
    Timer1.enabled = false;
    end_.call_off();
}

void warning_form::Form_Unload() {
    stop();
    visible = false;
}

void warning_form::Form_Resize() {
    if (window == window_state::minimised) stop();
}

}  // namespace corvane
