// What tells the stars of the same-file view apart for the eye: rows of one star share a background, and the
// first of them says how many copies there are and what could be freed. Asked by a front end that paints.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

class Tavrel;

class group_bands {
  public:
    // Takes over the rows as they stand. False where nothing has changed since, which costs little.
    bool renew(const Tavrel& form);

    // Which of two backgrounds a row has, from 1 on; in a view without copies every second row.
    bool is_second(std::int32_t row) const;

    struct group_size {
        std::int32_t copies = 0;  // of the whole star, hidden rows included
        double freed = 0;         // bytes, when all but one go
    };
    // Stars of the whole result, hidden rows included, of which a pair is left.
    std::int32_t group_count() const { return groups_; }
    // Of the group of a row that is the first of its star where it stands; no copies for another one.
    group_size first_row(std::int32_t row) const;

  private:
    void renew_copies(const Tavrel& form);
    void renew_bands(const Tavrel& form);

    struct signature {
        std::uint64_t fill = 0;   // of the list: texts of another one may lie where these did
        std::uint64_t texts = 0;  // of all path cells and lengths, in whatever order
        std::uint64_t order = 0;  // of the first ones
        bool operator==(const signature&) const = default;
    };
    signature shown_;
    std::uint64_t cell_revision_ = ~std::uint64_t{0};
    std::uint64_t layout_revision_ = 0;
    // The star of a row, by the number of its pair or, where the rows are no result, by its own.
    std::int32_t star_of(const Tavrel& form, std::int32_t row) const;
    bool of_result_ = false;           // the rows are pairs of the result, by their numbers
    std::vector<std::int32_t> stars_;  // by that number, 0 for none
    std::vector<std::int32_t> pairs_;  // that are left of each star, by its number
    std::int32_t groups_ = 0;
    struct row_band {
        std::int64_t length = 0;
        std::int32_t star = 0;
        bool second = false;
        bool starts = false;
    };
    std::vector<row_band> bands_;
};

}  // namespace corvane
