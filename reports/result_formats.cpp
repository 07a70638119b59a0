#include "reports/result_formats.h"

#include <algorithm>

#include "core/archives/archive_entry.h"
#include "core/text/utf8.h"
#include "reports/escaped_text.h"
#include "reports/stored_pairs.h"

namespace corvane {

namespace {

std::string checksum_text(std::int64_t checksum) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (int shift = 28; shift >= 0; shift -= 4) text += digits[checksum >> shift & 0xF];
    return text;
}

// A path of the result as other programs are told of it.
struct told_path {
    std::string bytes;
    bool in_archive = false;
    std::string member;    // inside an archive: its name there
    std::string modified;  // empty for a member, and for a file that has gone
};

told_path told(file_system& files, const result_facts& facts, std::string_view path) {
    told_path answer;
    answer.bytes = facts.disk_name(path);
    answer.in_archive = is_archive_member(path);
    if (answer.in_archive) {
        answer.member = facts.disk_name(path.substr(archive_path_of(path).size() + 1));
        return answer;
    }
    const file_facts found = files.facts(path);
    if (found.exists) answer.modified = iso_time(found.modified_ns);
    return answer;
}

// "name": text, and where the text is no UTF-8 also "name_bytes".
void add_json_text(std::string& out, const char* name, std::string_view bytes) {
    out.append("\"").append(name).append("\": ");
    append_json_text(out, bytes);
    if (is_utf8(bytes)) return;
    out.append(", \"").append(name).append("_bytes\": \"");
    append_percent_text(out, bytes);
    out += '"';
}

void add_json_file(std::string& out, const told_path& file) {
    out += "{";
    add_json_text(out, "path", file.bytes);
    if (file.in_archive) add_json_text(out += ", ", "member", file.member);
    if (file.modified.empty())
        out += ", \"modified\": null}";
    else
        out.append(", \"modified\": \"").append(file.modified).append("\"}");
}

// "directories", and where one of them is no UTF-8 also "directories_bytes" of them all.
void add_json_directories(std::string& out, const result_facts& facts) {
    std::string texts;
    std::string bytes;
    bool all_utf8 = true;
    for (const std::string& directory : facts.directories) {
        const std::string name = facts.disk_name(directory);
        all_utf8 = all_utf8 && is_utf8(name);
        append_json_text(texts += texts.empty() ? "" : ", ", name);
        append_percent_text(bytes += bytes.empty() ? "\"" : ", \"", name);
        bytes += '"';
    }
    out.append("  \"directories\": [").append(texts).append("],\n");
    if (!all_utf8) out.append("  \"directories_bytes\": [").append(bytes).append("],\n");
}

void add_json_heading(std::string& out, const result_groups& result, const result_facts& facts) {
    append_json_text(out += "{\n  \"version\": ", facts.version);
    out += ",\n";
    add_json_directories(out, facts);
    out += "  \"totals\": {\"files\": " + std::to_string(facts.files) +
           ", \"equal\": " + std::to_string(result.spare_count()) +
           ", \"bytes\": " + std::to_string(result.spare_bytes()) + "},\n  \"groups\": [";
}

}  // namespace

void write_group_lines(line_writer& out, const result_groups& result) {
    for (const equal_group& group : result.groups) {
        for (std::int32_t i = group.first; i < group.first + group.count && !out.failed(); ++i) {
            out.add(result.paths[i]);
            out.add("\n");
        }
        out.add("\n");
    }
}

void write_json(line_writer& out, file_system& files, const result_groups& result,
                const result_facts& facts) {
    std::string text;
    add_json_heading(text, result, facts);
    const char* before = "\n";
    for (const equal_group& group : result.groups) {
        text.append(before).append("    {\"length\": ").append(std::to_string(group.length));
        if (group.checksum >= 0)
            text.append(", \"checksum\": \"").append(checksum_text(group.checksum)).append("\"");
        text += ", \"files\": [";
        for (std::int32_t i = group.first; i < group.first + group.count && !out.failed(); ++i) {
            text += i == group.first ? "\n      " : ",\n      ";
            add_json_file(text, told(files, facts, result.paths[i]));
            out.add(text);
            text.clear();
        }
        text += "]}";
        before = ",\n";
    }
    text += result.groups.empty() ? "]\n}\n" : "\n  ]\n}\n";
    out.add(text);
}

void write_csv(line_writer& out, file_system& files, const result_groups& result, const result_facts& facts) {
    out.line("group,length,checksum,modified,path,member");
    std::int64_t number = 0;
    std::string row;
    for (const equal_group& group : result.groups) {
        ++number;
        const std::string checksum = group.checksum >= 0 ? checksum_text(group.checksum) : std::string();
        for (std::int32_t i = group.first; i < group.first + group.count && !out.failed(); ++i) {
            const told_path file = told(files, facts, result.paths[i]);
            row = std::to_string(number) + ',' + std::to_string(group.length) + ',' + checksum + ',' +
                  file.modified + ',';
            append_csv_field(row, file.bytes);
            append_csv_field(row += ',', file.member);
            out.line(row);
        }
    }
}

std::int64_t write_null_pairs(line_writer& out, file_system& files, const std::string& store,
                              const result_facts& facts) {
    stored_pair_reader reader(files, store);
    stored_pair pair;
    std::int64_t left_out = 0;
    while (!out.failed() && reader.next(pair)) {
        if (pair.first == pair.second || is_archive_member(pair.first) || is_archive_member(pair.second)) {
            ++left_out;
            continue;
        }
        for (const std::string_view path : {pair.first, pair.second}) {
            out.add(facts.disk_name(path));
            out.add(std::string_view("\0", 1));
        }
    }
    return left_out;
}

}  // namespace corvane
