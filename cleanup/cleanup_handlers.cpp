#include "cleanup/cleanup_handlers.h"

#include "cleanup/delete_files.h"
#include "cleanup/empty_delete.h"
#include "cleanup/empty_search.h"
#include "cleanup/empty_view.h"
#include "cleanup/stake.h"
#include "core/model/main_form.h"

namespace corvane {

handler_table cleanup_handlers() {
    return {
        {"Picture5_Click", delete_marked_recycle, starts_task},
        {"delete_marked_recycle", delete_marked_recycle, starts_task},
        {"delete_marked_direct", delete_marked_direct, starts_task},
        {"Command45_Click", delete_marked_direct, starts_task},
        {"Picture6_Click", Picture6_Click, starts_task},
        {"Command43_Click", Command43_Click, starts_task},
        {"Picture7_Click", Picture7_Click, starts_task},
        {"Picture8_Click", Picture8_Click, starts_task},
        {"del_dir", del_dir_Click, starts_task},
        {"mark_total", [](Tavrel& form) { form.panel(5, mark_words(form)); }},
        {"按序号删除_m", toggle_number_panel},
        {"Command26_Click", close_number_panel},
        {"Frame1_DblClick", close_number_panel},
        // A hook for a tool that has to be registered; 7z and rar need none.
        {"rar_reg_para", [](Tavrel&) {}},
    };
}

}  // namespace corvane
