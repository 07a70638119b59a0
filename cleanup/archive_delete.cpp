#include "cleanup/archive_delete.h"

#include <memory>
#include <optional>
#include <span>

#include "cleanup/archive_tool.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

constexpr double turn = 0.01;  // seconds between two yields while the tool works

// An entry of the list, cut in two.
struct listed_entry {
    std::size_t number;  // from 0 on
    std::string archive;
    std::string inner;
};

// The lines with a "*", as many as have ever been written at most.
std::vector<listed_entry> read_entries(Tavrel& form) {
    std::vector<listed_entry> entries;
    line_reader lines(form.outside.files, form.state.archive_del_path);
    std::string_view line;
    for (std::int32_t i = 1; i <= form.state.archive_mark_count && lines.next(line); ++i) {
        if (!is_archive_member(line)) continue;
        const std::string_view archive = archive_path_of(line);
        entries.push_back(
            {entries.size(), std::string(archive), std::string(line.substr(archive.size() + 1))});
    }
    return entries;
}

class archive_runs {
  public:
    archive_runs(Tavrel& form, const std::function<bool(std::size_t, const archive_member&)>& may_go)
        : form_(form), may_go_(may_go), list_path_(form.data_path(data_file::archive_members)) {}

    archive_deletion run() {
        const std::vector<listed_entry> entries = read_entries(form_);
        for (std::size_t start = 0; start < entries.size();) {
            std::size_t end = start + 1;
            while (end < entries.size() && entries[end].archive == entries[start].archive) ++end;
            const std::span group(entries.data() + start, end - start);
            if (!delete_group(group)) return result_;
            count_remaining(group);
            start = end;
        }
        if (!form_.state.rar_tool_path.empty()) write_list({});
        return result_;
    }

  private:
    // The entries of one run. False: the program is closing.
    bool delete_group(std::span<const listed_entry> group) {
        const std::string& archive = group.front().archive;
        // The tool reads its list from the disk; of a folder that is held in memory there is none, or an old
        // one.
        const std::string tool =
            form_.state.program_dir_locked ? std::string() : tool_for_archive(form_, archive);
        if (tool.empty()) result_.failed = true;
        if (stopped_ || tool.empty()) return true;
        const file_facts before = form_.outside.files.facts(archive);
        const std::vector<std::string> lines = lines_for(tool, group);
        if (form_.state.quit_requested) return false;
        if (lines.empty()) return true;
        // Time has passed over the question what may go. Of an archive that is not there the tool makes one.
        if (!same_state(before, form_.outside.files.facts(archive))) {
            for (const listed_entry& entry : group) result_.left_alone.insert(entry.number);
            return true;
        }
        const file_access access = form_.outside.files.access(archive);
        if (!write_list(lines) || !start_tool(tool, archive)) {
            result_.failed = stopped_ = true;
            return true;
        }
        form_.state.archive_del_count += static_cast<std::int32_t>(lines.size());
        if (!wait_for_tool()) return false;
        form_.outside.files.restore_access(archive, access);
        return true;
    }

    std::vector<std::string> lines_for(const std::string& tool, std::span<const listed_entry> group) {
        const archive_contents contents(form_, group.front().archive);
        const tool_names names(form_, family_of(form_, tool), contents);
        std::vector<std::string> lines;
        for (const listed_entry& entry : group) {
            const archive_member* member = contents.file(entry.inner);
            std::optional<std::string> line;
            if (member != nullptr) line = names.line_for(*member);
            if (line && may_go_(entry.number, *member))
                lines.push_back(std::move(*line));
            else
                result_.left_alone.insert(entry.number);
            if (form_.state.quit_requested) break;
        }
        return lines;
    }

    bool write_list(const std::vector<std::string>& lines) {
        line_writer list(form_.outside.files.overwrite_file(list_path_));
        for (const std::string& line : lines) list.line(line);
        if (list.finish()) return true;
        form_.complain(list_path_ + "\r\n" + list.error());
        return false;
    }

    bool start_tool(const std::string& tool, const std::string& archive) {
        tool_ = form_.outside.desktop.start_process(tool_command(form_, tool, archive, list_path_)).object;
        return tool_ != nullptr;
    }

    bool wait_for_tool() {
        form_.panel(5, "删除压缩包内文件:" + std::to_string(form_.state.archive_del_count));
        while (!tool_->has_ended(turn)) {
            form_.yield();
            show_elapsed(form_);
            if (form_.state.quit_requested) return false;
        }
        return true;
    }

    void count_remaining(std::span<const listed_entry> group) {
        const std::string& archive = group.front().archive;
        if (!form_.outside.files.facts(archive).exists) return;
        const archive_contents contents(form_, archive);
        for (const listed_entry& entry : group) {
            // Of a directory that cannot be read nothing is known to have gone.
            if (contents.is_whole() && !contents.has(entry.inner)) continue;
            if (result_.still_inside++ == 0) result_.first_inside = archive + "*" + entry.inner;
        }
    }

    Tavrel& form_;
    const std::function<bool(std::size_t, const archive_member&)>& may_go_;
    std::string list_path_;
    std::unique_ptr<started_process> tool_;
    archive_deletion result_;
    bool stopped_ = false;  // no further run
};

}  // namespace

archive_deletion delete_archive_entries(
    Tavrel& form, const std::function<bool(std::size_t, const archive_member&)>& may_go) {
    return archive_runs(form, may_go).run();
}

}  // namespace corvane
