#include <gtest/gtest.h>

#include <cassert>
#include <vector>

// Only a build that looks for mistakes promises to stop at one.
#ifdef CORVANE_CHECKED

TEST(asserts, stop_a_checked_build) {
    EXPECT_DEATH(assert(testing::Test::HasFailure()), "HasFailure");
}

TEST(asserts, of_the_standard_library_stop_a_checked_build) {
    std::vector<int> numbers(3);
    numbers.reserve(8);  // the fourth place is memory of the vector, but no number of it
    volatile std::size_t place = 3;
    EXPECT_DEATH(numbers[place] = 1, "__n < this->size");
}

#endif
