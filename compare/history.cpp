#include "compare/history.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "compare/column_order.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 900;
constexpr std::size_t count_width = 12;

void size_columns(run_state& state, std::int32_t count) {
    const std::size_t size = static_cast<std::size_t>(count) + 1;
    state.history_name.clear();
    state.history_len.assign(size, 0);
    state.history_date_hi.assign(size, 0);
    state.history_date_lo.assign(size, 0);
    state.history_crc.assign(size, 0);
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
void take_row(run_state& state, std::int32_t index, std::string_view row, char delimiter) {
    const auto k = static_cast<std::size_t>(index);
    state.history_crc[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    state.history_date_lo[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    state.history_date_hi[k] = static_cast<std::int32_t>(cut_number(row, delimiter));
    state.history_len[k] = cut_number(row, delimiter);
    state.history_name.push_back(row);
}

search_result find_in_history(run_state& state, std::string_view name, std::int32_t low) {
    const search_result found = find_text(state.history_name, name, low, state.history_count);
    state.search_upper_bound = found.upper_bound;
    return found;
}

}  // namespace

bool load_history(Tavrel& form) {
    run_state& state = form.state;
    state.history_count = 0;
    size_columns(state, 0);

    line_reader reader(form.outside.files, state.history_path);
    std::string_view line;
    if (!reader.next(line)) return true;
    const std::int64_t stated = parse_number(line);
    if (stated < 1) return true;
    const auto count = static_cast<std::int32_t>(std::min<std::int64_t>(stated, state.limits.files));

    form.panel(7, "查相同文件_预处理");
    bar_colours(form, 128, 65535, 0xF5F9EC);
    bar_scale(form, count);
    form.pic_gressbar1.visible = true;
    size_columns(state, count);
    state.history_name.reserve(count);
    char delimiter = ',';
    for (std::int32_t k = 1; k <= count && reader.next(line); ++k) {
        if (k == 1 && line.find('\t') != std::string_view::npos) delimiter = '\t';
        take_row(state, k, line, delimiter);
        if (k % rows_per_status == 0) {
            bar_draw(form, k);
            show_elapsed(form);
            form.yield();
            if (state.quit_requested) return false;
        }
    }
    // A file shorter than its count leaves the remaining rows empty.
    state.history_name.resize(count);
    state.history_count = count;
    form.pic_gressbar1.visible = false;
    return true;
}

void reuse_history(Tavrel& form) {
    run_state& state = form.state;
    form.panel(7, "核对文件历史数据");
    if (state.history_count < 1) return;
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        const std::string_view name = state.file_list[i];
        if (is_archive_member(name)) continue;
        const search_result found = find_in_history(state, name, 1);
        if (found.index < 1) continue;
        const auto k = static_cast<std::size_t>(found.index);
        const auto file = static_cast<std::size_t>(i);
        if (state.history_len[k] == state.file_len[file] &&
            state.history_date_hi[k] == state.file_date_hi[file] &&
            state.history_date_lo[k] == state.file_date_lo[file])
            state.file_crc[file] = state.history_crc[k];
    }
}

namespace {

// Writes the merged rows and counts them.
class history_writer {
  public:
    history_writer(Tavrel& form) : state_(form.state), writer_(form.outside.files, form.state.history_path) {
        // Line 1 keeps its length: the count is patched in when it is known.
        writer_.line("000000000000");
    }

    void old_rows(std::int32_t first, std::int32_t last, bool drop_blank) {
        for (std::int32_t k = first; k <= last; ++k) {
            if (drop_blank && is_blank(state_.history_name[k])) continue;
            const auto row = static_cast<std::size_t>(k);
            add(state_.history_name[k], state_.history_len[row], state_.history_date_hi[row],
                state_.history_date_lo[row], state_.history_crc[row]);
        }
    }

    void file_row(std::int32_t i) {
        const auto file = static_cast<std::size_t>(i);
        add(state_.file_list[i], state_.file_len[file], state_.file_date_hi[file], state_.file_date_lo[file],
            state_.file_crc[file]);
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

    run_state& state_;
    line_writer writer_;
    std::int32_t written_ = 0;
};

// Forgets files that are gone, on about one run in sixty.
void purge_history(Tavrel& form) {
    run_state& state = form.state;
    for (std::int32_t k = 1; k <= state.history_count; ++k) {
        if (!path_exists(form.outside.files, std::string(state.history_name[k])))
            state.history_name.set(k, "");
        form.yield();
    }
}

}  // namespace

bool merge_history(Tavrel& form) {
    run_state& state = form.state;
    sort_by_name(state);
    if (form.outside.screen.now().second % 60 == 1) purge_history(form);
    bar_colours(form, 128, 65535, 0xF5F9EC);
    bar_scale(form, state.file_count);

    history_writer writer(form);
    std::int32_t next = 1;
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        const std::string_view name = state.file_list[i];
        if (state.file_crc[static_cast<std::size_t>(i)] == 0 || is_archive_member(name)) continue;
        if (next <= state.history_count) {
            const search_result found = find_in_history(state, name, next);
            const std::int32_t last = found.index > 0 ? found.index - 1 : found.upper_bound;
            writer.old_rows(next, last, true);
            next = (found.index > 0 ? found.index : found.upper_bound) + 1;
        }
        writer.file_row(i);
    }
    writer.old_rows(next, state.history_count, false);
    if (!writer.finish()) {
        report_write_failure(form, state.history_path, writer.error());
        return false;
    }
    state.history_count = writer.written();
    return true;
}

}  // namespace corvane
