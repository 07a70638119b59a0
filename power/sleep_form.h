// The window sleep_music as a model: what is to happen at the end of a run or at a time of day, and the
// countdown to that time.
#pragma once

#include <array>

#include "core/model/form_model.h"
#include "core/model/handlers.h"

namespace corvane {

class shutdown;
class Tavrel;
class warning_form;

class sleep_form : public form_model {
  public:
    // All outlive the form.
    sleep_form(Tavrel& main, warning_form& warning, shutdown& end);

    std::array<control*, 5> Option1{};  // "关机类型", by shut_action
    std::array<control*, 3> Option2{};  // "关机形式", by shutdown_after_task
    control& Text2;                     // the clock
    control& Label9;                    // when the countdown began
    control& Text_h;                    // the end time
    control& Text_m;
    range_control& VScroll1;  // hours, 0 to 24
    range_control& VScroll2;  // minutes, 0 to 59
    control& Text3;           // the delay, minutes
    control& Text1;           // the length of the warning, minutes
    range_control& VScroll3;
    control& Label4;  // what is left
    colour_bar& pic_gressbar1;
    std::array<control*, 8> commands{};  // Command1 to Command7 from index 1
    timer_control& Timer1;

    std::int32_t countdown_total = 0;  // seconds
    bool countdown_running = false;
    std::int32_t minimise_at = 0;  // whole seconds of the day; 0: done

    handler_table handlers();

    // The entry of the menu: loads the settings into the window, where it is not open yet, and shows it.
    void open();
    // A countdown dies with its window.
    void Form_Unload();
    // A second has passed.
    void Timer1_Timer();

    // "计时开始", "取消计时", "初始".
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

  private:
    void load();
    void choose_action(int index);
    void choose_form(int index);
    void enable_countdown();
    void take_scroll();
    void take_warning(int minutes);
    void take_end_time();
    void take_delay();
    void show_end_time(int hours, int minutes);
    void delay_from_end_time();
    void end_time_from_delay();
    void count();

    Tavrel& main_;
    warning_form& warning_;
    shutdown& end_;
};

}  // namespace corvane
