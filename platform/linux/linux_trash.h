// The recycle bins of a Linux desktop: finding what has gone there by what it is, and moving it back without
// ever following a link or overwriting a file. Both front ends use it.
#pragma once

#include <map>
#include <string>

#include "platform/trash.h"

namespace corvane {

class linux_trash : public trash {
  public:
    std::optional<recycled_item> look(const std::string& path) override;
    std::vector<trash_entry> find(std::span<const recycled_item> gone) override;
    trash_state state(const recycled_item& item, const trash_entry& entry) override;
    bool stands_at(const recycled_item& item, const std::string& path) override;
    restoring restore(const recycled_item& item, const trash_entry& entry) override;

  private:
    // The folder whose links were followed last: paths of one folder come one after the other.
    std::string known_folder_, known_target_;
    // How far the bins' own numbers of a base name have come, so that the next one is guessed.
    std::map<std::string, int> numbers_;
};

}  // namespace corvane
