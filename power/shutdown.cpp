#include "power/shutdown.h"

#include "core/model/main_form.h"
#include "core/tasks/environment.h"

namespace corvane {

namespace {

outcome ask_machine(power& machine, end_action action) {
    switch (action) {
        case end_action::log_off:
            return machine.log_off();
        case end_action::reboot:
            return machine.reboot();
        case end_action::power_off:
            return machine.power_off();
        default:
            return outcome::success();
    }
}

}  // namespace

bool shutdown::is_waiting() const {
    return main_.state.going_down != 0;
}

void shutdown::shout_close() {
    run_state& state = main_.state;
    if (is_waiting() || state.quit_requested) return;
    if (!写Tavrel环境文件(main_) || state.shut_action == static_cast<int>(end_action::none)) return;
    state.unsaved.clear();
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
    // While it waits a failure to write keeps the machine up.
    if (!main_.state.quit_requested) main_.call(handlers::store_marks);
    call_off();
    if (main_.state.quit_requested) return;
    // A box that told of it was dismissed.
    if (!main_.state.unsaved.empty()) return main_.complain(main_.state.unsaved);
    act();
}

void shutdown::act() {
    const auto action = static_cast<end_action>(main_.state.shut_action);
    if (action == end_action::end_program) {
        main_.run("exit_sub");
        return;
    }
    // Once more: the tasks that were waited for have changed them.
    if (!写Tavrel环境文件(main_)) return;
    const outcome result = ask_machine(main_.outside.machine, action);
    if (!result) main_.complain(result.reason);
}

handler_table shutdown::handlers() {
    return {{"shout_close", [this](Tavrel&) { shout_close(); }}};
}

}  // namespace corvane
