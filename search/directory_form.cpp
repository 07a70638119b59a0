#include "search/directory_form.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/text/path_text.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr char pick_tip[] = "右键选中,Ctrl+鼠标:多重选;shift 鼠标:区域选.";
constexpr int least_row_height = 255;   // twips
constexpr int least_stored_size = 256;  // a smaller one was never a window of this program
constexpr int flight_interval = 10;     // milliseconds between two steps of the caption

std::string size_words(std::int64_t bytes) {
    double figure = static_cast<double>(bytes);
    std::string unit;
    scale_size(figure, unit);
    return std::to_string(static_cast<std::int64_t>(figure)) + unit;
}

std::string row_words(const volume& place) {
    if (place.kind == volume_kind::home) return "主目录  " + place.path;
    if (place.kind == volume_kind::root) return "计算机  " + place.path;
    return place.name.empty() ? place.path : place.name + "  " + place.path;
}

std::string row_tip(const volume& place) {
    if (place.free_bytes < 0) return row_words(place);
    return row_words(place) + "\r\n可用 " + size_words(place.free_bytes) + "，共 " +
           size_words(place.total_bytes);
}

}  // namespace

directory_form::directory_form(Tavrel& main)
    : form_model("目录选择"),
      List_disk_sele(add<list_box>("List_disk_sele")),
      list_selected_dir(add<list_box>("list_selected_dir")),
      Dir_select(add<control>(control_kind::text_box, "Dir_select")),
      Check_hidden(add<control>(control_kind::check_box, "Check_hidden")),
      Label1(add<control>(control_kind::label, "Label1")),
      Command_sele(add<control>(control_kind::button, "Command_sele")),
      direction_help(add<control>(control_kind::button, "direction_help")),
      cmd_dir_firm(add<control>(control_kind::button, "cmd_dir_firm")),
      Command34(add<control>(control_kind::button, "Command34")),
      cmd_dir_discard(add<control>(control_kind::button, "cmd_dir_discard")),
      Text_animal(add<control>(control_kind::text_box, "Text_animal")),
      Timer1(add<timer_control>("Timer1", flight_interval)),
      select_dir_mnu(add<control>(control_kind::menu_item, "select_dir_mnu")),
      move_selected_dir(add<control>(control_kind::menu_item, "move_selected_dir")),
      清空列表M(add<control>(control_kind::menu_item, "清空列表M")),
      Text_path(add<control>(control_kind::text_box, "Text_path")),
      Command_path(add<control>(control_kind::button, "Command_path")),
      Command_open(add<control>(control_kind::button, "Command_open")),
      Command_remove(add<control>(control_kind::button, "Command_remove")),
      Command_recent(add<control>(control_kind::button, "Command_recent")),
      List_recent(add<list_box>("List_recent")),
      Label_nested(add<control>(control_kind::label, "Label_nested")),
      main_(main),
      flight_(Text_animal, Timer1),
      recent_(main) {
    caption = "搜索目录_选择";
    List_disk_sele.own_words = true;
    help_context = 1009;
    Check_hidden.caption = "显示隐藏目录";
    Label1.caption = "右键选中;Ctrl+鼠标:多选;shift 鼠标:区域选.";
    Command_sele.caption = "选中";
    direction_help.caption = "帮助F1";
    cmd_dir_firm.caption = "执行";
    cmd_dir_firm.tooltip = "确定并执行查重";
    Command34.caption = "确定";
    cmd_dir_discard.caption = "放弃";
    select_dir_mnu.caption = "选中目录_右键";
    move_selected_dir.caption = "移去选中的项目";
    清空列表M.caption = "清空列表";
    List_disk_sele.tooltip = Dir_select.tooltip = pick_tip;
    list_selected_dir.tooltip = "鼠标双击，放弃该目录.支持鼠标拖放,Ctrl+鼠标,多重拖入";
    Text_path.tooltip = "输入或粘贴目录的路径,也可以是几行;回车加入选中目录";
    Command_path.caption = "加入";
    Command_open.caption = "打开";
    Command_open.tooltip = "在目录树中打开或合上这个目录,不选中它(空格键,鼠标中键)";
    Command_remove.caption = "移去";
    Command_remove.tooltip = "移去选中的项目(Delete)";
    Command_recent.caption = "最近用过";
    Command_recent.tooltip = "换成以前选中的一组目录";
    List_recent.visible = false;
    // Without a front end the tree is the one row of its current directory.
    tree.paths = [this](int, int) { return std::vector<std::string>{Dir_select.text}; };
    drives.paths = [this](int first, int last) {
        std::vector<std::string> paths;
        for (int row = std::max(0, first); row <= last && row < static_cast<int>(volumes_.size()); ++row)
            paths.push_back(volumes_[static_cast<std::size_t>(row)].path);
        return paths;
    };
}

void directory_form::open() {
    if (help_mode_opens(main_, 9)) return;
    run_state& state = main_.state;
    main_.pic_gressbar1.visible = false;
    main_.RichTextBox2.visible = false;
    state.task_start_time = tick_seconds(main_);
    main_.StatusBar1.clear_figures();
    main_.panel(7, "目录选择");
    state.selected_dir_backup = state.selected_dirs;
    state.selected_dir_backup_count = state.selected_dir_count;
    fill_from_backup();
    if (!visible) load();
    open_following(main_, *this);
    visible = true;
}

