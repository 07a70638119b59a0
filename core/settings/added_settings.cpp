#include "core/settings/added_settings.h"

#include <string_view>

#include "core/text/text_file.h"

namespace corvane {

namespace {

struct switch_row {
    std::string_view name;
    bool added_settings::*member;
    bool only_when_set = false;  // no line else
};

constexpr switch_row switches[] = {
    {"notify_after_task", &added_settings::notify_after_task},
    {"english", &added_settings::english},
    {"earlier_place_asked", &added_settings::earlier_place_asked, true},
};

bool take(added_settings& values, std::string_view name, std::string_view value) {
    for (const switch_row& row : switches) {
        if (row.name != name) continue;
        if (value == "0" || value == "1") values.*row.member = value == "1";
        return true;
    }
    return false;
}

}  // namespace

added_settings read_added_settings(file_system& files, const std::string& path) {
    added_settings values;
    line_reader lines(files, path);
    std::string_view line;
    while (lines.next(line)) {
        const std::size_t sign = line.find('=');
        const bool known =
            sign != std::string_view::npos && take(values, line.substr(0, sign), line.substr(sign + 1));
        if (!known && !line.empty()) values.unknown.emplace_back(line);
    }
    return values;
}

outcome write_added_settings(file_system& files, const std::string& path, const added_settings& values) {
    line_writer writer(files, path);
    for (const switch_row& row : switches)
        if (values.*row.member || !row.only_when_set)
            writer.line(std::string(row.name) + (values.*row.member ? "=1" : "=0"));
    for (const std::string& line : values.unknown) writer.line(line);
    return writer.finish() ? outcome::success() : outcome::failure(writer.error());
}

}  // namespace corvane
