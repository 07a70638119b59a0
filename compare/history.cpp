#include "compare/history.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "compare/column_order.h"
#include "core/archives/archive_entry.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 900;
constexpr std::size_t count_width = 12;

void size_columns(history_state& history, std::int32_t count) {
    history.history_name.clear();
    history.history_len.assign(count, 0);
    for (column<std::int32_t>* values :
         {&history.history_date_hi, &history.history_date_lo, &history.history_crc})
        values->assign(count, 0);
}

// Cuts the text behind the last `delimiter` off and reads it as a number; 0 without a delimiter.
std::int64_t cut_number(std::string_view& row, char delimiter) {
    const std::size_t at = row.rfind(delimiter);
    if (at == std::string_view::npos) return 0;
    const std::int64_t number = parse_number(row.substr(at + 1));
    row = row.substr(0, at);
    return number;
}

// A name may hold the delimiter, so a row is split from the right.
void take_row(history_state& history, std::int32_t k, std::string_view row, char delimiter) {
    history.history_crc[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    history.history_date_lo[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    history.history_date_hi[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    history.history_len[k] = cut_number(row, delimiter);
    history.history_name.push_back(row);
}

// Puts row k where row `to` stood, which is not behind it.
void move_row(history_state& history, std::int32_t k, std::int32_t to) {
    history.history_name.set_entry(to, history.history_name.entry(k));
    history.history_len[to] = history.history_len[k];
    history.history_date_hi[to] = history.history_date_hi[k];
    history.history_date_lo[to] = history.history_date_lo[k];
    history.history_crc[to] = history.history_crc[k];
}

void cut_rows(history_state& history, std::int32_t count) {
    history.history_name.resize(count);
    history.history_len.resize(count);
    for (column<std::int32_t>* values :
         {&history.history_date_hi, &history.history_date_lo, &history.history_crc})
        values->resize(count);
    history.history_count = count;
}

bool ascends_strictly(const text_column& names) {
    for (std::int32_t k = 2; k <= names.size(); ++k)
        if (names[k] <= names[k - 1]) return false;
    return names.size() == 0 || !is_blank(names[1]);
}

// Ascending by name, each name once and none blank, as the searches want it. Of several rows of a name the
// last one stays. True when they stood like that.
bool put_in_order(history_state& history) {
    const std::int32_t read = history.history_name.size();
    if (ascends_strictly(history.history_name)) {
        cut_rows(history, read);
        return true;
    }
    std::vector<text_row> rows;
    for (std::int32_t k = 1; k <= read; ++k)
        if (!is_blank(history.history_name[k])) rows.push_back({history.history_name.entry(k), k});
    sort_rows_by_text(rows);
    const history_state old = history;
    std::int32_t count = 0;
    for (const text_row& row : rows) {
        if (count == 0 || history.history_name[count] != text_arena::text_at(row.entry)) ++count;
        history.history_name.set_entry(count, row.entry);
        history.history_len[count] = old.history_len[row.row];
        history.history_date_hi[count] = old.history_date_hi[row.row];
        history.history_date_lo[count] = old.history_date_lo[row.row];
        history.history_crc[count] = old.history_crc[row.row];
    }
    cut_rows(history, count);
    return false;
}

// Names come in their order, so the next one mostly stands right behind the last.
search_result find_in_history(const history_state& history, std::string_view name, std::int32_t low) {
    return find_text_near(history.history_name, name, low, history.history_count);
}

}  // namespace

bool read_history(file_system& disk, history_state& history, std::int32_t most,
                  const history_reading& reading) {
    history.history_count = 0;
    history.history_as_stored = false;
    size_columns(history, 0);

    line_reader reader(disk, history.history_path);
    std::string_view line;
    if (!reader.next(line)) return true;
    const std::int64_t stated = parse_number(line);
    if (stated < 1) return true;
    const auto count = static_cast<std::int32_t>(std::min<std::int64_t>(stated, most));

    reading.begins(count);
    size_columns(history, count);
    history.history_name.reserve(count);
    char delimiter = ',';
    for (std::int32_t k = 1; k <= count && reader.next(line); ++k) {
        if (k == 1 && line.find('\t') != std::string_view::npos) delimiter = '\t';
        take_row(history, k, line, delimiter);
        if (k % rows_per_status == 0 && !reading.reaches(k)) return false;
    }
    const bool is_whole = history.history_name.size() == stated && !reader.next(line);
    history.history_as_stored = put_in_order(history) && is_whole && delimiter == '\t';
    return true;
}

void reuse_history(history_state& history, file_columns& files) {
    if (history.history_count < 1) return;
    const std::vector<std::int32_t> places = places_by_rank(files);
    std::string_view previous;
    std::int32_t next = 1;
    for (std::int32_t n = 1; n <= files.file_count; ++n) {
        const std::int32_t i = places.empty() ? n : places[static_cast<std::size_t>(n) - 1] + 1;
        const std::string_view name = files.file_list[i];
        if (is_archive_member(name)) continue;
        if (name <= previous) next = 1;
        previous = name;
        if (next > history.history_count) continue;
        const search_result found = find_in_history(history, name, next);
        const std::int32_t k = found.index;
        next = (k > 0 ? k : found.upper_bound) + 1;
        if (k > 0 && history.history_len[k] == files.file_len[i] &&
            history.history_date_hi[k] == files.file_date_hi[i] &&
            history.history_date_lo[k] == files.file_date_lo[i])
            files.file_crc[i] = history.history_crc[k];
    }
}

namespace {

// The one that a run without archives would take.
std::int32_t signature_to_keep(const file_columns& files, std::int32_t i) {
    if (!files.file_start_crc.empty() && files.file_start_crc[i]) return *files.file_start_crc[i];
    return files.file_crc[i];
}

// Writes the merged rows and counts them.
class history_writer {
  public:
    history_writer(file_system& disk, const history_state& history, const file_columns& files)
        : history_(history), files_(files), writer_(disk, history.history_path) {
        // Line 1 keeps its length: the count is patched in when it is known.
        writer_.line("000000000000");
    }

    void old_rows(std::int32_t first, std::int32_t last) {
        for (std::int32_t k = first; k <= last; ++k)
            add(history_.history_name[k], history_.history_len[k], history_.history_date_hi[k],
                history_.history_date_lo[k], history_.history_crc[k]);
    }

    void file_row(std::int32_t i) {
        add(files_.file_list[i], files_.file_len[i], files_.file_date_hi[i], files_.file_date_lo[i],
            signature_to_keep(files_, i));
    }

    bool finish() {
        std::string count = std::to_string(written_);
        count.resize(count_width, ' ');
        writer_.patch(0, count);
        return writer_.finish();
    }

    std::int32_t written() const { return written_; }
    const std::string& error() const { return writer_.error(); }

  private:
    void add(std::string_view name, std::int64_t length, std::int32_t date_high, std::int32_t date_low,
             std::int32_t signature) {
        writer_.add(name);
        std::array<char, 80> figures;
        char* at = figures.data();
        for (const std::int64_t figure :
             {length, std::int64_t{date_high}, std::int64_t{date_low}, std::int64_t{signature}}) {
            *at++ = '\t';
            at = std::to_chars(at, figures.data() + figures.size(), figure).ptr;
        }
        writer_.line({figures.data(), static_cast<std::size_t>(at - figures.data())});
        ++written_;
    }

    const history_state& history_;
    const file_columns& files_;
    line_writer writer_;
    std::int32_t written_ = 0;
};

}  // namespace

void purge_history(file_system& disk, history_state& history, const std::function<void()>& turn) {
    constexpr std::int32_t most_asked = 1024;
    std::int32_t kept = 0;
    std::vector<std::string_view> paths;
    std::vector<std::uint8_t> found;
    for (std::int32_t first = 1; first <= history.history_count;) {
        const std::int32_t end = std::min(first + most_asked, history.history_count + 1);
        paths.clear();
        for (std::int32_t k = first; k < end; ++k) paths.push_back(history.history_name[k]);
        found.assign(paths.size(), 0);
        const auto answered = static_cast<std::int32_t>(disk.many_exist(paths, found));
        for (std::int32_t n = 0; n < answered; ++n) {
            if (found[static_cast<std::size_t>(n)] != 0) move_row(history, first + n, ++kept);
            turn();
        }
        first += answered;
    }
    if (kept != history.history_count) history.history_as_stored = false;
    cut_rows(history, kept);
}

namespace {

// Goes through the rows of history and files by name: `old_rows` takes a range of the first, `file_row` a
// file and its row of the history, or 0; false ends it. A path that is listed twice has one row.
template <class OldRows, class FileRow>
void merge_rows(const history_state& history, const file_columns& files, OldRows old_rows, FileRow file_row) {
    std::int32_t next = 1;
    std::string_view taken;
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        const std::string_view name = files.file_list[i];
        if (signature_to_keep(files, i) == 0 || is_archive_member(name) || is_blank(name) || name == taken)
            continue;
        std::int32_t row = 0;
        if (next <= history.history_count) {
            const search_result found = find_in_history(history, name, next);
            row = std::max(found.index, 0);
            old_rows(next, row > 0 ? row - 1 : found.upper_bound);
            next = (row > 0 ? row : found.upper_bound) + 1;
        }
        if (!file_row(i, row)) return;
        taken = name;
    }
    old_rows(next, history.history_count);
}

bool holds_already(const history_state& history, const file_columns& files) {
    bool all = true;
    merge_rows(
        history, files, [](std::int32_t, std::int32_t) {},
        [&](std::int32_t i, std::int32_t k) {
            all = k > 0 && history.history_len[k] == files.file_len[i] &&
                  history.history_date_hi[k] == files.file_date_hi[i] &&
                  history.history_date_lo[k] == files.file_date_lo[i] &&
                  history.history_crc[k] == signature_to_keep(files, i);
            return all;
        });
    return all;
}

}  // namespace

bool merge_history(file_system& disk, history_state& history, file_columns& files, std::string& error) {
    sort_by_name(files);
    if (history.history_as_stored && holds_already(history, files) && path_exists(disk, history.history_path))
        return true;
    history_writer writer(disk, history, files);
    merge_rows(
        history, files, [&](std::int32_t first, std::int32_t last) { writer.old_rows(first, last); },
        [&](std::int32_t i, std::int32_t) {
            writer.file_row(i);
            return true;
        });
    if (!writer.finish()) {
        error = writer.error();
        return false;
    }
    history.history_count = writer.written();
    return true;
}

}  // namespace corvane
