#include "browser/mark_history.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <tuple>

#include "browser/list_marks.h"
#include "browser/list_views.h"
#include "browser/pair_table.h"
#include "browser/row_keys.h"
#include "browser/rows_aside.h"
#include "core/model/main_form.h"
#include "core/tasks/protected_folders.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

// Colours as numbers of one byte.
constexpr std::uint32_t numbered[] = {colour_text, window_text, colour_archive, colour_gray,
                                      mark_red,    mark_blue,   colour_found};

// Stands for the colour of an unmarked cell, whichever that is; gray, which comes and goes with the order,
// too.
constexpr std::uint8_t plain = 3;

std::uint8_t number_of(std::uint32_t colour) {
    const auto* found = std::find(std::begin(numbered), std::end(numbered), colour);
    return found == std::end(numbered) ? std::uint8_t{0} : static_cast<std::uint8_t>(found - numbered);
}

mark_stacks& stacks_of(Tavrel& form) {
    return form.state.mark_history[static_cast<std::size_t>(form.state.list_mode)];
}

void push(Tavrel& form, std::vector<mark_change> changes) {
    if (changes.empty()) return;
    changes.shrink_to_fit();
    mark_stacks& stacks = stacks_of(form);
    stacks.undo.push_back({form.ListView1.fill_revision(), std::move(changes)});
    stacks.redo.clear();
}

// May take a mark: not gray, and no cell of the row is that of a file that has gone.
bool takes_mark(const list_view& list, const row_keys& keys, std::int32_t row, int column) {
    return list.colour(row, column) != colour_gray && !is_blank(list.text_cell(row, keys.first_column())) &&
           !is_blank(list.text_cell(row, keys.last_column()));
}

// Of a cell that has come to be gray: where its path stands unrepeated; a gray cell where it does not.
std::int32_t head_of(const list_view& list, std::int32_t row, int column) {
    while (row > 1 && list.colour(row, column) == colour_gray &&
           list.text_cell(row - 1, column) == list.text_cell(row, column))
        --row;
    return row;
}

bool has_blank_cell(const list_view& list, const row_keys& keys) {
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        if (list.text_cell(row, keys.first_column()).empty() ||
            list.text_cell(row, keys.last_column()).empty())
            return true;
    return false;
}

// True when a colour has changed.
bool apply(Tavrel& form, const mark_step& step, bool back) {
    list_view& list = form.ListView1;
    row_keys keys(form);
    protection covered(form);
    bool changed = false;
    const auto colour_over = [&](bool marking) {
        for (const mark_change& change : step.changes) {
            const std::uint8_t number = back ? change.before : change.after;
            const bool marks = numbered[number] == mark_red;
            if (marks != marking) continue;
            const int column = change.column;
            const std::int32_t row = head_of(list, keys.find(change.key, change.row), column);
            if (row == 0 || list.colour(row, column) == colour_gray) continue;
            if (marking &&
                (!takes_mark(list, keys, row, column) || covered.covers(list.text_cell(row, column))))
                continue;
            const std::uint32_t wanted = number == plain ? plain_colour(list, row, column) : numbered[number];
            if (list.colour(row, column) == wanted) continue;
            list.set_colour(row, column, wanted);
            changed = true;
        }
    };
    // Before new marks come the old ones have gone.
    colour_over(false);
    colour_over(true);
    // What has gone since may have been what a group kept.
    if (changed && shown_view(form).holds_copies &&
        (step.fill != list.fill_revision() || has_blank_cell(list, keys)))
        keep_one_of_each_group(form);
    return changed;
}

void step_through(Tavrel& form, bool back) {
    if (refuses_hidden_list(form)) return;
    mark_stacks& stacks = stacks_of(form);
    std::vector<mark_step>& from = back ? stacks.undo : stacks.redo;
    std::vector<mark_step>& to = back ? stacks.redo : stacks.undo;
    // A step of which no row is left would look like a key that does nothing.
    for (bool changed = false; !changed;) {
        if (from.empty()) return form.panel(5, back ? "没有可撤销的标记" : "没有可重做的标记");
        mark_step step = std::move(from.back());
        from.pop_back();
        changed = apply(form, step, back);
        to.push_back(std::move(step));
    }
    const std::string words = back ? "已撤销,标记:" : "已重做,标记:";
    form.panel(5, words + std::to_string(form.ListView1.marked_cells()));
}

}  // namespace

