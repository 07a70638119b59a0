#include "cleanup/recycle_batches.h"

#include <utility>

#include "core/main_form.h"
#include "core/progress.h"

namespace corvane {

void recycle_batches::add(std::string path) {
    if (batches_.empty() || batches_.back().size() == batch_size) batches_.emplace_back();
    batches_.back().push_back(std::move(path));
}

void recycle_batches::send(Tavrel& form, const std::function<bool(std::size_t)>& may_go) {
    bar_colours(form, 13619151, 4227327, 4210816);
    bar_scale(form, static_cast<std::int32_t>(batches_.size()));
    std::size_t number = 0;
    for (std::size_t b = 1; b <= batches_.size(); ++b) {
        form.yield();
        if (form.state.quit_requested) return;
        for (const std::string& path : batches_[b - 1])
            if (!may_go || may_go(number++)) form.outside.desktop.recycle(path);
        form.pic_gressbar1.draw(static_cast<std::int32_t>(b));
        form.panel(5, "已删除:" + std::to_string(b * batch_size));
        show_elapsed(form);
    }
}

}  // namespace corvane
