// Asks whether listed files still stand as they were listed, many at once. Used by the comparison right
// before it pairs files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/state/file_columns.h"
#include "platform/file_system.h"

namespace corvane {

class file_questions {
  public:
    // `yield` lets waiting events run while the disk has not answered all, `seconds` is a clock. Disk and
    // columns outlive the object.
    file_questions(file_system& disk, const file_columns& files, std::function<void()> yield,
                   std::function<double()> seconds)
        : disk_(disk), files_(files), yield_(std::move(yield)), seconds_(std::move(seconds)) {}

    // The facts of these files, in their order, as they are now; of archive members nothing. Valid until the
    // next question.
    const std::vector<file_facts>& now(std::span<const std::int32_t> numbers) { return ask(numbers, 0); }

    // The same for files of which this comparison reads nothing: an answer may be a second old. Files behind
    // them with known contents, which will be asked about in the same way, are asked with them.
    const std::vector<file_facts>& lately(std::span<const std::int32_t> numbers);

  private:
    static constexpr std::size_t most_ahead = 512;
    static constexpr double oldest_answer = 1;

    const std::vector<file_facts>& ask(std::span<const std::int32_t> numbers, std::size_t ahead);
    void add_paths_behind(std::int32_t file, std::size_t count);
    bool take_answers(std::span<const std::int32_t> numbers);

    file_system& disk_;
    const file_columns& files_;
    std::function<void()> yield_;
    std::function<double()> seconds_;
    std::vector<std::string_view> paths_;
    std::vector<file_facts> answers_;
    std::vector<file_facts> facts_;
    std::unordered_map<const char*, file_facts> ahead_;  // by where the text of the path stands
    double asked_at_ = 0;
};

}  // namespace corvane
