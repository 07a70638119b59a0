#include "search/recent_sets.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/text/file_copy.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr char title[] = "Corvane recent directories 1";

bool names_folder(std::string_view line, char separator) {
    if (separator == '/') return line.starts_with('/');
    return line.starts_with("\\\\") || (line.size() >= 3 && line[1] == ':');
}

// A count on a line of its own, from 1 to `most`; 0 for another line and for the end.
std::int64_t next_count(line_reader& lines, std::int64_t most) {
    std::string_view line;
    if (!lines.next(line)) return 0;
    const std::int64_t count = parse_number(line);
    return count >= 1 && count <= most && line == number_line(count) ? count : 0;
}

}  // namespace

// False: the file goes on, or ends, in another way than it says. What was whole before has been taken.
bool recent_sets::read_sets(const std::string& path) {
    line_reader lines(main_.outside.files, path);
    std::string_view line;
    if (!lines.is_open() || !lines.next(line) || line != title) return false;
    const std::int64_t count = next_count(lines, most_sets);
    if (count == 0) return false;
    const auto most = static_cast<std::int64_t>(main_.state.limits.selected_directories);
    const char separator = main_.outside.files.separator();
    for (std::int64_t i = 0; i < count; ++i) {
        directories set;
        for (std::int64_t left = next_count(lines, most); left > 0; --left) {
            if (!lines.next(line) || !names_folder(line, separator)) return false;
            set.emplace_back(line);
        }
        if (set.empty()) return false;
        sets_.push_back(std::move(set));
    }
    return !lines.next(line);
}

void recent_sets::read() {
    read_ = true;
    const std::string path = main_.data_path(data_file::recent_directories);
    if (!path_exists(main_.outside.files, path)) return;
    keep_aside_ = !read_sets(path);
    if (keep_aside_)
        main_.complain(path + "\r\n最近用过的目录读不全,只取了前 " + std::to_string(sets_.size()) +
                       " 组。下次保存前另存一份。");
}

const std::vector<recent_sets::directories>& recent_sets::sets() {
    if (!read_) read();
    return sets_;
}

void recent_sets::note(const directories& set) {
    if (!read_) read();
    if (set.empty() || (!sets_.empty() && sets_.front() == set)) return;
    sets_.erase(std::remove(sets_.begin(), sets_.end(), set), sets_.end());
    sets_.insert(sets_.begin(), set);
    if (sets_.size() > most_sets) sets_.resize(most_sets);
    const std::string path = main_.data_path(data_file::recent_directories);
    file_system& files = main_.outside.files;
    // What this version cannot read is not for it to lose.
    if (keep_aside_ && !copy_file(files, path, main_.data_path(data_file::recent_aside)))
        return main_.complain(path + "\r\n最近用过的目录没有保存。");
    line_writer writer(files, path);
    writer.line(title);
    writer.number(static_cast<std::int64_t>(sets_.size()));
    for (const directories& each : sets_) {
        writer.number(static_cast<std::int64_t>(each.size()));
        for (const std::string& directory : each) writer.line(directory);
    }
    if (!writer.finish()) return main_.complain(path + "\r\n" + writer.error());
    keep_aside_ = false;
}

}  // namespace corvane
