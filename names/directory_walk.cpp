#include "names/directory_walk.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"
#include "core/walk/directory_filter.h"
#include "core/walk/walk_links.h"

namespace corvane {

namespace {

class directory_name_walk {
  public:
    explicit directory_name_walk(Tavrel& form)
        : form_(form), state_(form.state), files_(form.outside.files), links_(form.outside.files) {}

    std::int32_t run() {
        state_.dir_queue.clear();
        queue_roots();
        std::int32_t read_index = 1;
        do {
            for (; read_index <= state_.dir_queue.size() && !state_.quit_requested; ++read_index)
                read_one(read_index);
            std::string link = links_.next();
            if (!link.empty()) enqueue(std::move(link));
        } while (read_index <= state_.dir_queue.size() && !state_.quit_requested);
        // What has been read makes room for what was found; those passed over leave no entry.
        state_.dir_queue.resize(found_);
        const std::int32_t found = found_;
        if (full_) form_.complain("目录太多，只查前 " + std::to_string(found) + " 个目录。");
        return found;
    }

  private:
    void queue_roots() {
        for (std::int16_t i = 1; i <= state_.selected_dir_count; ++i) {
            const std::string& selected = state_.selected_dirs[i];
            const std::string_view bare = trimmed(selected);
            if (is_blank(bare)) continue;
            // Where case counts, blanks at the end do, too.
            const std::string directory = with_separator(files_.ignores_case() ? upper_case(bare) : selected,
                                                         form_.outside.files.separator());
            if (skip_directory(form_.outside.files, form_.state.exclude_dir_text, directory)) continue;
            if (links_.take_root(directory)) enqueue(directory);
        }
    }

    void enqueue(std::string directory) {
        if (state_.dir_queue.size() >= state_.limits.directories)
            full_ = true;
        else
            state_.dir_queue.push_back(std::move(directory));
    }

    void read_one(std::int32_t read_index) {
        const std::string directory =
            with_separator(std::exchange(state_.dir_queue[read_index], {}), form_.outside.files.separator());
        if (skip_directory(form_.outside.files, form_.state.exclude_dir_text, directory)) return;
        state_.dir_queue[++found_] = directory;
        const outcome_with<directory_reader> reader = files_.open_directory(directory);
        if (reader) {
            links_.note_listed(reader->identity());
            take_entries(*reader, directory);
        }
        show_count();
        show_elapsed(form_);
    }

    void take_entries(directory_reader& reader, const std::string& directory) {
        std::string_view name;
        entry_kind kind;
        while (reader.next(name, kind)) {
            if (kind == entry_kind::directory)
                enqueue(path_of(directory, name));
            else if (kind == entry_kind::link_to_directory)
                links_.wait(path_of(directory, name));
            form_.yield();
            if (state_.show_run_filename)
                form_.Label4.caption = "目录数:" + std::to_string(count()) + "  " + directory;
            show_count();
        }
    }

    std::string path_of(const std::string& directory, std::string_view name) const {
        std::string path;
        path.reserve(directory.size() + name.size() + 1);
        path.append(directory).append(name) += files_.separator();
        return path;
    }

    std::int32_t count() const { return state_.dir_queue.size(); }

    void show_count() {
        if (count() == shown_) return;
        shown_ = count();
        form_.panel(1, "搜索目录:" + std::to_string(shown_));
    }

    Tavrel& form_;
    run_state& state_;
    file_system& files_;
    walk_links links_;
    std::int32_t found_ = 0;
    std::int32_t shown_ = 0;
    bool full_ = false;
};

}  // namespace

std::int32_t walk_directory_names(Tavrel& form) {
    return directory_name_walk(form).run();
}

}  // namespace corvane
