#include "browser/read_pairs.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 918;
constexpr std::int32_t rows_per_yield = 50;
constexpr std::int32_t least_rows = 1024;         // that are read at once
constexpr std::size_t texts_ahead = 16;           // that come from memory while others are looked at
constexpr std::size_t questions_at_once = 16384;  // to the disk between two yields

// Numbers folders from 0 on, by hashes of 64 bits: two folders of one hash would share a number, and their
// paths would stand among each other.
class folder_numbers {
  public:
    std::uint32_t of(std::string_view folder) {
        if (2 * std::size_t{count_} >= slots_.size()) grow();
        const std::uint64_t hash = std::hash<std::string_view>()(folder);
        slot& found = place_of(slots_, hash);
        if (found.number == unknown) found = {hash, count_++};
        return found.number;
    }
    std::uint32_t count() const { return count_; }

  private:
    static constexpr std::uint32_t unknown = ~std::uint32_t{0};
    struct slot {
        std::uint64_t hash = 0;
        std::uint32_t number = unknown;
    };
    static slot& place_of(std::vector<slot>& slots, std::uint64_t hash) {
        std::size_t place = hash & (slots.size() - 1);
        while (slots[place].number != unknown && slots[place].hash != hash)
            place = (place + 1) & (slots.size() - 1);
        return slots[place];
    }
    void grow() {
        std::vector<slot> larger(std::max<std::size_t>(64, 2 * slots_.size()));
        for (const slot& each : slots_)
            if (each.number != unknown) place_of(larger, each.hash) = each;
        slots_ = std::move(larger);
    }

    std::vector<slot> slots_;
    std::uint32_t count_ = 0;
};

// Which of many paths exist. They are asked for folder by folder, in which the disk answers quickest, and
// answered in the order in which they came.
class existence_questions {
  public:
    explicit existence_questions(Tavrel& form) : form_(form), separator_(form.outside.files.separator()) {}

    // `entry` stays valid until the answers have come.
    void add(const char* entry) {
        entries_.push_back(entry);
        const std::string_view path = text_arena::text_at(entry);
        folders_.push_back(numbers_.of(path.substr(0, path.rfind(separator_) + 1)));
    }

    // False: the program is closing.
    bool ask() {
        const std::vector<std::uint32_t> order = by_folder();
        answers_.resize(entries_.size());
        std::vector<std::string_view> paths;
        std::vector<std::uint8_t> found(std::min(questions_at_once, order.size()));
        for (std::size_t start = 0; start < order.size(); start += paths.size()) {
            const std::span asked =
                std::span(order).subspan(start, std::min(questions_at_once, order.size() - start));
            paths.clear();
            for (std::size_t i = 0; i < asked.size(); ++i) {
                if (i + texts_ahead < asked.size()) __builtin_prefetch(entries_[asked[i + texts_ahead]]);
                paths.push_back(text_arena::text_at(entries_[asked[i]]));
            }
            for (std::size_t done = 0; done < paths.size();) {
                done += form_.outside.files.many_exist(std::span(paths).subspan(done),
                                                       std::span(found).subspan(done));
                form_.yield();
                if (form_.state.quit_requested) return false;
            }
            for (std::size_t i = 0; i < asked.size(); ++i) answers_[asked[i]] = found[i];
        }
        return true;
    }
    bool exists(std::size_t question) const { return answers_[question] != 0; }

  private:
    // The questions, those of one folder side by side.
    std::vector<std::uint32_t> by_folder() const {
        std::vector<std::uint32_t> places(std::size_t{numbers_.count()} + 1);
        for (const std::uint32_t folder : folders_) ++places[folder + 1];
        for (std::size_t folder = 1; folder < places.size(); ++folder) places[folder] += places[folder - 1];
        std::vector<std::uint32_t> order(folders_.size());
        for (std::size_t question = 0; question < folders_.size(); ++question)
            order[places[folders_[question]]++] = static_cast<std::uint32_t>(question);
        return order;
    }

    Tavrel& form_;
    char separator_;
    folder_numbers numbers_;
    std::vector<const char*> entries_;
    std::vector<std::uint32_t> folders_;
    std::vector<std::uint8_t> answers_;
};

// Some rows of the store, of which those that are kept come to stand behind those kept before.
class row_block {
  public:
    row_block(Tavrel& form, std::int32_t kept)
        : form_(form), state_(form.state), kept_(kept), questions_(form) {}

