// What tells the stars of the same-file view apart for the eye: rows of one star share a background, and the
// first of them says how many copies there are and what could be freed. Asked by a front end that paints.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "core/model/list_view.h"

namespace corvane {

class Tavrel;

class group_bands {
  public:
    // Takes over the rows as they stand, looking at no more than `most` in a call; the next call goes on
    // there, or begins anew where the list has changed since. What stood holds until then, but not for rows
    // that have moved: these have no star meanwhile. Costs little where nothing has changed.
    walk_progress renew(const Tavrel& form, std::int64_t most = std::numeric_limits<std::int64_t>::max());
    // Gives up what is on its way. For a task that may change the result without the list, or moves rows.
    void give_up(const list_view& list);

    // Which of two backgrounds a row has, from 1 on; in a view without copies every second row.
    bool is_second(std::int32_t row) const;

    struct group_size {
        std::int32_t copies = 0;  // of the whole star, hidden rows included
        double freed = 0;         // bytes, when all but one go
    };
    // Stars of the whole result, hidden rows included, of which a pair is left.
    std::int32_t group_count() const { return known_.groups; }
    // Of the group of a row that is the first of its star where it stands; no copies for another one.
    group_size first_row(std::int32_t row) const;

  private:
    struct signature {
        std::uint64_t fill = 0;   // of the list: texts of another one may lie where these did
        std::uint64_t texts = 0;  // of all path cells and lengths, in whatever order
        std::uint64_t order = 0;  // of the first ones
        bool operator==(const signature&) const = default;
    };
    struct copies {
        bool of_result = false;           // the rows are pairs of the result, by their numbers
        std::vector<std::int32_t> stars;  // by the number of the pair, else of the row; 0 for none
        std::vector<std::int32_t> pairs;  // that are left of each star, by its number
        std::int32_t groups = 0;
    };
    struct row_band {
        std::int64_t length = 0;
        std::int32_t star = 0;
        bool second = false;
        bool starts = false;
    };
    enum class stage { idle, signing, counting, banding };
    struct work {
        stage at = stage::idle;
        list_revisions of;
        std::int32_t next = 1;  // row or number to be looked at
        signature now;
        bool counts_anew = false;
        copies counted;  // of the texts as they are, where it does
        std::vector<row_band> bands;
    };

    void see_moves(const list_revisions& present);
    const copies& present() const { return work_.counts_anew ? work_.counted : known_; }
    void begin_counting(const Tavrel& form);
    void begin_banding(const Tavrel& form);
    // Each looks at up to `left` rows, takes them off it, and answers whether it has seen all.
    bool sign(const Tavrel& form, std::int64_t& left);
    bool count(const Tavrel& form, std::int64_t& left);
    bool band(const Tavrel& form, std::int64_t& left);
    walk_progress finish(bool same);

    list_revisions taken_;
    bool moved_ = false;  // rows stand elsewhere than bands_ knows
    signature shown_;
    copies known_;
    std::vector<row_band> bands_;
    work work_;
};

}  // namespace corvane
