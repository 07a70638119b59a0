#include "cleanup/restore_form.h"

#include <array>
#include <utility>

#include "core/model/main_form.h"
#include "core/model/window_handlers.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr int help_topic = 20;

std::string run_words(const recycled_run& run) {
    if (!run.known) return run.path + "  不认识的删除记录";
    std::string words = run.time.empty() ? run.path : run.time;
    words.append("    ").append(std::to_string(run.count())).append(" 个, ").append(short_size(run.bytes()));
    return run.complete ? words : words + "  (记录不完整)";
}

std::string file_words(const recycled_file& file, recycled_state state) {
    std::string words = state_words(state);
    words.append("    ").append(std::to_string(file.item.length)).append("    ");
    words += file.item.path;
    if (!file.restored_path.empty() && file.restored_path != file.item.path)
        words.append("  →  ").append(file.restored_path);
    return words;
}

std::string tally_words(const restore_tally& tally) {
    std::string words = "已恢复:" + std::to_string(tally.restored) + " 个";
    if (tally.renamed > 0)
        words.append("\r\n原处已有同名的,改名恢复 ")
            .append(std::to_string(tally.renamed))
            .append(" 个: ")
            .append(tally.first_renamed);
    if (tally.refused > 0)
        words.append("\r\n没有恢复 ")
            .append(std::to_string(tally.refused))
            .append(" 个: ")
            .append(tally.first_refused);
    if (!tally.failure.empty()) words.append("\r\n没有写成: ").append(tally.failure);
    return words;
}

constexpr char place_name[] = "place.restore_runs";  // left, top, width and height in twips
constexpr int farthest = 1'000'000;

rectangle remembered_place(const remembered_values& values) {
    std::vector<std::string> parts;
    if (split_text(values.value(place_name), " ", parts) != 4) return {};
    const auto part = [&parts](std::size_t number) {
        return remembered_number(parts[number], -farthest, farthest, 0);
    };
    const rectangle place{part(1), part(2), part(3), part(4)};
    return place.width > 0 && place.height > 0 ? place : rectangle();
}

std::string place_text(const rectangle& place) {
    std::string text = std::to_string(place.left);
    for (const int part : {place.top, place.width, place.height})
        text.append(" ").append(std::to_string(part));
    return text;
}

}  // namespace

restore_form::restore_form(Tavrel& main)
    : form_model("restore_runs"),
      List1(add<list_box>("List1")),
      List2(add<list_box>("List2")),
      Label1(add<control>(control_kind::label, "Label1")),
      Command1(add<control>(control_kind::button, "Command1")),
      Command2(add<control>(control_kind::button, "Command2")),
      Command3(add<control>(control_kind::button, "Command3")),
      Command4(add<control>(control_kind::button, "Command4")),
      main_(main) {
    caption = "恢复上次删除";
    help_context = 1020;
    List1.tooltip = "放入回收站的各次删除,最近的在最前";
    List1.own_words = List2.own_words = true;
    List2.tooltip = "双击恢复一个文件；勾选几个,再按<恢复选中的>";
    Command1.caption = "恢复选中的(&S)";
    Command2.caption = "恢复整次删除(&A)";
    Command3.caption = "帮助(&H)";
    Command4.caption = "关闭(&C)";
}

handler_table restore_form::handlers() {
    handler_table table;
    table.push_back({"restore_deleted", [this](Tavrel&) { open(); }, starts_task});
    window_handlers bind(table, *this);
    bind("Form_Unload", [this] { close(); });
    bind(
        "List1_Click", [this] { List1_Click(); }, starts_task);
    bind(
        "List2_DblClick", [this] { List2_DblClick(); }, starts_task);
    bind(
        "Command1_Click", [this] { Command1_Click(); }, starts_task);
    bind(
        "Command2_Click", [this] { Command2_Click(); }, starts_task);
    bind("Command3_Click", [this] { open_topic(main_, help_topic); });
    bind("Command4_Click", [this] { close(); });
    return table;
}

