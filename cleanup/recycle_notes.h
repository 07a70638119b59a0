// What a run sends to the recycle bin, noted in a file of its own while it runs, so that it can be taken
// back. A run that ends in the middle leaves what has been noted so far valid. Used by recycle_batches.
//
// Each line is a letter and fields parted by tabs, closed by a full stop, so that a cut line is none:
//   T date time                                                    when the run began
//   D directory                                                    one of those that the result is of
//   P length path1 path2                                           a pair of the list that the run breaks up
//   F kind device index length modified folder path                about to go; numbered from 1 on
//   E number name place                                            where it lies in the bin
//   X number                                                       it has stayed
//   R number path                                                  restored, to this path
//   Z count                                                        the end of the run: so many have gone
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/text/text_file.h"
#include "platform/trash.h"

namespace corvane {

class Tavrel;

inline constexpr char recycle_notes_title[] = "Corvane recycled 1";

// A line of the notes, with its full stop.
std::string note_line(const char* letter, std::initializer_list<std::string_view> values);

class recycle_notes {
  public:
    // Makes no file yet. Without a bin that things can be taken back from nothing is noted.
    explicit recycle_notes(Tavrel& form);

    // A pair of which a path is about to go; before the first path.
    void pair(std::int64_t length, std::string_view first, std::string_view second);
    // The path goes now: noted before the bin has it.
    void going(const std::string& path);
    // What became of it.
    void answer(bool gone);
    // Finds where the paths since the last call lie.
    void end_batch();
    // Ends the file. What could not be written is told here, once.
    void finish();

  private:
    void open();
    void add(const std::string& line);
    void flush();

    Tavrel& form_;
    trash* bin_;
    std::string path_;
    std::unique_ptr<file_writer> file_;
    std::string failure_;                                       // why no more is noted
    std::string lines_;                                         // not yet handed on
    std::vector<std::pair<std::size_t, recycled_item>> batch_;  // gone, by number
    std::size_t number_ = 0;
    std::size_t gone_ = 0;
    recycled_item current_;
    bool is_noted_ = false;  // the path in hand
};

}  // namespace corvane
