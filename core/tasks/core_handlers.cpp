#include "core/tasks/core_handlers.h"

#include "core/model/main_form.h"
#include "core/tasks/environment.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/help.h"
#include "core/tasks/option_lists.h"
#include "core/tasks/progress.h"

namespace corvane {

handler_table core_handlers() {
    return {
        {"help_spirit",
         [](Tavrel& form) { form.mouse_pointer = form.mouse_pointer == help_pointer ? 0 : help_pointer; }},
        {"帮助文件_M", [](Tavrel& form) { open_topic(form, 1); }},
        {"prog_dir", [](Tavrel& form) { open_beside_program(form, ""); }},
        {"notes_m", open_notes},
        {"programm_m", open_manual},
        {"debug_err", debug_err_Click},
        {"debug_err_anly", debug_err_anly_Click},
        {"Command46_Click", Command46_Click},
        {"Command47_Click", Command47_Click},
        {"Timer2_Timer", Timer2_Timer},
        {"lock_tasks", lock_tasks},
        {"unlock_tasks", unlock_tasks},
        {"写Tavrel环境文件", [](Tavrel& form) { 写Tavrel环境文件(form); }},
        {"读不参加搜索的目录", 读不参加搜索的目录},
        {"读不参加比较的文件类型", 读不参加比较的文件类型},
        {"读仅搜索的文件类型", 读仅搜索的文件类型},
    };
}

}  // namespace corvane
