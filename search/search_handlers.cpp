#include "search/search_handlers.h"

#include "search/file_list_store.h"
#include "search/search_task.h"

namespace corvane {

handler_table search_handlers() {
    return {
        {"picture2_Click", picture2_Click, starts_task},
        {"Command19_Click", Command19_Click, starts_task},
        {"Command21_Click", Command21_Click, starts_task},
        {"List1_MouseDown", List1_MouseDown},
        {"search_check_m_Click", search_check_m_Click, starts_task},
    };
}

}  // namespace corvane
