// The form of a saved result: written line by line, and read back with each line in its place. Used by
// saved_result.
//
// After the title each line is a letter, a blank and a text; the kinds stand in the order of the letters
// below. The last line tells how many lines came before it and their CRC-32, so that a file that is cut or
// damaged is told from a whole one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/archives/checksum.h"
#include "core/text/text_file.h"

namespace corvane {

class Tavrel;

namespace saved_line {
constexpr char directory = 'D';
constexpr char listed = 'L';  // an entry of the file list
constexpr char single = 'N';  // a file without a twin
constexpr char length = 'P';  // of a pair, then its first and its second path
constexpr char first_path = 'Q';
constexpr char second_path = 'R';
constexpr char mark = 'M';  // column, length, first and second path of a marked row, a line each
}  // namespace saved_line

// What every saved result begins with, of whatever version.
inline constexpr char any_saved_title[] = "Corvane result ";

// Counts lines and sums their bytes up.
class line_sum {
  public:
    void add(std::string_view line);
    std::string words() const;
    std::int64_t lines() const { return lines_; }

  private:
    checksum_stream sum_;
    std::int64_t lines_ = 0;
};

// Yields now and then. What is written comes to its place with finish().
class saved_writer {
  public:
    saved_writer(Tavrel& form, const std::string& path);

    void line(char letter, std::string_view text);
    // Every line of one of the program's files; none of one that is missing.
    void lines_of(char letter, const std::string& path);
    // False: what stood there is whole, and error() says why.
    bool finish();
    // What was to be saved could not be read to its end: nothing comes to its place.
    void fail() { is_whole_ = false; }
    std::string error() const { return is_whole_ ? writer_.error() : "不能读出。"; }

  private:
    void line(std::string_view text);

    Tavrel& form_;
    line_writer writer_;
    line_sum sum_;
    std::string text_;
    bool is_whole_ = true;
};

enum class saved_kind { whole, missing, foreign, other_version, damaged, closing };

// What the lines of a saved result are given to.
struct saved_target {
    virtual ~saved_target() = default;
    virtual void line(char letter, std::string_view text) = 0;
};

class saved_reader {
  public:
    saved_reader(Tavrel& form, const std::string& path);

    // Gives every line to the target, also those of a file that then turns out not to be whole. Yields.
    saved_kind read(saved_target& target);
    // Why the file is missing, in the system's words.
    const std::string& error() const { return lines_.error(); }
    std::int64_t pairs() const { return pairs_; }
    std::int64_t marks() const { return marks_ / 4; }

  private:
    bool ends_well(std::string_view text);
    bool stands_right(char letter, std::string_view text);

    Tavrel& form_;
    line_reader lines_;
    line_sum sum_;
    std::size_t place_ = 0;
    int row_ = 0;  // 1: a first path is to come, 2: a second one
    std::int64_t pairs_ = 0;
    std::int64_t marks_ = 0;
};

}  // namespace corvane