mark_act::mark_act(Tavrel& form) : mark_act(form, 1, form.ListView1.row_count()) {}

mark_act::mark_act(Tavrel& form, std::int32_t first, std::int32_t last)
    : form_(form),
      first_(std::max(first, 1)),
      last_(std::min(last, form.ListView1.row_count())),
      fill_(form.ListView1.fill_revision()) {
    const row_keys keys(form);
    if (!keys.has_cells()) last_ = 0;
    for (std::int32_t row = first_; row <= last_; ++row)
        for (int column = keys.first_column(); column <= keys.last_column(); ++column)
            colours_.push_back(form.ListView1.colour(row, column));
}

mark_act::~mark_act() {
    list_view& list = form_.ListView1;
    const row_keys keys(form_);
    if (list.fill_revision() != fill_ || list.row_count() < last_) return;
    protection covered(form_);
    std::vector<mark_change> changes;
    std::int32_t refused = 0;
    std::size_t noted = 0;
    for (std::int32_t row = first_; row <= last_; ++row) {
        // What the act did to the other cell of a row that is refused goes back with it.
        bool is_refused = false;
        std::size_t place = noted;
        for (int column = keys.first_column(); column <= keys.last_column(); ++column, ++place)
            is_refused |= list.colour(row, column) == mark_red && colours_[place] != mark_red &&
                          covered.covers(list.text_cell(row, column));
        refused += is_refused;
        for (int column = keys.first_column(); column <= keys.last_column(); ++column) {
            const std::uint32_t before = colours_[noted++];
            const std::uint32_t now = list.colour(row, column);
            if (now == before) continue;
            if (is_refused)
                list.set_colour(row, column, before);
            else
                changes.push_back({keys.key(row), row, static_cast<std::uint8_t>(column), number_of(before),
                                   number_of(now)});
        }
    }
    push(form_, std::move(changes));
    if (refused > 0) form_.panel(5, "受保护,不标记:" + std::to_string(refused));
}

namespace {

using red_cell = row_act::red_cell;

// From here on a walk over the marks, with a look at the texts of each, is felt.
constexpr std::int32_t many_marks = 20'000;

// The marked cells, without their keys: no text is looked at.
std::vector<red_cell> unkeyed_cells(const Tavrel& form, const row_keys& keys) {
    std::vector<red_cell> cells;
    const list_view& list = form.ListView1;
    if (!keys.has_cells() || list.marked_cells() == 0) return cells;
    cells.reserve(static_cast<std::size_t>(list.marked_cells()));
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        for (int column = keys.first_column(); column <= keys.last_column(); ++column)
            if (list.colour(row, column) == mark_red) cells.push_back({0, row, column});
    return cells;
}

void key_cells(const list_view& list, const row_keys& keys, std::vector<red_cell>& cells) {
    std::erase_if(cells, [&](const red_cell& cell) { return list.text_cell(cell.row, cell.column).empty(); });
    for (red_cell& cell : cells) cell.key = keys.key(cell.row);
}

bool comes_first(const red_cell& a, const red_cell& b) {
    return std::tie(a.key, a.column) < std::tie(b.key, b.column);
}

// By their places, for rows that stay.
bool stands_first(const red_cell& a, const red_cell& b) {
    return std::tie(a.row, a.column) < std::tie(b.row, b.column);
}

// Of marks before and after an act, both in the given order.
std::vector<mark_change> changes_between(const std::vector<red_cell>& before,
                                         const std::vector<red_cell>& after,
                                         bool (*comes_before)(const red_cell&, const red_cell&)) {
    std::vector<red_cell> lost, gained;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(lost),
                        comes_before);
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(gained),
                        comes_before);
    std::vector<mark_change> changes;
    changes.reserve(lost.size() + gained.size());
    for (const red_cell& cell : lost)
        changes.push_back(
            {cell.key, cell.row, static_cast<std::uint8_t>(cell.column), number_of(mark_red), plain});
    for (const red_cell& cell : gained)
        changes.push_back(
            {cell.key, cell.row, static_cast<std::uint8_t>(cell.column), plain, number_of(mark_red)});
    return changes;
}

