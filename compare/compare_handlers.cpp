#include "compare/compare_handlers.h"

#include "compare/abnormal_files.h"
#include "compare/compare_task.h"
#include "compare/similar_files.h"
#include "core/model/main_form.h"

namespace corvane {

handler_table compare_handlers() {
    return {
        {"Picture3_Click", Picture3_Click, starts_task},
        {"Command18_Click", Command18_Click, starts_task},
        {"Command44_Click", Command44_Click, starts_task},
        {"Command28_Click", Command28_Click},
        {"Command31_Click", Command31_Click},
        {"result_summary_Close", [](Tavrel& form) { form.state.summary_words.clear(); }},
        {"List1_Close", [](Tavrel& form) { form.List1.visible = false; }},
        {"Frame3_DblClick", [](Tavrel& form) { form.find("Frame3")->visible = false; }},
    };
}

}  // namespace corvane
