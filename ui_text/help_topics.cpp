#include "ui_text/help_topics.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/tasks/help.h"

namespace corvane {

namespace {

struct panel_topic {
    const char* words;
    int topic;
};

constexpr panel_topic panel_topics[] = {
    {"帮助", 8},
    {"目录选择", 9},
    {"文件搜索", 11},
    {"查相同文件", 12},
    {"搜索和比对", 13},
    {"显示相同文件", 13},
    {"选择要删除重复文件", 15},
    {"删除内容相同文件", 20},
    {"查找空目录", 38},
    {"显示空目录", 39},
    {"选择要删除空目录", 39},
    {"删除空目录", 40},
    {"察看文件清单文本", 45},
};

// Windows whose controls have contexts of their own.
struct context_range {
    int first;
    int last;
    int topic;
};

constexpr context_range window_contexts[] = {
    {1000, 1000, topic::messages},  // of every box without one of its own
    {1022, 1032, topic::options},
    {1050, 1057, topic::tree},
};

constexpr int first_context = 1000;
constexpr int last_context = 1099;

}  // namespace

std::span<const int> help_topics() {
    static constexpr int topics[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13,
                                     14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 25, 26, 27,
                                     28, 29, 38, 39, 40, 41, 45, 50, 60, 61, 62, 63, 64};
    return topics;
}

int topic_of_panel(std::string_view words) {
    for (const panel_topic& line : panel_topics)
        if (words == line.words) return line.topic;
    return topic::panels;
}

int topic_of_context(int context) {
    if (context < first_context || context > last_context) return topic::start;
    const auto topics = help_topics();
    const int own = context - first_context;
    if (std::find(topics.begin(), topics.end(), own) != topics.end()) return own;
    for (const context_range& range : window_contexts)
        if (context >= range.first && context <= range.last) return range.topic;
    return topic::start;
}

handler_table help_handlers() {
    const auto opens = [](int topic) { return [topic](Tavrel& form) { open_topic(form, topic); }; };
    // Presses on what is no task: they open a topic in help mode and do nothing else.
    const auto asks = [](int topic) { return [topic](Tavrel& form) { help_mode_opens(form, topic); }; };
    return {
        // Which panel was clicked does not matter: the running or last task decides.
        {"StatusBar1_PanelClick",
         [](Tavrel& form) { open_topic(form, topic_of_panel(form.StatusBar1.panel(7))); }},
        {"技术支持_地_form", opens(topic::support)},
        {"volume_explain", opens(topic::versions)},
        {"Form_MouseDown", asks(topic::start)},
        {"listleft_MouseDown", asks(topic::left_list)},
        {"RichTextBox2_MouseDown", asks(topic::file_search)},
        // Called by the start; kept as a name to hang something on.
        {"control_helpid", [](Tavrel&) {}},
    };
}

}  // namespace corvane