    // Reads up to `most` rows. False: the program is closing.
    bool read(line_reader& reader, std::int32_t most) {
        std::string_view line;
        std::int32_t last = kept_;
        while (last - kept_ < most && reader.next(line)) {
            length_ = line;
            if (!reader.next(line)) break;
            path1_ = line;
            if (!reader.next(line)) break;
            if (state_.same_fresh_flag || (!is_blank(path1_) && !is_blank(line))) {
                ++last;
                state_.result_length.push_back(parse_number(length_));
                push(state_.result_file1, path1_);
                push(state_.result_file2, line);
            }
            show(last);
            if (++rows_ % rows_per_yield != 0) continue;
            form_.yield();
            if (state_.quit_requested) return false;
        }
        return true;
    }
    bool is_empty() const { return state_.result_file2.size() == kept_; }

    // Keeps up to `room` of the rows and drops the others; returns how many would have been kept, -1 when the
    // program is closing. The files of a fresh result are not asked for.
    std::int32_t keep_existing(std::int32_t room) {
        const std::int32_t last = state_.result_file2.size();
        if (!state_.same_fresh_flag && !questions_.ask()) return -1;
        std::int32_t found = 0;
        std::size_t next_question = 0;
        const std::int32_t base = kept_;
        bool has_first = true, has_second = true;
        for (std::int32_t row = base + 1; row <= last; ++row) {
            const auto at = static_cast<std::size_t>(row - base - 1) * 2;
            has_first = exists(has_first, at, next_question);
            has_second = exists(has_second, at + 1, next_question);
            if (has_first && has_second && ++found <= room) {
                ++kept_;
                state_.result_length[kept_] = state_.result_length[row];
                state_.result_file1.set_entry(kept_, state_.result_file1.entry(row));
                state_.result_file2.set_entry(kept_, state_.result_file2.entry(row));
            }
            show(kept_);
        }
        state_.result_length.resize(kept_);
        state_.result_file1.resize(kept_);
        state_.result_file2.resize(kept_);
        return found;
    }
    std::int32_t kept() const { return kept_; }

  private:
    // Where the answer about a path comes from, without another look at its text.
    enum class source : std::uint8_t {
        none,      // a member of an archive is not asked for
        question,  // the next one
        above      // the path is that of the row above, as in a star
    };
    // The rows of a star stand together, and its centre is in each of them: it is stored once.
    void push(text_column& paths, std::string_view path) {
        const std::int32_t last = paths.size();
        if (last > kept_ && paths[last] == path) {
            paths.push_entry(paths.entry(last));
            return sources_.push_back(source::above);
        }
        paths.push_back(path);
        const bool is_asked = !state_.same_fresh_flag && !is_archive_member(path);
        if (is_asked) questions_.add(paths.entry(last + 1));
        sources_.push_back(is_asked ? source::question : source::none);
    }
    // `above`: of the path of the same column in the row above.
    bool exists(bool above, std::size_t place, std::size_t& next_question) const {
        if (sources_[place] == source::above) return above;
        return sources_[place] == source::none || questions_.exists(next_question++);
    }
    void show(std::int32_t row) {
        if (row % rows_per_status != 0) return;
        form_.pic_gressbar1.draw(row);
        form_.panel(5, "读入:" + std::to_string(row));
    }

    Tavrel& form_;
    run_state& state_;
    std::int32_t kept_;
    existence_questions questions_;
    std::vector<source> sources_;  // of the first path, the second, the first of the next row
    std::int32_t rows_ = 0;
    std::string length_, path1_;
};

}  // namespace

pairs_read read_stored_pairs(Tavrel& form, line_reader& reader) {
    run_state& state = form.state;
    std::int32_t kept = 0;
    for (;;) {
        const std::int32_t room = state.limits.result_rows - kept;
        row_block block(form, kept);
        if (!block.read(reader, std::max(room, least_rows))) return pairs_read::closing;
        if (block.is_empty()) break;
        const std::int32_t found = block.keep_existing(room);
        if (found < 0) return pairs_read::closing;
        kept = block.kept();
        if (found > room) return pairs_read::not_all;
    }
    state.same_count = kept;
    return pairs_read::all;
}

}  // namespace corvane
