// A flag of the run state: -1 when set, 0 when not, which is how it is printed and stored.
#pragma once

#include <concepts>
#include <cstdint>

namespace corvane {

class flag {
  public:
    constexpr flag() = default;
    // Any number but 0 sets it.
    template <std::integral Number>
    constexpr flag(Number set) : value_(set ? std::int16_t{-1} : std::int16_t{0}) {}

    constexpr operator std::int16_t() const { return value_; }

  private:
    std::int16_t value_ = 0;
};

}  // namespace corvane
