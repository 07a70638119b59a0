#include "cleanup/recycled_run.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <string_view>

#include "cleanup/recycle_notes.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

using line_fields = std::vector<std::string_view>;

// The parts of a line without its full stop; none where it has none.
line_fields parts_of(std::string_view line) {
    line_fields parts;
    if (!line.ends_with("\t.")) return parts;
    line.remove_suffix(2);
    for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find('\t', at), line.size());
        parts.push_back(line.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

template <class Number>
bool take_number(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return !text.empty() && error == std::errc() && rest == end;
}

// The file that a line speaks of; null where there is none of that number.
recycled_file* file_of(recycled_run& run, std::string_view number) {
    std::size_t index = 0;
    if (!take_number(number, index) || index < 1 || index > run.files.size()) return nullptr;
    return &run.files[index - 1];
}

bool take_time(recycled_run& run, const line_fields& parts) {
    run.time = std::string(parts[1]) + " " + std::string(parts[2]);
    return true;
}

bool take_directory(recycled_run& run, const line_fields& parts) {
    run.directories.emplace_back(parts[1]);
    return true;
}

bool take_pair(recycled_run& run, const line_fields& parts) {
    recycled_pair pair{0, std::string(parts[2]), std::string(parts[3])};
    if (!take_number(parts[1], pair.length) || pair.length < 0) return false;
    run.pairs.push_back(std::move(pair));
    return true;
}

// A line that is no line keeps its number: those behind it speak of theirs.
bool take_file(recycled_run& run, const line_fields& parts) {
    recycled_file& file = run.files.emplace_back();
    recycled_item& item = file.item;
    file.stayed = true;
    if (parts.size() != 8 || (parts[1] != "d" && parts[1] != "f") ||
        !take_number(parts[2], item.identity.device) || !take_number(parts[3], item.identity.index) ||
        !take_number(parts[4], item.length) || item.length < 0 || !take_number(parts[5], item.modified_ns) ||
        parts[7].empty())
        return false;
    item.directory = parts[1] == "d";
    item.folder = parts[6];
    item.path = parts[7];
    file.stayed = false;
    return true;
}

bool take_entry(recycled_run& run, const line_fields& parts) {
    recycled_file* file = file_of(run, parts[1]);
    if (file == nullptr || parts[2].empty()) return false;
    file->entry = {std::string(parts[3]), std::string(parts[2])};
    return true;
}

bool take_stayed(recycled_run& run, const line_fields& parts) {
    recycled_file* file = file_of(run, parts[1]);
    if (file != nullptr) file->stayed = true;
    return file != nullptr;
}

bool take_restored(recycled_run& run, const line_fields& parts) {
    recycled_file* file = file_of(run, parts[1]);
    if (file != nullptr) file->restored_path = parts[2];
    return file != nullptr;
}

struct line_kind {
    std::string_view letter;
    std::size_t parts;
    bool (*take)(recycled_run&, const line_fields&);
};

constexpr line_kind kinds[] = {{"T", 3, take_time},    {"D", 2, take_directory}, {"P", 4, take_pair},
                               {"F", 8, take_file},    {"E", 4, take_entry},     {"X", 2, take_stayed},
                               {"R", 3, take_restored}};

bool take_line(recycled_run& run, const line_fields& parts) {
    for (const line_kind& kind : kinds)
        if (!parts.empty() && parts[0] == kind.letter)
            return (parts.size() == kind.parts || kind.letter == "F") && kind.take(run, parts);
    return false;
}

}  // namespace

std::size_t recycled_run::count() const {
    return static_cast<std::size_t>(
        std::count_if(files.begin(), files.end(), [](const recycled_file& file) { return !file.stayed; }));
}

double recycled_run::bytes() const {
    double sum = 0;
    for (const recycled_file& file : files)
        if (!file.stayed) sum += static_cast<double>(file.item.length);
    return sum;
}

std::vector<std::string> recycled_runs(file_system& files, const std::string& folder) {
    std::vector<std::string> paths;
    const auto reader = files.open_directory(folder);
    if (!reader) return paths;
    std::string_view name;
    entry_kind kind;
    while (reader->next(name, kind))
        if (kind == entry_kind::file && name.ends_with(".txt"))
            paths.push_back(folder + files.separator() + std::string(name));
    std::sort(paths.begin(), paths.end(), std::greater<>());
    return paths;
}

recycled_run read_recycled_run(file_system& files, const std::string& path) {
    recycled_run run;
    run.path = path;
    line_reader lines(files, path);
    std::string_view line;
    run.known = lines.is_open() && lines.next(line) && line == recycle_notes_title;
    if (!run.known) return run;
    bool well = true;
    while (lines.next(line)) {
        const line_fields parts = parts_of(line);
        // The end may stand before lines that a restoring has added.
        std::size_t gone = 0;
        if (parts.size() == 2 && parts[0] == "Z" && take_number(parts[1], gone))
            run.complete = gone == run.count();
        else
            well &= take_line(run, parts);
    }
    run.complete &= well;
    return run;
}

outcome add_to_recycled_run(file_system& files, const std::string& path,
                            const std::vector<std::string>& lines) {
    line_writer writer(files, path);
    line_reader old(files, path);
    if (!old.is_open()) return outcome::failure(old.error());
    std::string_view line;
    while (old.next(line)) writer.line(line);
    if (old.failed()) return outcome::failure("不能读出。");
    for (const std::string& each : lines) writer.line(each);
    return writer.finish() ? outcome::success() : outcome::failure(writer.error());
}

std::string entry_line(std::size_t number, const trash_entry& entry) {
    return note_line("E", {std::to_string(number), entry.name, entry.place});
}

std::string restored_line(std::size_t number, const std::string& path) {
    return note_line("R", {std::to_string(number), path});
}

}  // namespace corvane
