#include "browser/rows_aside.h"

#include <utility>

#include "core/model/main_form.h"
#include "core/tasks/task_scope.h"

namespace corvane {

namespace {

class standing_rows {
  public:
    explicit standing_rows(bool& said) : said_(said), before_(std::exchange(said, true)) {}
    ~standing_rows() { said_ = before_; }
    standing_rows(const standing_rows&) = delete;
    standing_rows& operator=(const standing_rows&) = delete;

  private:
    bool& said_;
    bool before_;
};

}  // namespace

void look_at_rows_aside(Tavrel& form, const std::function<void()>& work) {
    const task_scope task(form);
    const standing_rows stand(form.state.rows_stand);
    form.work_aside(work);
}

}  // namespace corvane
