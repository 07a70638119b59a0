#include "compare/estimate.h"

#include <cmath>
#include <string>

#include "core/model/main_form.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"

namespace corvane {

time_estimate::time_estimate(Tavrel& form) : form_(form) {
    read_run_records(form);
    if (form.state.run_rate > 0) show(form.state.file_count * form.state.run_rate);
}

void time_estimate::show(double seconds) {
    last_shown_ = seconds;
    form_.panel(7, "预计时间" + format_elapsed(seconds, 1));
}

void time_estimate::checkpoint(std::int32_t i) {
    const run_state& state = form_.state;
    const double elapsed = std::floor(form_.outside.screen.seconds() - state.base_time);
    const double count = state.file_count;
    const double at = i;
    if (elapsed > 0 && last_shown_ / elapsed < 1.1) show(count * elapsed / at * correction_);
    form_.panel(5, "已检查:" + std::to_string(i) + "个文件");
    form_.panel(6, format_elapsed(elapsed, 1));
    bar_draw(form_, i);
    // Earlier runs give the better estimate; without elapsed time there is nothing to reckon from.
    if (state.run_line_count > 0 || !(elapsed > 0)) return;
    if (at > checkpoint_files && predicted_ > 0) coefficient_ = elapsed / predicted_ * coefficient_;
    correction_ = (at - 1) * ((1 - coefficient_) / (count - 1)) + coefficient_;
    const double estimate = count * elapsed / at * correction_;
    predicted_ = (checkpoint_files + at) * elapsed / at * correction_;
    if (count / 6 < at || last_shown_ / elapsed < 1.2 || !(state.run_rate > 0)) show(estimate);
}

}  // namespace corvane
