// Contents that the signature pass of a group has read and that are held until the group is left, so that the
// comparison does not read them again. Bounded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace corvane {

class held_contents {
  public:
    void clear();
    bool has_room(std::size_t size) const { return bytes_.size() + size <= memory_bound; }
    // False when the bound is reached; `bytes` is then not held.
    bool hold(std::int32_t place, std::span<const std::byte> bytes);
    // Places move with their files: place i takes what stood at old_places[i].
    void reorder(const std::vector<std::int32_t>& old_places);
    // Places count from 0 within the group. Empty when nothing is held.
    std::span<const std::byte> at(std::int32_t place) const;

  private:
    static constexpr std::size_t memory_bound = 16 << 20;

    struct extent {
        std::size_t offset = 0;
        std::size_t length = 0;
    };

    std::vector<std::byte> bytes_;
    std::vector<extent> extents_;
};

}  // namespace corvane
