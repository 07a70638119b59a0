// One run over the marked cells of the list: what may go is sent to the recycle bin, deleted, or handed to
// the deletion inside archives. Used by the two roads of deleting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cleanup/archive_delete.h"
#include "cleanup/deletion_gate.h"
#include "core/text/text_file.h"

namespace corvane {

class list_view;
struct list_view_row;
class recycle_notes;
class Tavrel;

enum class deletion_road { recycle, direct };

// Files that stay because no copy of theirs could be proven, or because they are protected.
struct kept_files {
    std::int32_t last_copies = 0;
    std::int32_t changed = 0;
    std::string first;
    std::int32_t covered = 0;  // protected ones, which count by themselves
    std::string first_covered;

    std::int32_t count() const { return last_copies + changed; }
};

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
    std::int32_t could_not() const { return could_not_; }  // protected, or the system refused it
    // What the gate kept, and what the recycle bin did not take, each with the first path.
    const kept_files& kept() const { return kept_; }
    std::int32_t not_taken() const { return not_taken_; }
    const std::string& first_not_taken() const { return first_not_taken_; }
    double freed() const { return freed_; }  // bytes
    // Further cells of paths that have gone: rows that have lost a side beside those of deleted().
    std::int32_t further_cells() const;
    // Rows of which this run has taken both sides: they count for two above and are one.
    std::int32_t rows_of_two() const;
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
    // Right before a batch: what may go no more comes back.
    bool still_may_go(const taken_cell& file);
    void bin_refused(const taken_cell& file);
    // The pairs that the queue breaks up, for a way back. False: the program is closing.
    bool note_pairs(recycle_notes& notes);
    void refuse(std::int32_t row, int column);
    void keep(const std::string& path, gate_verdict why);
    void put_back(const taken_cell& cell);
    void blank(const taken_cell& cell);
    void show_progress(std::int32_t row);

    Tavrel& form_;
    list_view& list_;
    const list_view_row& view_;  // the columns of the pairs
    deletion_road road_;
    std::string words_;
    deletion_gate gate_;
    std::unique_ptr<line_writer> archive_list_;
    std::vector<taken_cell> entries_;  // in archive_list_
    std::vector<taken_cell> queue_;    // for the recycle bin
    std::int32_t marked_ = 0;
    std::int32_t deleted_ = 0;
    std::int32_t could_not_ = 0;
    kept_files kept_;
    std::int32_t not_taken_ = 0;
    std::string first_not_taken_;
    // Further cells of a path that has been taken.
    std::unordered_multimap<std::string, taken_cell> again_;
    std::vector<std::int32_t> blanked_;  // rows, once for each cell that was blanked
    double freed_ = 0;
    std::int32_t still_inside_ = 0;
    std::string first_inside_;
};

}  // namespace corvane
