// The main form: its controls, the run state, the ports and the table of handlers. Every task is a procedure
// over this one object. A folder reaches a task of another one by its handler's name, never by an include.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/model/form_model.h"
#include "core/model/handlers.h"
#include "core/model/list_view.h"
#include "core/model/main_layout.h"
#include "core/model/run_state.h"
#include "core/model/task_hover.h"
#include "core/model/window_follow.h"
#include "platform/ports.h"

namespace corvane {

// Value of mouse_pointer while a click opens a help topic in place of running the task.
constexpr int help_pointer = 14;

class Tavrel : public form_model {
  public:
    // `program_dir` ends in the separator. The ports outlive the form.
    Tavrel(ports outside, std::string program_dir);

    run_state state;
    ports outside;
    int mouse_pointer = 0;

    // Pictures 1 to 8 are the task pictures; 0 is not used.
    std::array<control*, 9> pictures{};
    std::array<control*, 9> labels{};  // Label3(0) to Label3(8)
    control& Picture11;
    status_bar& StatusBar1;
    list_view& ListView1;
    list_box& listleft;
    list_box& List1;  // its caption says what the rows are
    text_pane& RichTextBox2;
    colour_bar& pic_gressbar1;
    control& Command28;
    control& Label4;
    control& Frame4;
    control& Picture10;
    control& samefile_disp1;
    control& samefile_disp2;
    control& Text3;   // "目录层数" of the export frame
    control& Text4;   // "不导出的后缀类型" of the export frame
    control& Frame6;  // "清单导出选择": holds Text3, Text4 and Command33
    control& Frame_err;
    control& txt_disp_err_file;
    control& Check1;  // "比对时避开该文件"
    control& Command46;
    control& Command47;
    control& Frame1;  // "[文件2]栏按序号删除": opens and closes
    control& Text1;
    control& Text2;
    control& Command7;
    control& Command26;
    control& Splitter;
    control& tiptext;
    timer_control& Timer2;
    control& debug_err;  // menu check "追错"

    // The other windows of the program, in the order in which they were announced. Not owned.
    void add_child(form_model& child) { children_.push_back(&child); }
    const std::vector<form_model*>& children() const { return children_; }
    form_model* child(std::string_view name) const;

    // What the handlers of ListView1 are called for; filled before the call.
    list_pointer list_event;
    // A menu that is to pop up at the pointer, by its top entry; the front end shows it and empties the name.
    std::string popup_menu;

    main_layout layout;
    hover_state hover;
    follow_state follow;

    // Handlers are found by their stated names, without case in a-z. A later one takes the place of an
    // earlier one.
    void bind(handler added);
    void bind(const handler_table& table);
    void bind(std::string_view name, std::function<void()> procedure);
    // A name that will have a handler in a later version: calling it does nothing.
    void expect(std::string_view name);
    bool has_handler(std::string_view name) const;
    bool is_expected(std::string_view name) const;

    // For the outer edge: what the user or a script does. A task does not start while another one runs. False
    // when no such handler is bound.
    bool run(std::string_view name);
    // The same from inside the program, where the name exists; throws std::logic_error where it does not.
    void start(handler_name name);
    // A step of the task that runs: not refused. Throws like start.
    void call(handler_name name);
    // True from the start of a task to its end, also while it shows no lock.
    bool task_runs() const { return running_tasks_ > 0 || open_scopes > 0 || state.tasks_locked; }
    int open_scopes = 0;  // of task_scope
    // True while a handler is on the stack, from the call of the outer edge to its return.
    bool handler_runs() const { return running_handlers_ > 0; }
    // Told when the outermost handler has returned.
    std::function<void()> when_idle;

    // Told after each handler that the outer edge ran: its name, seconds, and the yields meanwhile.
    std::function<void(std::string_view name, double seconds, std::int64_t yields)> trace;

    std::string data_path(std::string_view file_name) const {
        std::string path = state.program_dir;
        return path.append(file_name);
    }
    // Where the files of this program stand, in words.
    std::string place_words() const { return "程序目录: " + state.program_dir; }
    void panel(int number, std::string words) { StatusBar1.panel(number) = std::move(words); }
    void yield() {
        ++yields_;
        outside.screen.yield();
    }
    // A piece of work that takes long, with waiting events running beside it; counts as a yield.
    void work_aside(const std::function<void()>& work) {
        ++yields_;
        outside.screen.work_aside(work);
    }

    // Shows a box titled "提示". The short form is for what only informs.
    void inform(const std::string& words, int context = 1000);
    // For what could not be done; counts as a failure of the run.
    void complain(const std::string& words, int context = 1000, bool help_button = false);
    // A question under the title "提示", for where no and a dismissed box are two ways. Words, buttons and
    // what Enter answers are as given.
    box_answer ask(message question);
    // The same with words alone. False also when the box is dismissed.
    bool confirm(const std::string& words);

  private:
    // Ends with the handler, however it ends.
    class running_handler;

    const handler* find_handler(std::string_view name) const;

    std::unordered_map<std::string, handler> handlers_;  // by folded name; an expected one has no procedure
    int running_handlers_ = 0;
    int running_tasks_ = 0;  // of them
    std::int64_t yields_ = 0;
    std::vector<form_model*> children_;
};

}  // namespace corvane
