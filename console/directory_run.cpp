#include "console/directory_run.h"

#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>

#include "app/version.h"
#include "console/records.h"
#include "console/script.h"
#include "console/stream_writer.h"
#include "console/typed_path.h"
#include "core/tasks/environment.h"
#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "platform/name_mapping.h"
#include "platform/standard_streams.h"
#include "reports/size_words.h"
#include "reports/stored_pairs.h"

namespace corvane {

namespace {

std::string seconds_words(double seconds) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f s", seconds);
    return text.data();
}

}  // namespace

directory_run::directory_run(program& corvane, plain_interface& screen, plain_words& words,
                             const command_line& asked, std::FILE* output)
    : program_(corvane),
      screen_(screen),
      words_(words),
      asked_(asked),
      output_(output),
      form_(corvane.main_form()),
      state_(form_.state),
      progress_(form_, stderr),
      shows_progress_(asked.progress && is_terminal(stderr)) {}

int directory_run::run() {
    int status = status_failed;
    if (take_directories()) {
        take_options();
        screen_.set_unanswered([this] { state_.quit_requested = -1; });
        words_.set_before([this] { progress_.clear(); });
        note_interrupts();
        screen_.set_at_yield([this] { look_around(); });
        directory_form& window = program_.directory_window();
        window.visible = false;  // nobody chooses there
        window.take_from_outside(directories_);
        form_.run("search_check_m_Click");
        progress_.clear();
        status = screen_.question_unanswered() ? status_unanswered : print();
    }
    screen_.set_at_yield({});
    program_.close();
    if (status == status_done && screen_.failure_shown()) status = status_failed;
    words_.set_before({});
    return interrupted() ? status_interrupted : status;
}

bool directory_run::take_directories() {
    for (const std::string& directory : asked_.directories) {
        const std::string path = absolute_path(directory);
        if (!form_.outside.files.attributes(path).directory) {
            words_.say_failure(directory + ": no such directory");
            return false;
        }
        directories_.push_back(path);
    }
    return true;
}

void directory_run::take_options() {
    if (asked_.search_archives) set_for_this_run(state_, "scan_archives", 1);
    if (asked_.same_suffix) set_for_this_run(state_, "same_suffix_only", 1);
    state_.history_off = asked_.no_history;
    // The texts in force alone: the lists that are stored stay as they are.
    for (const std::string& directory : asked_.excluded) {
        const std::string path = with_separator(absolute_path(directory), form_.outside.files.separator());
        state_.exclude_dir_text += upper_case(path) + ' ';
    }
    if (asked_.types.empty()) return;
    state_.only_type_text.clear();
    for (const std::string& type : asked_.types) state_.only_type_text += upper_case(to_text(type)) + ' ';
    state_.only_type_length = static_cast<std::int32_t>(state_.only_type_text.size());
}

void directory_run::look_around() {
    if (interrupted() && !interrupt_taken_) interrupt();
    if (shows_progress_) progress_.step();
}

void directory_run::interrupt() {
    interrupt_taken_ = true;
    if (form_.Command28.visible)
        form_.run("Command28_Click");
    else
        state_.quit_requested = -1;
}

int directory_run::print() {
    if (state_.compared_files == 0) {
        if (interrupted()) words_.say("interrupted before files were compared");
        return interrupted() ? status_interrupted : status_failed;
    }
    const result_groups result =
        read_result_groups(form_.outside.files, state_.same_file_path, state_.pair_checksum);
    bool nobody_reads = false;
    // What was interrupted before is printed; an interrupt from here on ends the printing.
    const bool was_interrupted = interrupted();
    line_writer out(outcome_with<file_writer>(std::make_unique<stream_writer>(
        output_, [was_interrupted] { return interrupted() && !was_interrupted; }, nobody_reads)));
    write(out, result);
    const bool written = out.finish();
    if (nobody_reads) return status_closed_pipe;
    if (!written && interrupted() && !was_interrupted) return status_interrupted;
    if (!written) {
        words_.say_failure("standard output: " + out.error());
        return status_failed;
    }
    say_totals(result);
    return status_done;
}

void directory_run::write(line_writer& out, const result_groups& result) {
    file_system& files = form_.outside.files;
    const result_facts facts{program_version, directories_, state_.compared_files, to_raw};
    struct format {
        const char* name;
        std::function<void()> write;
    };
    const format formats[] = {
        {"pairs", [&] { write_pairs(out); }},
        {"groups", [&] { write_group_lines(out, result); }},
        {"json", [&] { write_json(out, files, result, facts); }},
        {"csv", [&] { write_csv(out, files, result, facts); }},
        {"null", [&] { left_out_ = write_null_pairs(out, files, state_.same_file_path, facts); }},
        {"html", [&] { write_result_page(out, result, page_facts_of()); }},
    };
    for (const format& each : formats)
        if (asked_.format == each.name) return each.write();
    throw std::logic_error("no writer of the format " + asked_.format);
}

page_facts directory_run::page_facts_of() const {
    page_facts facts;
    facts.version = program_version;
    facts.made = page_moment(form_.outside.screen.now());
    facts.directories = directories_;
    facts.files = state_.compared_files;
    facts.separator = form_.outside.files.separator();
    return facts;
}

void directory_run::write_pairs(line_writer& out) {
    stored_pair_reader reader(form_.outside.files, state_.same_file_path);
    stored_pair pair;
    std::string line;
    while (!out.failed() && reader.next(pair)) {
        line = std::to_string(pair.length);
        append_field(line += '\t', pair.first);
        append_field(line += '\t', pair.second);
        out.add(line += '\n');
    }
}

void directory_run::say_totals(const result_groups& result) {
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begun_;
    std::string sentence = interrupted() ? "interrupted; until then " : "";
    sentence += std::to_string(state_.compared_files) + " files, " + std::to_string(result.spare_count()) +
                " equal ones, " + size_words(result.spare_bytes()) + ", " + seconds_words(took.count());
    words_.say(sentence);
    if (left_out_ > 0) words_.say(std::to_string(left_out_) + " pairs with members of archives are left out");
}

}  // namespace corvane
