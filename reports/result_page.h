// The result as a page to look at: one HTML file that needs nothing beside it, no network and no script.
// Written by the console and by the task that opens it in a browser.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/language/translation.h"
#include "core/text/text_file.h"
#include "platform/user_interface.h"
#include "reports/result_groups.h"

namespace corvane {

struct page_facts {
    std::string version;
    std::string made;                      // date and time, as a reader has them
    std::vector<std::string> directories;  // searched; empty where it is not known
    std::optional<std::int64_t> files;     // examined
    char separator = '/';
    const translation* words = nullptr;  // of another language; null: Chinese
};

// The groups that the page shows, of those that free the most, and the paths that it shows of each.
constexpr std::size_t page_groups = 100;
constexpr std::int32_t page_paths = 1000;

// "2026-03-04 05:06".
std::string page_moment(const local_time& moment);

void write_result_page(line_writer& out, const result_groups& result, const page_facts& facts);

}  // namespace corvane
