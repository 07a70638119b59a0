#include "reports/report_handlers.h"

#include "reports/export_lists.h"
#include "reports/export_params.h"
#include "reports/export_spreadsheet.h"

namespace corvane {

handler_table report_handlers() {
    return {
        {"out_sele", out_sele_Click},
        {"Frame6_DblClick", Frame6_DblClick},
        {"filter_export_list", [](Tavrel& form) { filter_export_list(form); }, starts_task},
        {"Command33_Click", Command33_Click, starts_task},
        {"文件清单_M_Click", 文件清单_M_Click, starts_task},
        {"Command8_Click", Command8_Click, starts_task},
        {"Command9_Click", Command9_Click, starts_task},
        {"open_excel", open_excel_Click},
    };
}

}  // namespace corvane
