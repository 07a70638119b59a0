#include "power/shutdown.h"

#include <string>

#include "core/model/main_form.h"
#include "core/tasks/environment.h"

namespace corvane {

namespace {

struct action_row {
    const char* words;
    outcome (power::*call)();
};

// By shut_action.
constexpr action_row actions[] = {
    {nullptr, nullptr},
    {"关闭程序.", nullptr},
    {"关闭所有程序,重启windows.", &power::log_off},
    {"重新启动计算机.", &power::reboot},
    {"关闭计算机.", &power::power_off},
};

const action_row& row_of(int shut_action) {
    const bool known = shut_action >= 0 && shut_action < static_cast<int>(std::size(actions));
    return actions[known ? shut_action : 0];
}

}  // namespace

const char* end_action_words(int shut_action) {
    return row_of(shut_action).words;
}

bool shutdown::is_waiting() const {
    return main_.state.going_down != 0;
}

void shutdown::shout_close() {
    run_state& state = main_.state;
    if (is_waiting() || state.quit_requested) return;
    写Tavrel环境文件(main_);
    if (state.shut_action == static_cast<int>(end_action::none)) return;
    state.going_down = -1;
    state.cancel_task = -1;
    main_.outside.screen.hold_boxes(true);
    // Called from outside every handler, nothing else would look again.
    if (!main_.handler_runs()) when_idle();
}

void shutdown::call_off() {
    if (!is_waiting()) return;
    main_.state.going_down = 0;
    main_.outside.screen.hold_boxes(false);
}

void shutdown::when_idle() {
    if (!is_waiting()) return;
    call_off();
    if (!main_.state.quit_requested) act();
}

void shutdown::act() {
    if (main_.state.shut_action == static_cast<int>(end_action::end_program)) {
        main_.run("exit_sub");
        return;
    }
    const action_row& action = row_of(main_.state.shut_action);
    if (action.call == nullptr) return;
    // Once more: the tasks that were waited for have changed them.
    写Tavrel环境文件(main_);
    const outcome result = (main_.outside.machine.*action.call)();
    if (!result) main_.complain(result.reason);
}

handler_table shutdown::handlers() {
    return {{"shout_close", [this](Tavrel&) { shout_close(); }}};
}

}  // namespace corvane
