#include "search/path_completion.h"

#include <algorithm>

#include "core/text/shown_text.h"
#include "core/text/text_case.h"
#include "core/text/utf8.h"
#include "search/given_paths.h"

namespace corvane {

namespace {
constexpr int most_entries = 20'000;  // of a directory that is looked at while a key is pressed
}

std::vector<std::string> path_completions(file_system& files, std::string_view typed, std::size_t most) {
    const std::size_t cut = typed.rfind(files.separator());
    if (cut == std::string_view::npos) return {};
    const std::string_view above = typed.substr(0, cut + 1);
    const std::string beginning = upper_case(typed.substr(cut + 1));
    const given_paths known = read_given_paths(files, above);
    if (known.paths.size() != 1 || !known.others.empty()) return {};
    const auto reader = files.open_directory(known.paths.front());
    if (!reader) return {};
    std::vector<std::string> names;
    std::string_view name;
    entry_kind kind;
    for (int i = 0; i < most_entries && reader->next(name, kind); ++i) {
        if (kind != entry_kind::directory && kind != entry_kind::link_to_directory) continue;
        if (name.starts_with('.') && !beginning.starts_with('.')) continue;
        if (!is_utf8(name) || shown_text(name) != name) continue;
        if (upper_case(name).starts_with(beginning)) names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    if (names.size() > most) names.resize(most);
    std::vector<std::string> completions;
    completions.reserve(names.size());
    for (const std::string& each : names)
        completions.push_back(std::string(above) + each + files.separator());
    return completions;
}

}  // namespace corvane