// Work on a great many marks goes beside the event loop, unless a task that yields holds the rows already:
// what is called then returns at once.
void beside_events(Tavrel& form, std::size_t marks, const std::function<void()>& work) {
    if (marks < many_marks || form.open_scopes > 0 || form.state.tasks_locked) return work();
    look_at_rows_aside(form, work);
}

}  // namespace

std::vector<red_cell> red_cells(const Tavrel& form) {
    const row_keys keys(form);
    std::vector<red_cell> cells = unkeyed_cells(form, keys);
    key_cells(form.ListView1, keys, cells);
    return cells;
}

// Texts stay meanwhile, a mark may come or go: then all are looked at again, so that none is lost to the
// history.
std::vector<red_cell> row_act::keyed_cells() const {
    const list_view& list = form_.ListView1;
    const row_keys keys(form_);
    std::vector<red_cell> cells;
    list_revisions of;
    while (of != list.revisions() && !form_.state.quit_requested) {
        of = list.revisions();
        cells = unkeyed_cells(form_, keys);
        beside_events(form_, cells.size(), [&] { key_cells(list, keys, cells); });
    }
    return cells;
}

row_act::row_act(Tavrel& form, rows what)
    : form_(form),
      rows_(what),
      list_mode_(form.state.list_mode),
      revisions_(form.ListView1.revisions()),
      before_(what == rows::move ? keyed_cells() : unkeyed_cells(form, row_keys(form))) {}

row_act::~row_act() {
    if (is_over() || (before_.empty() && form_.ListView1.marked_cells() == 0)) return;
    rows_ == rows::move ? note_moved() : note_stayed();
}

bool row_act::is_over() const {
    return form_.state.quit_requested || form_.state.list_mode != list_mode_;
}

void row_act::note_moved() {
    std::vector<red_cell> after = keyed_cells();
    if (is_over()) return;
    std::vector<mark_change> changes;
    beside_events(form_, before_.size() + after.size(), [&] {
        // Where one side is empty the other has changed as a whole, in whatever order.
        if (!before_.empty() && !after.empty())
            for (std::vector<red_cell>* cells : {&before_, &after})
                std::sort(cells->begin(), cells->end(), comes_first);
        changes = changes_between(before_, after, comes_first);
    });
    if (!is_over()) push(form_, std::move(changes));
}

void row_act::note_stayed() {
    const list_revisions now = form_.ListView1.revisions();
    if (now.fill != revisions_.fill || now.order != revisions_.order) return;
    const row_keys keys(form_);
    std::vector<mark_change> changes = changes_between(before_, unkeyed_cells(form_, keys), stands_first);
    for (mark_change& change : changes) change.key = keys.key(change.row);
    push(form_, std::move(changes));
}

void mark_again(Tavrel& form, const std::vector<row_act::red_cell>& cells) {
    list_view& list = form.ListView1;
    row_keys keys(form);
    protection covered(form);
    for (const row_act::red_cell& cell : cells) {
        const std::int32_t row = head_of(list, keys.find(cell.key, cell.row), cell.column);
        if (row != 0 && takes_mark(list, keys, row, cell.column) &&
            !covered.covers(list.text_cell(row, cell.column)))
            list.set_colour(row, cell.column, mark_red);
    }
}

void undo_marks_Click(Tavrel& form) {
    step_through(form, true);
}

void redo_marks_Click(Tavrel& form) {
    step_through(form, false);
}

void unmark_protected(Tavrel& form) {
    protection covered(form);
    if (!covered.is_needed()) return;
    // A step of the history, or a later one would count with a mark that is no more.
    const mark_act noted(form);
    list_view& list = form.ListView1;
    for (const row_act::red_cell& cell : red_cells(form))
        if (covered.covers(list.text_cell(cell.row, cell.column)))
            list.set_colour(cell.row, cell.column, plain_colour(list, cell.row, cell.column));
}

}  // namespace corvane
