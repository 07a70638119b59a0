#include "names/name_handlers.h"

#include "names/name_tasks.h"

namespace corvane {

handler_table name_handlers() {
    return {
        {"mnu_same_filename_Click", mnu_same_filename_Click, starts_task},
        {"check_same_1dir_filename_Click", check_same_1dir_filename_Click, starts_task},
        {"search_repeat_dir_name_Click", search_repeat_dir_name_Click, starts_task},
    };
}

}  // namespace corvane
