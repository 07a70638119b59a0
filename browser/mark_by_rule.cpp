#include "browser/mark_by_rule.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "browser/group_sort.h"
#include "browser/keep_rules.h"
#include "browser/list_marks.h"
#include "browser/list_views.h"
#include "browser/mark_history.h"
#include "browser/pair_table.h"
#include "browser/same_view.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/protected_folders.h"
#include "core/tasks/task_scope.h"
#include "core/text/path_text.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int64_t gone = INT64_MAX;  // in place of a date: no longer there
constexpr std::size_t facts_at_once = 1024;

std::size_t at(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

// What a rule would mark.
struct plan {
    std::vector<char> chosen;  // by member
    std::int64_t files = 0;
    double bytes = 0;

    void choose(std::int32_t member, std::int64_t length) {
        chosen[at(member)] = 1;
        ++files;
        bytes += static_cast<double>(length);
    }
};

std::string plan_words(const plan& made) {
    return std::to_string(made.files) + " 个文件, " + short_size(made.bytes);
}

// The dates of all members, asked of the disk; yields. Empty: the program is closing.
std::vector<std::int64_t> dates_of(Tavrel& form, const pair_groups& groups) {
    std::vector<std::int64_t> dates(at(groups.member_count()), rule_copy::unknown_date);
    std::vector<std::int32_t> members;
    std::vector<std::string_view> paths;
    std::vector<file_facts> answers(facts_at_once);
    for (std::int32_t member = 0; member < groups.member_count();) {
        members.clear();
        paths.clear();
        for (; member < groups.member_count() && paths.size() < facts_at_once; ++member) {
            if (is_archive_member(groups.path(member))) continue;
            members.push_back(member);
            paths.push_back(groups.path(member));
        }
        for (std::size_t asked = 0; asked < paths.size();) {
            const std::size_t count = form.outside.files.many_facts(
                std::span(paths).subspan(asked), std::span(answers).first(paths.size() - asked));
            for (std::size_t i = 0; i < count; ++i)
                dates[at(members[asked + i])] = !answers[i].exists
                                                    ? gone
                                                    : (std::int64_t{answers[i].date_high} << 32) |
                                                          static_cast<std::uint32_t>(answers[i].date_low);
            asked += count;
            form.yield();
            if (form.state.quit_requested) return {};
        }
    }
    return dates;
}

class rule_work {
  public:
    rule_work(Tavrel& form, const keep_rule& rule, rule_input input)
        : form_(form), rule_(rule), input_(std::move(input)), table_(form), protected_(form) {}

    // False: the program is closing. Marks that are set meanwhile are seen by the plan that follows.
    bool ask_disk() {
        if (!rule_.needs_dates && !table_.has_blank_cells()) return true;
        dates_ = dates_of(form_, table_.groups());
        table_.renew_marks(form_);
        return !dates_.empty() || table_.groups().member_count() == 0;
    }
    bool has_hidden_pairs() const { return table_.has_hidden_pairs(); }
    void renew_marks() { table_.renew_marks(form_); }
    void mark(const plan& made) { table_.mark(form_, made.chosen); }

    // With `hidden`, what would be marked if all pairs had rows.
    plan make_plan(bool hidden) {
        const pair_groups& groups = table_.groups();
        plan made{std::vector<char>(at(groups.member_count()))};
        for (std::int32_t number = 0; number < groups.group_count(); ++number) {
            take_copies(groups.group(number));
            if (copies_.size() < 2) continue;
            kept_.clear();
            rule_.keep(input_, copies_, kept_);
            if (kept_.empty()) continue;
            std::sort(kept_.begin(), kept_.end());
            for (const rule_copy& copy : copies_) {
                const pair_table::member_state& state = table_.state(copy.member);
                const bool markable = state.shown || (hidden && state.hidden);
                if (markable && !std::binary_search(kept_.begin(), kept_.end(), copy.member) &&
                    !protected_.covers(copy.path))
                    made.choose(copy.member, state.length);
            }
        }
        return made;
    }

  private:
    // Those of a group that are not marked and, as far as the disk was asked, there.
    void take_copies(std::span<const std::int32_t> group) {
        copies_.clear();
        if (rule_.counts_neighbours) count_neighbours(group);
        for (std::size_t i = 0; i < group.size(); ++i) {
            const std::int32_t member = group[i];
            const std::int64_t date = dates_.empty() ? rule_copy::unknown_date : dates_[at(member)];
            if (table_.state(member).marked || date == gone) continue;
            const std::int32_t neighbours = rule_.counts_neighbours ? neighbours_[i] : 0;
            copies_.push_back({member, table_.groups().path(member), date, neighbours});
        }
    }

    // Most groups are small: their folders are held against each other.
    void count_neighbours(std::span<const std::int32_t> group) {
        folders_.clear();
        neighbours_.clear();
        // Two lie in one folder or each in its own: no folder holds more than the other.
        if (group.size() == 2) return neighbours_.assign(2, 1);
        for (const std::int32_t member : group)
            folders_.push_back(folder_of(table_.groups().path(member), input_.separator));
        if (group.size() <= 16) {
            for (const std::string_view folder : folders_)
                neighbours_.push_back(
                    static_cast<std::int32_t>(std::count(folders_.begin(), folders_.end(), folder)));
            return;
        }
        std::unordered_map<std::string_view, std::int32_t> counts;
        for (const std::string_view folder : folders_) ++counts[folder];
        for (const std::string_view folder : folders_) neighbours_.push_back(counts[folder]);
    }

    Tavrel& form_;
    const keep_rule& rule_;
    rule_input input_;
    pair_table table_;
    protection protected_;
    std::vector<std::int64_t> dates_;
    std::vector<rule_copy> copies_;
    std::vector<std::int32_t> kept_;
    std::vector<std::string_view> folders_;  // of the members of the group in hand
    std::vector<std::int32_t> neighbours_;   // the same
};

bool holds_pairs(Tavrel& form) {
    if (refuses_hidden_list(form)) return false;
    if (shown_view(form).holds_copies) return true;
    form.inform("非相同文件状态,不能标记");
    return false;
}

// "a|b", each with its closing separator. False: nothing was named.
bool ask_folders(Tavrel& form, std::vector<std::string>& folders) {
    std::string& kept = form.state.keep_folders_text;
    if (kept.empty())
        for (std::int16_t i = 1; i <= form.state.selected_dir_count; ++i)
            kept += (i > 1 ? "|" : "") + form.state.selected_dirs[i];
    const std::string answer =
        form.outside.screen.ask_text("输入框", "按次序保留哪些目录里的, 用 | 分开\r\n", kept).value_or("");
    if (is_blank(answer)) return false;
    kept = answer;
    std::vector<std::string> parts;
    const int count = split_text(answer, "|", parts);
    for (int i = 1; i <= count; ++i) {
        const std::string_view part = trimmed(parts[static_cast<std::size_t>(i)]);
        if (!part.empty()) folders.push_back(with_separator(part, form.outside.files.separator()));
    }
    return !folders.empty();
}

enum class scope { none, shown, all };

scope ask_scope(Tavrel& form, rule_work& work, const keep_rule& rule, const plan& shown) {
    message box;
    box.text = std::string(rule.words) + ": 将标记 " + plan_words(shown);
    box.yes_words = "标记";
    box.no_words = "不标记";
    if (!work.has_hidden_pairs())
        return form.ask(std::move(box)) == box_answer::yes ? scope::shown : scope::none;
    box.text += "\r\n连同未显示的行: " + plan_words(work.make_plan(true));
    box.yes_words = "只标记显示的行";
    box.no_words = "显示并标记全部行";
    box.cancel_words = "取消";
    const box_answer answer = form.ask(std::move(box));
    return answer == box_answer::yes ? scope::shown : answer == box_answer::no ? scope::all : scope::none;
}

void tell_marked(Tavrel& form, const plan& made) {
    form.panel(5, "已标记:" + plan_words(made));
}

void run_rule(Tavrel& form, const keep_rule& rule) {
    if (!holds_pairs(form)) return;
    rule_input input{form.outside.files.separator(), {}};
    if (rule.asks_folders && !ask_folders(form, input.folders)) return;
    const task_scope task(form);
    rule_work work(form, rule, input);
    if (!work.ask_disk()) return;
    plan made = work.make_plan(false);
    if (made.files == 0 && !work.has_hidden_pairs())
        return form.inform(std::string(rule.words) + ": 没有可标记的文件");
    const std::uint64_t rows = form.ListView1.fill_revision();
    const std::uint64_t cells = form.ListView1.cell_revision();
    const scope chosen = ask_scope(form, work, rule, made);
    if (chosen == scope::none || form.state.quit_requested || rows != form.ListView1.fill_revision()) return;
    if (chosen == scope::shown) {
        if (cells != form.ListView1.cell_revision()) {
            work.renew_marks();
            made = work.make_plan(false);
        }
        const mark_act noted(form);
        work.mark(made);
        return tell_marked(form, made);
    }
    const row_act noted(form);
    const std::vector<row_act::red_cell> marks = red_cells(form);
    load_same_view(form);
    if (form.state.quit_requested || !form.ListView1.visible) return;
    mark_again(form, marks);
    rule_work over_all(form, rule, std::move(input));
    if (!over_all.ask_disk()) return;
    made = over_all.make_plan(false);
    over_all.mark(made);
    tell_marked(form, made);
}

// Of a group of which anything is marked the marked become unmarked and the others marked; one without marks
// stays, for it would lose all.
void invert_pairs(Tavrel& form) {
    const pair_table table(form);
    const pair_groups& groups = table.groups();
    std::vector<char> marks(at(groups.member_count())), others(marks);
    for (std::int32_t number = 0; number < groups.group_count(); ++number) {
        const auto group = groups.group(number);
        // A blue mark stays what it is, and keeps nobody.
        const bool any = std::any_of(group.begin(), group.end(), [&](std::int32_t member) {
            return table.state(member).red && !table.state(member).blue;
        });
        for (const std::int32_t member : group)
            (table.state(member).marked ? marks : others)[at(member)] = any ? 1 : 0;
    }
    table.unmark(form, marks);
    table.mark(form, others);
}

// True for a list in which marks of the menu have a meaning.
bool takes_marks(const Tavrel& form) {
    const list_view_row& view = shown_view(form);
    return view.marks_all && form.ListView1.column_count() > std::max(view.first_path, view.second_path);
}

void invert_marks_Click(Tavrel& form) {
    if (refuses_hidden_list(form) || !takes_marks(form)) return;
    const mark_act noted(form);
    list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (view.marks == mark_rule::pairs) return invert_pairs(form);
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        if (!is_blank(list.text_cell(row, view.first_path)))
            list.set_colour(row, view.first_path,
                            list.colour(row, view.first_path) == mark_red ? colour_text : mark_red);
}

void clear_marks_Click(Tavrel& form) {
    if (refuses_hidden_list(form)) return;
    const mark_act noted(form);
    list_view& list = form.ListView1;
    for (const row_act::red_cell& cell : red_cells(form))
        list.set_colour(cell.row, cell.column, plain_colour(list, cell.row, cell.column));
}

}  // namespace

handler_table mark_handlers() {
    handler_table table;
    for (const keep_rule& rule : keep_rules())
        table.push_back({rule.handler, [&rule](Tavrel& form) { run_rule(form, rule); }, starts_task});
    // These, too, are no matter of a list that a task works on.
    table.push_back({"invert_marks", invert_marks_Click, starts_task});
    table.push_back({"clear_marks", clear_marks_Click, starts_task});
    table.push_back({"undo_marks", undo_marks_Click, starts_task});
    table.push_back({"redo_marks", redo_marks_Click, starts_task});
    table.push_back({"unmark_protected", unmark_protected});
    table.push_back({"sort_by_freed", sort_by_freed_Click, starts_task});
    table.push_back({"group_of_row", group_of_row_Click});
    return table;
}

}  // namespace corvane
