#include "browser/list_menu.h"

#include "browser/list_acts.h"
#include "browser/list_views.h"
#include "browser/row_panel.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

void tell_what_lacks(Tavrel& form, const outcome& result) {
    if (!result && result.lacking) form.complain(result.reason);
}

// The cell under the last mouse event; empty without one.
std::string clicked_cell(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const run_state& state = form.state;
    if (state.clicked_row < 1 || state.clicked_row > list.row_count()) return {};
    return state.clicked_column < list.column_count() ? list.cell(state.clicked_row, state.clicked_column)
                                                      : std::string();
}

// The archive opens, and its tool is asked to find the entry: the name goes to the clipboard and into the
// tool's find box.
void open_in_archive(Tavrel& form, const std::string& path, std::size_t star) {
    shell& desktop = form.outside.desktop;
    desktop.set_clipboard('"' + path.substr(star + 1) + '"');
    open_quietly(form, path.substr(0, star));
    form.outside.screen.wait(0.5);
    desktop.send_keys("{F3}");
    form.outside.screen.wait(0.1);
    desktop.send_keys("^V");
    form.outside.screen.wait(0.1);
    desktop.send_keys("{ENTER}");
}

}  // namespace

void open_quietly(Tavrel& form, const std::string& path) {
    tell_what_lacks(form, form.outside.desktop.open_document(path));
}

void open_same_file_Click(Tavrel& form) {
    const std::string path = clicked_cell(form);
    if (path.empty()) return;
    const std::size_t star = path.rfind('*');
    if (star == std::string::npos)
        open_quietly(form, path);
    else
        open_in_archive(form, path, star);
}

void double_disp_Click(Tavrel& form) {
    const list_view& list = form.ListView1;
    const std::int32_t row = form.state.clicked_row;
    if (row < 1 || row > list.row_count()) return;
    const list_view_row& view = shown_view(form);
    if (list.column_count() <= view.searched[1] || list.column_count() < 5) return;
    for (const int column : view.searched)
        if (const std::string path = list.cell(row, column); !is_blank(path)) open_quietly(form, path);
}

void mnu_enter_dir_Click(Tavrel& form) {
    std::string path = clicked_cell(form);
    const std::size_t star = path.rfind('*');
    if (star != std::string::npos) path.resize(star);
    if (path.find(form.outside.files.separator()) == std::string::npos) return;
    tell_what_lacks(form, form.outside.desktop.show_in_file_manager(path));
}

void disp_same_file_attr_Click(Tavrel& form) {
    locate_column(form);
    run_state& state = form.state;
    if (state.clicked_row == 0) return;
    const list_view_row& view = shown_view(form);
    const bool asked_of_clicked = view.property_column == 0;
    const int column = asked_of_clicked ? state.clicked_column : view.property_column;
    if (asked_of_clicked && column != view.searched[0] && column != view.searched[1]) return;
    if (state.clicked_row > form.ListView1.row_count() || column >= form.ListView1.column_count()) return;
    const std::string path = form.ListView1.cell(state.clicked_row, column);
    if (path.compare(" ") > 0) tell_what_lacks(form, form.outside.desktop.show_properties(path));
}

void same_time_open_2file_Click(Tavrel& form) {
    locate_column(form);
    if (form.state.clicked_row > 0) show_row_panel(form, form.state.clicked_row);
}

void open_directory_of_box(Tavrel& form, const std::string& words) {
    std::string path = words.substr(0, words.find('\t'));
    path = path.substr(0, path.find('*'));
    const std::size_t cut = path.rfind(form.outside.files.separator());
    // The root keeps its separator.
    if (cut != std::string::npos) open_quietly(form, path.substr(0, cut == 0 ? 1 : cut));
}

}  // namespace corvane
