// The tasks of the task column: picture, label, menu entry, entry procedure, status word and help topic.
// Pictures, labels and menus are wired from this one table.
#pragma once

#include <span>

namespace corvane {

struct task_entry {
    const char* picture;      // empty: no picture
    int label;                // index in Label3, -1: no label
    const char* menu;         // menu entry
    const char* handler;      // entry procedure
    const char* status_word;  // text of panel 7
    const char* caption;      // of the label
    const char* tooltip;      // of the picture
    int topic;                // help topic that help mode opens, 0: none
};

std::span<const task_entry> task_table();

}  // namespace corvane
