#include "cleanup/recycle_batches.h"

#include <algorithm>

#include "cleanup/recycle_notes.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

namespace {

// True when the bin has it.
bool send(Tavrel& form, recycle_notes& notes, const std::string& path) {
    notes.going(path);
    const bool gone = form.outside.desktop.recycle(path).ok;
    notes.answer(gone);
    return gone;
}

}  // namespace

void send_in_batches(Tavrel& form, std::size_t count, recycle_notes& notes,
                     const std::function<const std::string*(std::size_t)>& path_of,
                     const std::function<void(std::size_t)>& refused) {
    const std::size_t batches = (count + recycle_batch_size - 1) / recycle_batch_size;
    bar_colours(form, 13619151, 4227327, 4210816);
    bar_scale(form, static_cast<std::int32_t>(batches));
    for (std::size_t b = 1; b <= batches; ++b) {
        const std::size_t end = std::min(b * recycle_batch_size, count);
        for (std::size_t number = (b - 1) * recycle_batch_size; number < end; ++number) {
            // Before the proof, never between it and the removal.
            form.yield();
            if (form.state.quit_requested) return notes.finish();
            const std::string* path = path_of(number);
            // The proof may have yielded.
            if (form.state.quit_requested) return notes.finish();
            if (path != nullptr && !send(form, notes, *path)) refused(number);
        }
        notes.end_batch();
        form.pic_gressbar1.draw(static_cast<std::int32_t>(b));
        form.panel(5, "已删除:" + std::to_string(b * recycle_batch_size));
        show_elapsed(form);
    }
    notes.finish();
}

}  // namespace corvane
