// Counts the calls to one port of the outside, and says which of them is to fail.
#pragma once

#include <cstdint>

namespace corvane {

class fault_counter {
  public:
    // From now on: call `number`, from 1, fails; with `for_good` those behind it, too. 0: none does.
    void fail_at(std::int64_t number, bool for_good) {
        calls_ = 0;
        fails_at_ = number;
        for_good_ = for_good;
    }
    // Calls that could have failed since then.
    std::int64_t calls() const { return calls_; }
    // To be asked once a call.
    bool fails() {
        ++calls_;
        return fails_at_ != 0 && (for_good_ ? calls_ >= fails_at_ : calls_ == fails_at_);
    }

  private:
    std::int64_t calls_ = 0;
    std::int64_t fails_at_ = 0;
    bool for_good_ = false;
};

}  // namespace corvane
