#include "core/walk/tree_walk.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"
#include "core/walk/directory_filter.h"
#include "core/walk/walk_links.h"

namespace corvane {

namespace {

class tree_walk {
  public:
    tree_walk(file_system& files, column<std::string>& queue, const walk_rules& rules, walk_visitor& visitor)
        : files_(files),
          queue_(queue),
          rules_(rules),
          visitor_(visitor),
          links_(files),
          separator_(files.separator()) {}

    walk_result run(std::span<const std::string> roots) {
        queue_.clear();
        for (const std::string& root : roots) take_root(root);
        const walk_course ending = walk();
        if (rules_.queue_keeps_entered) queue_.resize(entered_);
        return {ending, limit_reached_};
    }

  private:
    void take_root(const std::string& selected) {
        if (is_blank(trimmed(selected))) return;
        const std::string directory = with_separator(text_of_root(selected), separator_);
        if (is_passed_over(directory)) return;
        if (links_.take_root(directory) && has_room()) queue_.push_back(directory);
    }

    std::string text_of_root(const std::string& selected) const {
        if (rules_.roots == root_text::as_selected || !files_.ignores_case()) return selected;
        return upper_case(rules_.roots == root_text::folded ? selected : trimmed(selected));
    }

    bool is_passed_over(const std::string& directory) {
        return skip_directory(files_, rules_.excluded, directory);
    }

    bool has_room() {
        if (queue_.size() < rules_.limit) return true;
        limit_reached_ = true;
        return false;
    }

    walk_course walk() {
        std::int32_t at = 0;
        for (bool following = false;; following = true) {
            while (at < queue_.size()) {
                const walk_course course = take(++at);
                if (course != walk_course::go_on) return course;
            }
            std::string link = links_.next();
            if (link.empty()) return walk_course::finished;
            if (!following) visitor_.links_begin();
            follows_links_ = true;
            if (!has_room()) return walk_course::finished;
            queue_.push_back(std::move(link));
        }
    }

    walk_course take(std::int32_t at) {
        // Not the entry itself: the queue grows while the directory is read.
        if (rules_.queue_keeps_entered)
            directory_ = std::exchange(queue_[at], {});
        else
            directory_ = queue_[at];
        visitor_.reached(directory_);
        if (is_passed_over(directory_) || links_.was_listed(directory_)) return walk_course::go_on;
        const walk_course course = visitor_.enter(directory_);
        if (course != walk_course::go_on) return course;
        ++entered_;
        if (rules_.queue_keeps_entered) queue_[entered_] = directory_;

        last_name_.clear();
        directory_reading reading = directory_reading::unreadable;
        const walk_course read = read_entries(at, reading);
        return read == walk_course::go_on ? visitor_.leave(directory_, reading, last_name_) : read;
    }

    walk_course read_entries(std::int32_t at, directory_reading& reading) {
        const outcome_with<directory_reader> reader = opened(at);
        if (!reader) return walk_course::go_on;
        links_.note_listed(reader->identity());
        std::string_view name;
        entry_kind kind;
        while (reader->next(name, kind)) {
            if (rules_.ends_at_repeat && name == last_name_) break;
            last_name_ = name;
            if (kind == entry_kind::directory && has_room())
                queue_.push_back(path_of(name));
            else if (kind == entry_kind::link_to_directory)
                links_.wait(path_of(name));
            const walk_course course = visitor_.entry(directory_, name, kind);
            if (course != walk_course::go_on) return course;
        }
        reading = reader->failed() ? directory_reading::cut_short : directory_reading::whole;
        return walk_course::go_on;
    }

    // The directory in work, which stands at `at` in the queue. Others behind it are opened with it, as many
    // as the last ones have shown to be there: but for the links at the end it is known of them that they
    // will be opened.
    outcome_with<directory_reader> opened(std::int32_t at) {
        if (next_ahead_ < ahead_.size() && ahead_at_ + static_cast<std::int32_t>(next_ahead_) == at)
            return std::move(ahead_[next_ahead_++]);
        paths_.assign(1, directory_);
        for (std::int32_t next = at + 1;
             !follows_links_ && paths_.size() < ahead_most_ && next <= queue_.size(); ++next) {
            if (is_passed_over(queue_[next])) break;
            paths_.push_back(queue_[next]);
        }
        ahead_most_ = std::min(ahead_most_ * 2, most_ahead);
        ahead_ = files_.open_directories(paths_);
        ahead_at_ = at;
        next_ahead_ = 1;
        return std::move(ahead_.front());
    }

    std::string path_of(std::string_view name) const {
        std::string path;
        path.reserve(directory_.size() + name.size() + 1);
        path.append(directory_).append(name) += separator_;
        return path;
    }

    file_system& files_;
    column<std::string>& queue_;
    const walk_rules& rules_;
    walk_visitor& visitor_;
    walk_links links_;
    const char separator_;
    std::string directory_;  // the one in work
    std::string last_name_;  // of its entries
    // Directories opened before their turn, ahead_[0] being that at ahead_at_ in the queue.
    static constexpr std::size_t most_ahead = 32;
    std::vector<outcome_with<directory_reader>> ahead_;
    std::int32_t ahead_at_ = 0;
    std::size_t next_ahead_ = 0;
    std::size_t ahead_most_ = 1;
    std::vector<std::string> paths_;
    bool follows_links_ = false;
    std::int32_t entered_ = 0;
    bool limit_reached_ = false;
};

}  // namespace

walk_result walk_tree(file_system& files, std::span<const std::string> roots, column<std::string>& queue,
                      const walk_rules& rules, walk_visitor& visitor) {
    return tree_walk(files, queue, rules, visitor).run(roots);
}

}  // namespace corvane
