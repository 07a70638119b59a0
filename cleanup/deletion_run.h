// One run over the marked cells of the list: what may go is sent to the recycle bin, deleted, or handed to
// the deletion inside archives. Used by the two roads of deleting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cleanup/archive_delete.h"
#include "cleanup/last_copy.h"
#include "core/text/text_file.h"

namespace corvane {

class list_view;
struct list_view_row;
class Tavrel;

enum class deletion_road { recycle, direct };

class deletion_run {
  public:
    // `words` stand before the number of deleted files in panel 5.
    deletion_run(Tavrel& form, deletion_road road, const char* words);

    // Takes every marked cell of columns 3 and 4, yielding at each row. False: the program is closing.
    bool scan();
    // Deletes the entries of archives that the scan has met. False: the program is closing.
    bool delete_in_archives();
    // Sends to the recycle bin what the scan has met for it. False: the program is closing.
    bool send_batches();

    // Tallies.
    std::int32_t marked() const { return marked_; }
    std::int32_t deleted() const { return deleted_; }
    std::int32_t could_not() const { return could_not_; }
    double freed() const { return freed_; }  // bytes
    // Entries that are still in their archives although they were to go, and one of them.
    std::int32_t still_inside() const { return still_inside_; }
    const std::string& first_inside() const { return first_inside_; }

  private:
    // A marked cell whose text has been taken away for a while.
    struct taken_cell {
        std::int32_t row;
        int column;
        std::string path;
        std::int64_t length;
    };

    void take_cell(std::int32_t row, int column);
    void take_archive_entry(const taken_cell& cell);
    void enqueue(const taken_cell& cell);
    void delete_now(const taken_cell& cell);
    bool is_protected(const std::string& name, std::uint32_t colour);
    bool still_may_go(const taken_cell& file);
    void refuse(std::int32_t row, int column);
    void put_back(const taken_cell& cell);
    void show_progress(std::int32_t row);

    Tavrel& form_;
    list_view& list_;
    const list_view_row& view_;  // the columns of the pairs
    deletion_road road_;
    std::string words_;
    last_copy copies_;
    std::unique_ptr<line_writer> archive_list_;
    std::vector<taken_cell> entries_;  // in archive_list_
    std::vector<taken_cell> queue_;    // for the recycle bin
    std::int32_t marked_ = 0;
    std::int32_t deleted_ = 0;
    std::int32_t could_not_ = 0;
    double freed_ = 0;
    std::int32_t still_inside_ = 0;
    std::string first_inside_;
};

}  // namespace corvane