void restore_form::open() {
    if (help_mode_opens(main_, help_topic)) return;
    if (main_.outside.bin == nullptr) return main_.inform("此系统不能从回收站恢复。");
    paths_ = recycled_runs(main_.outside.files, main_.data_path(data_file::recycled_runs));
    if (paths_.empty()) return main_.inform("没有放入回收站的删除记录。");
    show_runs();
    show_run(0);
    if (place.width == 0) place = remembered_place(main_.state.remembered);
    visible = true;
}

void restore_form::close() {
    visible = false;
    if (place.width > 0) main_.state.remembered.set(place_name, place_text(place));
    paths_.clear();
    run_ = {};
    states_.clear();
    rows_.clear();
    List1.clear();
    List2.clear();
}

void restore_form::show_runs() {
    List1.clear();
    for (const std::string& path : paths_)
        List1.add(run_words(read_recycled_run(main_.outside.files, path)), path);
}

void restore_form::show_run(std::size_t index) {
    run_ = read_recycled_run(main_.outside.files, paths_[index]);
    List1.select_only(index);
    show_files();
}

void restore_form::show_files() {
    states_ = states_of(main_, run_);
    rows_.clear();
    std::vector<list_box::row> rows;
    std::array<std::size_t, 3> counts{};  // in the bin, back, neither
    for (std::size_t i = 0; i < run_.files.size(); ++i) {
        if (run_.files[i].stayed) continue;
        const recycled_state state = states_[i];
        const bool is_back = state == recycled_state::back || state == recycled_state::restored;
        ++counts[state == recycled_state::there ? 0 : is_back ? 1 : 2];
        rows_.push_back(i);
        rows.push_back({file_words(run_.files[i], state), false, false, run_.files[i].item.path});
    }
    List2.take(std::move(rows));
    Label1.caption = "在回收站 " + std::to_string(counts[0]) + " 个, 已在原处或已恢复 " +
                     std::to_string(counts[1]) + " 个, 不能恢复 " + std::to_string(counts[2]) + " 个";
    Command1.enabled = Command2.enabled = counts[0] > 0;
}

void restore_form::List1_Click() {
    if (!visible) return;
    for (std::size_t i = 0; i < List1.rows().size(); ++i)
        if (List1.rows()[i].selected) return show_run(i);
}

void restore_form::List2_DblClick() {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < List2.rows().size(); ++i)
        if (List2.rows()[i].selected) rows.push_back(i);
    restore(rows);
}

void restore_form::Command1_Click() {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < List2.rows().size(); ++i)
        if (List2.rows()[i].checked) rows.push_back(i);
    if (rows.empty()) return List2_DblClick();
    restore(rows);
}

void restore_form::Command2_Click() {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (states_[rows_[i]] == recycled_state::there) rows.push_back(i);
    restore(rows);
}

void restore_form::restore(const std::vector<std::size_t>& rows) {
    if (!visible || main_.outside.bin == nullptr) return;
    std::vector<std::size_t> chosen;
    for (const std::size_t row : rows) {
        // What is back needs no way back.
        const bool is_row = row < rows_.size();
        if (!is_row) continue;
        const recycled_state state = states_[rows_[row]];
        if (state != recycled_state::back && state != recycled_state::restored) chosen.push_back(rows_[row]);
    }
    if (chosen.empty()) return main_.inform("没有选中可以恢复的文件。");
    task_scope task(main_);
    // The window may be closed at a yield, and forgets its run.
    recycled_run run = std::move(run_);
    run_ = {};
    const restore_tally tally = restore_files(main_, run, chosen);
    if (main_.state.quit_requested) return;
    task.close();
    if (visible) {
        run_ = std::move(run);
        show_files();
    }
    if (tally.failure.empty() && tally.refused == 0)
        main_.inform(tally_words(tally));
    else
        main_.complain(tally_words(tally));
}

}  // namespace corvane
