#include "browser/list_hint.h"

#include <algorithm>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

struct view_hint {
    std::int16_t list_mode;
    const char* how;  // to mark, or what else the rows are for
};

constexpr view_hint hints[] = {
    {list_modes::same_files,
     "双击或按空格标记要删除的文件, Shift 标记一段; [标记]菜单按规则标记, 每组留一个。"},
    {list_modes::empty_directories, "双击或按空格标记要删除的空目录, Shift 标记一段。"},
    {list_modes::different_files, "这些文件没有相同的。双击序号栏打开目录, 右键打开文件。"},
    {list_modes::same_file_names,
     "名称相同, 内容不一定相同: 这里不能标记。双击序号栏看两个文件的日期和长度。"},
    {list_modes::same_directory_names, "名称相同, 内容不一定相同: 这里不能标记。"},
};

bool is_filtered(const Tavrel& form) {
    return !form.state.filter_words.empty() && form.state.filter_fill == form.ListView1.fill_revision();
}

}  // namespace

std::string empty_list_words(const Tavrel& form) {
    if (form.ListView1.row_count() > 0 || !is_filtered(form)) return {};
    return form.state.filter_words + ": " + group_count(form.state.same_count) +
           " 对里一对也没有。右键点列表, 选[刷新]显示全部。";
}

std::string list_hint(const Tavrel& form, const std::string& marked_copies) {
    const run_state& state = form.state;
    const list_view& list = form.ListView1;
    std::string marked = shown_view(form).holds_copies ? marked_copies : std::string();
    if (!shown_view(form).holds_copies && list.marked_cells() > 0)
        marked = "标记 " + group_count(list.marked_cells()) + " 个";
    if (std::string words = empty_list_words(form); !words.empty()) return words;
    if (!state.cleared_words.empty() && state.cleared_cells == list.cell_revision())
        return state.cleared_words;
    std::string words;
    if (is_filtered(form))
        words = state.filter_words + ": " + group_count(list.row_count()) + " / " +
                group_count(state.same_count) + " 对, [刷新]显示全部";
    if (!marked.empty()) return words.empty() ? marked : words + "; " + marked;
    if (!words.empty()) return words;
    const auto* const hint = std::find_if(std::begin(hints), std::end(hints), [&](const view_hint& each) {
        return each.list_mode == state.list_mode;
    });
    return hint == std::end(hints) ? "" : hint->how;
}

void note_cleared_marks(Tavrel& form, const std::string& act, int before) {
    run_state& state = form.state;
    const int gone = before - form.ListView1.marked_cells();
    state.cleared_words =
        gone > 0 ? act + " 取消了 " + group_digits(gone) + " 个标记, Ctrl+Z 恢复。" : std::string();
    state.cleared_cells = form.ListView1.cell_revision();
}

}  // namespace corvane
