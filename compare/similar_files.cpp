#include "compare/similar_files.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "core/model/main_form.h"
#include "core/text/path_text.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

// The directory, then the names. NUL or, where there is none, a blank parts them; a text with neither is one
// path.
std::vector<std::string> parts_of(const std::string& chosen, char separator) {
    for (const char delimiter : {'\0', ' '}) {
        if (chosen.find(delimiter) == std::string::npos) continue;
        std::vector<std::string> parts;
        split_text(chosen, std::string_view(&delimiter, 1), parts);
        parts.erase(parts.begin());
        return parts;
    }
    const std::size_t cut = chosen.rfind(separator);
    if (cut == std::string::npos) return {{}, chosen};
    return {chosen.substr(0, cut), chosen.substr(cut + 1)};
}

}  // namespace

void Command31_Click(Tavrel& form) {
    const std::optional<std::string> chosen =
        form.outside.screen.choose_files("选择相似主文件", "(*.*)|*.*", form.state.similar_main_file);
    if (!chosen || chosen->empty()) return;
    std::vector<std::string> parts = parts_of(*chosen, form.outside.files.separator());
    parts.front() = with_separator(parts.front(), form.outside.files.separator());
    if (!is_blank(parts.front())) form.state.similar_main_file = parts.front();
    auto& rows = static_cast<list_box&>(*form.find("rela_file_list"));
    rows.clear();
    for (std::string& part : parts) rows.add(std::move(part));
}

}  // namespace corvane
