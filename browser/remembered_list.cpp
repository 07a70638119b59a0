#include "browser/remembered_list.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "browser/list_sort.h"
#include "browser/list_views.h"
#include "core/model/main_form.h"

namespace corvane {

namespace {

constexpr int least_width = 60;  // twips; a column stays wide enough to be caught again
constexpr int most_width = 100'000;
constexpr char sort_name[] = "sort.0";  // of the same-file view: a column, or "-" and a column

std::string width_name(const Tavrel& form, int column) {
    return "width." + std::to_string(form.state.list_mode) + "." + std::to_string(column);
}

}  // namespace

void remember_width(Tavrel& form, int column, int twips) {
    if (column < 0 || column >= form.ListView1.column_count()) return;
    form.state.remembered.set(width_name(form, column),
                              std::to_string(std::clamp(twips, least_width, most_width)));
}

void apply_remembered_widths(Tavrel& form) {
    list_view& list = form.ListView1;
    for (int column = 0; column < list.column_count(); ++column) {
        const std::string kept = form.state.remembered.value(width_name(form, column));
        const int width = remembered_number(kept, least_width, most_width, 0);
        if (width > 0 && width != list.columns()[static_cast<std::size_t>(column)].width)
            list.set_column_width(column, width);
    }
}

void remember_sort(Tavrel& form, int column) {
    const list_view_row& view = shown_view(form);
    if (!view.holds_copies) return;
    if (column < 0 || column >= static_cast<int>(view.columns.size()) ||
        !view.columns[static_cast<std::size_t>(column)].sorts)
        return;
    std::string value = std::to_string(column);
    if (form.state.sort_descending != 0) value.insert(value.begin(), '-');
    form.state.remembered.set(sort_name, std::move(value));
}

void apply_remembered_sort(Tavrel& form) {
    const std::string kept = form.state.remembered.value(sort_name);
    const list_view_row& view = shown_view(form);
    if (kept.empty() || !view.holds_copies) return;
    const bool descends = kept.front() == '-';
    const int most = static_cast<int>(view.columns.size()) - 1;
    const int column = remembered_number(std::string_view(kept).substr(descends ? 1 : 0), 1, most, 0);
    if (column == 0 || !view.columns[static_cast<std::size_t>(column)].sorts) return;
    // A second click on a heading turns the order round.
    form.state.last_sort_column =
        descends ? form.ListView1.columns()[static_cast<std::size_t>(column)].header : std::string();
    sort_by_column(form, column);
}

}  // namespace corvane
