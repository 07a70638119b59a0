// The sets of directories that were selected lately, newest first, in a file of their own. Used by
// directory_form.
#pragma once

#include <string>
#include <vector>

namespace corvane {

class Tavrel;

class recent_sets {
  public:
    static constexpr std::size_t most_sets = 12;
    using directories = std::vector<std::string>;

    explicit recent_sets(Tavrel& main) : main_(main) {}

    // Read from the file when first asked for. What the file says beyond what can be understood is told once
    // and stays in a copy of it.
    const std::vector<directories>& sets();
    // The set comes first; one that is there already moves. Writes the file. Nothing for an empty set and
    // where the set stands first already.
    void note(const directories& set);

  private:
    void read();
    bool read_sets(const std::string& path);

    Tavrel& main_;
    std::vector<directories> sets_;
    bool read_ = false;
    bool keep_aside_ = false;  // the file holds what has not been understood
};

}  // namespace corvane
