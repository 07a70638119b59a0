#include "compare/preparation.h"

#include <string>
#include <string_view>
#include <unordered_map>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t files_per_status = 813;

// Cuts the text behind the last "*", and the "*", off the entry, and returns it.
std::string cut_field(text_column& list, std::int32_t index) {
    const std::string_view entry = list[index];
    const std::size_t star = entry.rfind('*');
    std::string field(entry.substr(star + 1));
    list.set(index, entry.substr(0, star));
    return field;
}

// Hexadecimal digits as a signed 32-bit number; reading stops at the first other character.
std::int32_t parse_hexadecimal(std::string_view text) {
    std::uint32_t number = 0;
    for (const char unit : text) {
        if (unit >= '0' && unit <= '9')
            number = number << 4 | static_cast<std::uint32_t>(unit - '0');
        else if ((unit | 0x20) >= 'a' && (unit | 0x20) <= 'f')
            number = number << 4 | static_cast<std::uint32_t>((unit | 0x20) - 'a' + 10);
        else
            break;
    }
    return static_cast<std::int32_t>(number);
}

void take_facts(run_state& state, std::size_t i, const file_facts& facts) {
    state.file_ok[i] = facts.exists;
    if (!facts.exists) return;
    state.file_len[i] = facts.length;
    state.file_date_hi[i] = facts.date_high;
    state.file_date_lo[i] = facts.date_low;
    // Several links are several files: removing one keeps the other.
    if (facts.link_count == 1) state.file_place[i] = file_identity_hash()(facts.identity) | 1;
}

void show_bytes(Tavrel& form) {
    form.panel(2, "字节:" + group_digits(form.state.total_bytes) + form.state.size_unit);
}

}  // namespace

void blank_avoided_files(Tavrel& form) {
    run_state& state = form.state;
    for (std::int32_t a = 1; a <= state.avoid_count; ++a) {
        const search_result found = find_text(state.file_list, state.avoid_files[a], 1, state.file_count);
        state.search_upper_bound = found.upper_bound;
        if (found.index > 0) state.file_list.set(found.index, "");
    }
}

void size_columns(Tavrel& form) {
    run_state& state = form.state;
    const std::size_t size = static_cast<std::size_t>(state.file_count) + 1;
    state.file_len.assign(size, 0);
    state.file_date_hi.assign(size, 0);
    state.file_date_lo.assign(size, 0);
    state.file_crc.assign(size, 0);
    state.file_place.assign(size, 0);
    for (std::vector<std::uint8_t>* flags :
         {&state.file_ok, &state.file_bad, &state.file_matched, &state.file_has_twin, &state.file_in_archive})
        flags->assign(size, 0);
    state.file_ext.assign(1, 0);
    for (std::vector<std::int32_t>& row : state.same_pair) row.assign(1, 0);
    state.result_count = 0;
    state.same_bytes = 0;
    state.different_count = 0;
}

bool refresh_attributes(Tavrel& form, bool& members_seen) {
    run_state& state = form.state;
    members_seen = false;
    state.total_bytes = 0;
    state.size_unit.clear();
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        const auto file = static_cast<std::size_t>(i);
        const std::string_view name = state.file_list[i];
        state.file_ok[file] = !name.empty();
        if (name.empty()) continue;
        if (is_archive_member(name)) {
            state.file_len[file] = parse_number(cut_field(state.file_list, i));
            members_seen = true;
        } else {
            take_facts(state, file, form.outside.files.facts(name));
        }
        state.total_bytes += static_cast<double>(state.file_len[file]);
        if (i % files_per_status == 0) {
            bar_draw(form, i);
            show_bytes(form);
            show_elapsed(form);
        }
        form.yield();
        if (state.quit_requested) return false;
    }
    form.panel(7, "核对属性完毕");
    scale_size(state.total_bytes, state.size_unit);
    show_bytes(form);
    return true;
}

void take_member_signatures(Tavrel& form) {
    run_state& state = form.state;
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        if (!is_archive_member(state.file_list[i])) continue;
        const auto file = static_cast<std::size_t>(i);
        state.file_crc[file] = parse_hexadecimal(cut_field(state.file_list, i));
        state.file_in_archive[file] = 1;
    }
}

void fill_suffix_column(Tavrel& form) {
    run_state& state = form.state;
    state.suffix_texts.clear();
    state.file_ext.assign(static_cast<std::size_t>(state.file_count) + 1, 0);
    std::unordered_map<std::string, std::int32_t> numbers{{std::string(), 0}};
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        const std::string_view name = state.file_list[i];
        const std::size_t dot = name.rfind('.');
        if (dot == std::string_view::npos) continue;
        const auto next = static_cast<std::int32_t>(numbers.size());
        state.file_ext[static_cast<std::size_t>(i)] =
            numbers.emplace(upper_case(name.substr(dot + 1)), next).first->second;
    }
    state.suffix_texts.resize(numbers.size());
    for (const auto& [text, number] : numbers) state.suffix_texts[static_cast<std::size_t>(number)] = text;
}

}  // namespace corvane
