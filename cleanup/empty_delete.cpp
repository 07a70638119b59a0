#include "cleanup/empty_delete.h"

#include <string>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "cleanup/recycle_batches.h"
#include "cleanup/recycle_notes.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/protected_folders.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

// What one run has come to.
struct tallies {
    struct taken_row {
        std::string path;
        std::int32_t row;
    };
    std::vector<taken_row> taken;  // on their way to the recycle bin
    std::int32_t gone = 0;
    std::int32_t refused = 0;  // protected
    std::int32_t covered = 0;  // in a protected folder
    std::int32_t filled = 0;   // no longer empty
    std::string first_filled;
    std::int32_t not_taken = 0;  // by the bin
    std::string first_not_taken;
};

std::string without_trailing_blanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// A full path that ends in the separator and takes no detour. The stored list is a text that anyone can edit,
// and nothing may go that it does not plainly name.
bool names_directory(const Tavrel& form, std::string_view path) {
    const char separator = form.outside.files.separator();
    if (path.empty() || path.back() != separator) return false;
    const bool with_drive = separator == '\\' && path.size() >= 3 && path[1] == ':' && path[2] == separator;
    const bool on_server =
        separator == '\\' && path.size() >= 3 && path[0] == separator && path[1] == separator;
    if (separator == '\\' ? !with_drive && !on_server : path[0] != separator) return false;
    bool named = false;
    for (std::size_t start = with_drive ? 3 : 1; start < path.size();) {
        const std::size_t end = path.find(separator, start);
        const std::string_view name = path.substr(start, end - start);
        if (name == "." || name == "..") return false;
        named |= !name.empty();
        start = end + 1;
    }
    return named;
}

bool is_directory(Tavrel& form, const std::string& path) {
    const path_attributes facts = form.outside.files.attributes(path.substr(0, path.size() - 1));
    return facts.exists && facts.directory && !facts.link;
}

// Whether it is empty as it stands; what cannot be read to its end is not.
bool is_still_empty(Tavrel& form, const std::string& path) {
    const auto reader = form.outside.files.open_directory(path);
    std::string_view name;
    entry_kind kind;
    return reader && !reader->next(name, kind) && !reader->failed();
}

// A row that was blanked too early.
void put_back(Tavrel& form, const tallies::taken_row& taken) {
    form.ListView1.set_text(taken.row, shown_view(form).first_path, taken.path);
}

bool is_protected(Tavrel& form, const std::string& path) {
    const path_attributes facts = form.outside.files.attributes(path);
    return facts.hidden || facts.read_only;
}

void take_row(Tavrel& form, std::int32_t row, protection& folders, tallies& count) {
    list_view& list = form.ListView1;
    const int path_column = shown_view(form).first_path;
    const std::uint32_t colour = list.colour(row, path_column);
    if (colour != mark_red && !(colour == mark_blue && form.state.force_protected)) return;
    const std::string path = without_trailing_blanks(list.cell(row, path_column));
    if (is_blank(path) || !names_directory(form, path) || !is_directory(form, path)) return;
    if (folders.covers(path)) {
        ++count.covered;
        return;
    }
    // A failure shows in the attributes.
    if (colour == mark_blue) form.outside.files.clear_attributes(path);
    if (is_protected(form, path)) {
        ++count.refused;
        list.set_colour(row, path_column, mark_blue);
        return;
    }
    count.taken.push_back({path, row});
    list.set_text(row, path_column, "");
    form.panel(5, "正在删除:" + std::to_string(count.taken.size()));
    show_elapsed(form);
}

// The disk may have changed since the scan looked: each is asked again right before it goes.
void send_rows(Tavrel& form, tallies& count) {
    const auto path_of = [&](std::size_t number) -> const std::string* {
        const tallies::taken_row& taken = count.taken[number];
        if (!is_directory(form, taken.path)) return nullptr;
        // With nothing known from before: a folder above may have become a link or a mount meanwhile.
        const bool covered = protection(form).covers(taken.path);
        if (!covered && is_still_empty(form, taken.path)) {
            ++count.gone;
            return &taken.path;
        }
        if (covered)
            ++count.covered;
        else if (count.filled++ == 0)
            count.first_filled = taken.path;
        put_back(form, taken);
        return nullptr;
    };
    const auto refused = [&](std::size_t number) {
        const tallies::taken_row& taken = count.taken[number];
        --count.gone;
        if (count.not_taken++ == 0) count.first_not_taken = taken.path;
        put_back(form, taken);
    };
    recycle_notes notes(form);
    send_in_batches(form, count.taken.size(), notes, path_of, refused);
}

void report(Tavrel& form, const tallies& count) {
    std::string words = "放入回收站:";
    words.append(std::to_string(count.gone)).append(" 个空目录");
    if (count.covered > 0)
        words.append("\r\n受保护,保留 ").append(std::to_string(count.covered)).append(" 个空目录");
    if (count.filled > 0)
        words.append("\r\n保留 ")
            .append(std::to_string(count.filled))
            .append(" 个已不空的目录: ")
            .append(count.first_filled);
    if (count.not_taken > 0)
        words.append("\r\n回收站未收下 ")
            .append(std::to_string(count.not_taken))
            .append(" 个: ")
            .append(count.first_not_taken);
    if (count.refused == 0) return form.inform(words);
    words.append("\r\n无法删除:").append(std::to_string(count.refused)).append(" 个空目录 (隐藏或只读)");
    words.append("\r\n如需删除隐藏或只读目录,请按 yes,并重新运行<删除空目录>");
    if (form.confirm(words)) form.state.force_protected = -1;
}

}  // namespace

void Picture8_Click(Tavrel& form) {
    if (help_mode_opens(form, 40)) return;
    run_state& state = form.state;
    list_view& list = form.ListView1;
    if (shown_view(form).deletes != deletion_rule::empty_directories)
        return form.complain("非空目录状态,不能删除");
    if (state.empty_dir_count != 0 && refuses_hidden_list(form)) return;
    form.RichTextBox2.visible = false;
    state.base_time = form.outside.screen.seconds();
    form.panel(7, "删除空目录");
    if (state.empty_dir_count == 0) return form.complain("没有选中的要删除的空目录,请重选");
    // The options window stores 1 for a check: the question is kept for a setting that says -1.
    if (state.delete_prompt_on == -1 && !form.confirm("空目录放入回收站吗？")) return;
    const task_scope task(form);
    bar_scale(form, list.row_count());
    form.pic_gressbar1.visible = true;
    form.panel(5, "已删除:0");

    tallies count;
    protection folders(form);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        take_row(form, row, folders, count);
        bar_draw(form, row);
        if (state.quit_requested) return;
    }
    if (!count.taken.empty()) {
        send_rows(form, count);
        if (state.quit_requested) return;
        state.force_protected = 0;
    }
    form.panel(5, "已删除:" + std::to_string(count.gone));
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
    report(form, count);
}

void del_dir_Click(Tavrel& form) {
    if (shown_view(form).deletes == deletion_rule::empty_directories) Picture8_Click(form);
}

}  // namespace corvane
