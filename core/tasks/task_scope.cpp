#include "core/tasks/task_scope.h"

#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

task_scope::task_scope(Tavrel& form) : form_(form) {
    if (form_.open_scopes++ == 0) lock_tasks(form_);
}

void task_scope::close() {
    if (!open_) return;
    open_ = false;
    if (--form_.open_scopes > 0) return;
    form_.pic_gressbar1.visible = false;
    form_.Command28.visible = false;
    if (!form_.state.quit_requested) unlock_tasks(form_);
}

}  // namespace corvane
