#include "browser/preview.h"

#include <algorithm>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

constexpr char entry[] = "preview_m";
constexpr char shown_line[] = "preview=1";
constexpr char hidden_line[] = "preview=0";
constexpr std::size_t most_copies = 20;

class copy_finder {
  public:
    copy_finder(const Tavrel& form, preview_question& question)
        : list_(form.ListView1), view_(shown_view(form)), question_(question) {}

    void find(std::int32_t row) {
        length_ = list_.number_cell(row, view_.length_column);
        for (std::int32_t at = 1; at <= list_.row_count() && !question_.more_copies; ++at) {
            if (list_.number_cell(at, view_.length_column) != length_) continue;
            const std::string_view first = list_.text_cell(at, view_.first_path);
            const std::string_view second = list_.text_cell(at, view_.second_path);
            if (is_known(first) || is_known(second)) {
                add(first);
                add(second);
            }
        }
    }

  private:
    bool is_known(std::string_view path) const {
        return !path.empty() &&
               std::find(question_.paths.begin(), question_.paths.end(), path) != question_.paths.end();
    }
    void add(std::string_view path) {
        std::vector<std::string>& copies = question_.other_copies;
        if (path.empty() || is_known(path) || std::find(copies.begin(), copies.end(), path) != copies.end())
            return;
        if (copies.size() == most_copies)
            question_.more_copies = true;
        else
            copies.emplace_back(path);
    }

    const list_view& list_;
    const list_view_row& view_;
    preview_question& question_;
    std::int64_t length_ = 0;
};

}  // namespace

bool preview_shown(const Tavrel& form) {
    return form.find(entry)->value != 0;
}

void preview_m_Click(Tavrel& form) {
    control& item = *form.find(entry);
    item.value = item.value != 0 ? 0 : -1;
    const std::string path = form.data_path(data_file::preview);
    line_writer writer(form.outside.files, path);
    writer.line(item.value != 0 ? shown_line : hidden_line);
    if (!writer.finish()) form.complain(path + "\r\n" + writer.error());
}

void read_preview_shown(Tavrel& form) {
    line_reader lines(form.outside.files, form.data_path(data_file::preview));
    std::string_view line;
    form.find(entry)->value = lines.next(line) && line == shown_line ? -1 : 0;
}

preview_question preview_of_row(const Tavrel& form, std::int32_t row) {
    preview_question question;
    const list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (row < 1 || row > list.row_count() || view.first_path >= list.column_count()) return question;
    const bool says_length = view.length_column != 0;
    for (const int column : {view.first_path, view.second_path}) {
        if (column == 0 || column >= list.column_count()) continue;
        const std::string path = list.cell(row, column);
        if (path.empty()) continue;
        question.paths.push_back(path);
        question.lengths.push_back(says_length ? list.cell(row, view.length_column) : std::string());
    }
    if (view.holds_copies && !question.paths.empty()) copy_finder(form, question).find(row);
    return question;
}

}  // namespace corvane
