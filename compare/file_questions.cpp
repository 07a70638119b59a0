#include "compare/file_questions.h"

#include <algorithm>

#include "core/archives/archive_entry.h"

namespace corvane {

const std::vector<file_facts>& file_questions::lately(std::span<const std::int32_t> numbers) {
    const double present = seconds_();
    if (present - asked_at_ <= oldest_answer && take_answers(numbers)) return facts_;
    asked_at_ = present;
    ahead_.clear();
    return ask(numbers, most_ahead);
}

bool file_questions::take_answers(std::span<const std::int32_t> numbers) {
    facts_.clear();
    for (const std::int32_t file : numbers) {
        const auto found = ahead_.find(files_.file_list[file].data());
        if (found == ahead_.end()) return false;
        facts_.push_back(found->second);
    }
    return true;
}

void file_questions::add_paths_behind(std::int32_t file, std::size_t count) {
    constexpr std::int32_t most_looked_at = 16 * static_cast<std::int32_t>(most_ahead);
    const auto last = static_cast<std::int32_t>(
        std::min<std::int64_t>(files_.file_count, std::int64_t{file} + most_looked_at));
    const std::size_t most = paths_.size() + count;
    for (std::int32_t k = file + 1; k <= last && paths_.size() < most; ++k)
        if (files_.contents_known.of(k) != 0 && files_.file_ok[k] && !files_.file_matched[k])
            paths_.push_back(files_.file_list[k]);
}

const std::vector<file_facts>& file_questions::ask(std::span<const std::int32_t> numbers, std::size_t ahead) {
    paths_.clear();
    for (const std::int32_t file : numbers)
        if (!is_archive_member(files_.file_list[file])) paths_.push_back(files_.file_list[file]);
    const std::size_t wanted = paths_.size();
    if (ahead > 0 && !numbers.empty()) add_paths_behind(numbers.back(), ahead);
    answers_.assign(paths_.size(), {});
    std::size_t done = 0;
    while (done < wanted) {
        if (done > 0) yield_();
        done += disk_.many_facts(std::span(paths_).subspan(done), std::span(answers_).subspan(done));
    }
    for (std::size_t n = wanted; n < done; ++n) ahead_.emplace(paths_[n].data(), answers_[n]);
    facts_.assign(numbers.size(), {});
    std::size_t next = 0;
    for (std::size_t n = 0; n < numbers.size(); ++n)
        if (!is_archive_member(files_.file_list[numbers[n]])) facts_[n] = answers_[next++];
    return facts_;
}

}  // namespace corvane
