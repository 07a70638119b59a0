// What every long task shows: the lock of the task pictures, the colour bar, elapsed times. Tasks call these
// and never draw by themselves.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class line_writer;
class Tavrel;

// Disables Picture1 to Picture8 and the menus 文件操作_m, 目录操作_m, 文件清单_M. unlock_tasks enables the
// same set, except pictures without a task. Tasks leave both to their task_scope.
void lock_tasks(Tavrel& form);
void unlock_tasks(Tavrel& form);

// The cancel button of a task that begins, which its task_scope hides. What was pressed before does not
// count; while the machine waits to go down the task is cancelled at its first look.
void offer_cancel(Tavrel& form, const std::string& task);

// True between the two.
bool tasks_locked(const Tavrel& form);

// Whole seconds of the clock.
std::int32_t tick_seconds(Tavrel& form);

void bar_colours(Tavrel& form, std::int32_t back, std::int32_t start, std::int32_t end);
// Clears the bar; a total below 1 does nothing else.
void bar_scale(Tavrel& form, std::int32_t total);
// Yields, then draws.
void bar_draw(Tavrel& form, std::int32_t position);

// Panel 6: the time since state.base_time, in format_elapsed mode 1.
void show_elapsed(Tavrel& form);

// Moves the pointer to the centre of a control in 40 steps of 0.01 seconds; nothing where there is no
// pointer.
void pointer_glide(Tavrel& form, const std::string& form_name, const std::string& control);

// Asks whether the shutdown after the task stands. No takes it back.
void ask_for_shutdown(Tavrel& form);

// Ends a file that may be large: flush, and events run while the disk takes it in. As line_writer::finish.
bool finish_file(Tavrel& form, line_writer& writer);

// A file could not be written: the file and the system's words. The task ends. While the machine waits to go
// down nobody sees the box: it stays up then, and the words are told again.
void report_write_failure(Tavrel& form, const std::string& path, const std::string& reason);

}  // namespace corvane