void directory_form::load() {
    run_state& state = main_.state;
    const std::string stored_path = state.dir_select_path;
    fill_volumes();
    const bool known = !state.current_dir.empty() && path_exists(main_.outside.files, state.current_dir);
    Dir_select.text = known ? state.current_dir : volumes_.front().path;
    if (!stored_path.empty() && path_exists(main_.outside.files, stored_path)) Dir_select.text = stored_path;
    Dir_select_Change();
    choose_tree_root();
    row_height = std::max(row_height, least_row_height);
    take_stored_place();
}

void directory_form::fill_volumes() {
    run_state& state = main_.state;
    volumes_ = main_.outside.files.volumes();
    List_disk_sele.clear();
    for (const volume& drive : volumes_) List_disk_sele.add(row_words(drive), row_tip(drive));
    const auto last = static_cast<std::int16_t>(volumes_.size() - 1);
    state.disk_index = std::clamp<std::int16_t>(state.disk_index, 0, last);
    List_disk_sele.select_only(static_cast<std::size_t>(state.disk_index));
}

// The chosen volume if the directory lies on it, else the innermost one that holds it, else the first.
void directory_form::choose_tree_root() {
    const std::string directory = with_separator(Dir_select.text, main_.outside.files.separator());
    tree_root_ = volumes_[static_cast<std::size_t>(main_.state.disk_index)].path;
    if (directory.starts_with(tree_root_)) return;
    tree_root_.clear();
    for (const volume& drive : volumes_)
        if (directory.starts_with(drive.path) && drive.path.size() > tree_root_.size())
            tree_root_ = drive.path;
    if (!tree_root_.empty()) return;
    tree_root_ = volumes_.front().path;
    Dir_select.text = tree_root_;
    Dir_select_Change();
}

void directory_form::take_stored_place() {
    const run_state& state = main_.state;
    if (state.dirform_width < least_stored_size || state.dirform_height < least_stored_size) return;
    place = {std::max(0, state.dirform_left), std::max(0, state.dirform_top), state.dirform_width,
             state.dirform_height};
}

void directory_form::Form_Unload() {
    flight_.land();
    if (window != window_state::normal) return;
    run_state& state = main_.state;
    state.dirform_left = place.left;
    state.dirform_top = place.top;
    state.dirform_width = place.width;
    state.dirform_height = place.height;
}

void directory_form::Dir_select_MouseDown(mouse_button button, int shift, int row, int x, int y) {
    pick(tree, button, shift, row, x, y);
}

void directory_form::List_disk_sele_MouseDown(mouse_button button, int shift, int row, int x, int y) {
    pick(drives, button, shift, row, x, y);
}

void directory_form::pick(pick_source& source, mouse_button button, int shift, int row, int x, int y) {
    pick_source::picked taken = source.press(button, shift, row);
    if (taken.paths.empty()) return;
    if (taken.joins && flight_.is_running()) {
        std::vector<std::string> paths = flight_.land();
        paths.insert(paths.end(), taken.paths.begin(), taken.paths.end());
        taken.paths = std::move(paths);
    }
    send(std::move(taken.paths), x, y);
}

void directory_form::send(std::vector<std::string> paths, int x, int y) {
    // What is still on its way arrives first: no pick is lost to the next one.
    land();
    const auto most = static_cast<std::size_t>(main_.state.limits.selected_directories);
    if (paths.size() > most) {
        paths.resize(most);
        main_.complain("选中的目录太多，只取前 " + std::to_string(most) + " 个。");
    }
    const rectangle& list = list_selected_dir.place;
    const int next_row = row_height * static_cast<int>(list_selected_dir.rows().size());
    flight_.start(std::move(paths), x, y, list.left,
                  list.top + std::max(0, std::min(next_row, list.height - row_height)), row_height);
}

void directory_form::land() {
    if (flight_.is_running()) add_paths(flight_.land());
}

void directory_form::Timer1_Timer() {
    if (flight_.step()) add_paths(flight_.land());
}

void directory_form::List_disk_sele_Click(int row) {
    run_state& state = main_.state;
    if (row < 0 || row >= static_cast<int>(volumes_.size())) return;
    const std::string& path = volumes_[static_cast<std::size_t>(row)].path;
    if (!main_.outside.files.open_directory(path)) {
        List_disk_sele.select_only(static_cast<std::size_t>(state.disk_index));
        return;
    }
    state.disk_index = static_cast<std::int16_t>(row);
    tree_root_ = path;
    Dir_select.text = path;
    Dir_select_Change();
}

void directory_form::Dir_select_Change() {
    main_.state.dir_select_path = Dir_select.text;
    main_.state.current_dir = with_separator(Dir_select.text, main_.outside.files.separator());
}

void directory_form::Command_sele_Click() {
    if (Dir_select.text.empty()) return;
    send({Dir_select.text}, Dir_select.place.left, Dir_select.place.top);
}

}  // namespace corvane
