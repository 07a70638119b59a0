#include "browser/row_panel.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "browser/file_date.h"
#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_width.h"

namespace corvane {

namespace {

constexpr int twips_per_unit = 110;  // about one character of the panel's font
constexpr int panel_height = 1300;
constexpr int length_cell = 2;  // what an archive member's line says for its length

std::string panel_date(Tavrel& form, const file_facts& facts) {
    const local_time time = file_date(form, facts);
    return std::to_string(time.year) + '-' + std::to_string(time.month) + '-' + std::to_string(time.day) +
           ' ' + std::to_string(time.hour) + ':' + std::to_string(time.minute) + ':' +
           std::to_string(time.second);
}

std::string panel_line(Tavrel& form, const std::string& path, const std::string& row_length,
                       std::size_t width) {
    // By what the eye sees: the dates stand below each other.
    std::string line = path;
    line.append(width - std::min(width, text_width(path)), ' ');
    if (!shown_view(form).panel_shows_dates) return line;
    std::string date, length;
    const file_facts facts = form.outside.files.facts(path);
    if (facts.exists) {
        date = panel_date(form, facts);
        length = std::to_string(facts.length);
    } else if (is_archive_member(path)) {
        length = row_length;
    }
    return line + date + '\t' + length;
}

}  // namespace

void show_row_panel(Tavrel& form, std::int32_t row) {
    list_view& list = form.ListView1;
    if (row < 1 || row > list.row_count()) return;
    const int first = shown_view(form).searched[0];
    if (first + 1 >= list.column_count()) return;
    const std::string path1 = list.cell(row, first);
    const std::string path2 = list.cell(row, first + 1);
    const std::size_t width = std::max(text_width(path1), text_width(path2)) + 4;
    form.samefile_disp1.text = panel_line(form, path1, list.cell(row, length_cell), width);
    form.samefile_disp2.text = panel_line(form, path2, list.cell(row, length_cell), width);
    const auto longest = static_cast<int>(
        std::max(text_width(form.samefile_disp1.text), text_width(form.samefile_disp2.text)));
    rectangle& place = form.Frame4.place;
    place.width = longest * twips_per_unit;
    place.height = panel_height;
    if (form.place.width > 0) place.width = std::min(place.width, form.place.width);
    place.left = std::clamp(place.left, 0, std::max(form.place.width - place.width, 0));
    place.top = std::clamp(place.top, 0, std::max(form.place.height - place.height, 0));
    form.Frame4.caption = "显示第 " + std::to_string(row) + " 条";
    form.Frame4.visible = true;
}

}  // namespace corvane
