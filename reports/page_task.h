// The task "报告网页": the stored result as a page beside the program, opened by association.
#pragma once

#include <string>

#include "core/model/handlers.h"

namespace corvane {

// Tells where there is no result, or where the page can be neither written nor opened. Files that have gone
// since the comparison are left out.
void write_and_open_page(Tavrel& form, const std::string& version);

// `version` is the program's, as the page tells it.
handler_table result_page_handlers(const std::string& version);

}  // namespace corvane
