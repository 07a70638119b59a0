#include "reports/tree_suffixes.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"
#include "reports/tree_lines.h"

namespace corvane {

namespace {

constexpr int suffix_column = 1;
constexpr int number_column = 2;

}  // namespace

suffix_list::suffix_list(list_view& view) : view_(view) {
    view_.add_column({"", 4, text_alignment::left, cell_content::text});
    view_.add_column({"后缀", 900, text_alignment::left, cell_content::text});
    view_.add_column({"数量", 700, text_alignment::right, cell_content::number});
}

void suffix_list::clear() {
    suffix_names.clear();
    suffix_counts.clear();
    suffix_total = largest_count = 0;
    view_.clear_rows();
}

void suffix_list::count(Tavrel& form) {
    clear();
    const char separator = form.outside.files.separator();
    std::unordered_map<std::string_view, std::int32_t> known;
    for (std::int32_t i = 1; i <= form.state.file_count; ++i) {
        const std::string_view path = form.state.file_list[i];
        if (is_archive_member(path)) continue;
        const auto [place, is_new] = known.emplace(suffix_of(path, separator), suffix_total + 1);
        if (is_new) {
            suffix_names.push_back(place->first);
            suffix_counts.push_back(0);
            ++suffix_total;
        }
        largest_count = std::max(largest_count, ++suffix_counts[place->second]);
    }
}

void suffix_list::fill() {
    view_.clear_rows();
    view_.reserve_rows(suffix_total);
    for (std::int32_t i = 1; i <= suffix_total; ++i) {
        const std::int32_t row = view_.add_row();
        view_.set_text(row, suffix_column, suffix_names[i]);
        view_.set_number(row, number_column, suffix_counts[i]);
    }
    sorted_by_ = 0;
    descends_ = false;
}

// Counts filled up with zeros to one length and ordered as texts stand as the numbers do.
void suffix_list::sort(int heading) {
    if (heading != suffix_column && heading != number_column) return;
    descends_ = heading == sorted_by_ && !descends_;
    sorted_by_ = heading;
    std::vector<std::int32_t> order(static_cast<std::size_t>(view_.row_count()));
    std::iota(order.begin(), order.end(), 1);
    std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) {
        if (descends_) std::swap(a, b);
        return heading == suffix_column ? view_.text_cell(a, heading) < view_.text_cell(b, heading)
                                        : view_.number_cell(a, heading) < view_.number_cell(b, heading);
    });
    view_.reorder(order);
    view_.selected_row = 0;
}

void suffix_list::take_selected(control& box) {
    const std::int32_t row = view_.selected_row;
    if (row < 1 || row > view_.row_count()) return;
    for (const int column : {suffix_column, number_column})
        view_.set_colour(row, column, cell_colour::mark_red);
    const std::string suffix = view_.cell(row, suffix_column);
    std::vector<std::string> listed;
    split_text(box.text, ",", listed);
    if (std::find(listed.begin() + 1, listed.end(), suffix) != listed.end()) return;
    if (!is_blank(box.text)) box.text += ',';
    box.text += suffix;
}

}  // namespace corvane
