#include "names/directory_walk.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/directory_filter.h"
#include "core/main_form.h"
#include "core/progress.h"
#include "core/text_case.h"
#include "core/text_format.h"
#include "core/walked_places.h"

namespace corvane {

namespace {

class directory_name_walk {
  public:
    explicit directory_name_walk(Tavrel& form)
        : form_(form), state_(form.state), files_(form.outside.files), places_(files_) {}

    std::int32_t run() {
        state_.dir_queue.assign(1, {});
        queue_roots();
        std::size_t read_index = 1;
        std::size_t next_link = 0;
        while (!state_.quit_requested) {
            for (; read_index < state_.dir_queue.size() && !state_.quit_requested; ++read_index)
                read_one(read_index);
            if (next_link >= links_.size()) break;
            std::string link = std::move(links_[next_link++]);
            if (places_.may_follow(link)) enqueue(std::move(link));
        }
        // What has been read makes room for what was found; those passed over leave no entry.
        state_.dir_queue.resize(found_ + 1);
        const auto found = static_cast<std::int32_t>(found_);
        if (full_) form_.complain("目录太多，只查前 " + std::to_string(found) + " 个目录。");
        return found;
    }

  private:
    void queue_roots() {
        for (std::int16_t i = 1; i <= state_.selected_dir_count; ++i) {
            const std::string& selected = state_.selected_dirs[static_cast<std::size_t>(i)];
            const std::string_view bare = trimmed(selected);
            if (is_blank(bare)) continue;
            // Where case counts, blanks at the end do, too.
            const std::string directory =
                with_separator(form_, files_.ignores_case() ? upper_case(bare) : selected);
            if (skip_directory(form_, directory)) continue;
            const std::string resolved = with_separator(form_, files_.resolve(directory));
            if (files_.ignores_case() || resolved == directory)
                enqueue(directory);
            else
                links_.push_back(directory);
            places_.note_ancestors(resolved);
        }
    }

    void enqueue(std::string directory) {
        if (static_cast<std::int32_t>(state_.dir_queue.size()) > state_.limits.directories)
            full_ = true;
        else
            state_.dir_queue.push_back(std::move(directory));
    }

    void read_one(std::size_t read_index) {
        const std::string directory = with_separator(form_, std::exchange(state_.dir_queue[read_index], {}));
        if (skip_directory(form_, directory)) return;
        state_.dir_queue[++found_] = directory;
        std::string error;
        const std::unique_ptr<directory_reader> reader = files_.open_directory(directory, error);
        if (reader) {
            places_.note_listed(reader->identity());
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
                links_.push_back(path_of(directory, name));
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

    std::size_t count() const { return state_.dir_queue.size() - 1; }

    void show_count() {
        if (count() == shown_) return;
        shown_ = count();
        form_.panel(1, "搜索目录:" + std::to_string(shown_));
    }

    Tavrel& form_;
    run_state& state_;
    file_system& files_;
    std::vector<std::string> links_;
    walked_places places_;
    std::size_t found_ = 0;
    std::size_t shown_ = 0;
    bool full_ = false;
};

}  // namespace

std::int32_t walk_directory_names(Tavrel& form) {
    return directory_name_walk(form).run();
}

}  // namespace corvane
