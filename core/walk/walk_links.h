// Which links a walk follows. A link waits for the end of the walk and is followed only if the place that it
// leads to has not been listed and is no ancestor: a loop ends at once, and no file is reached on two roads.
// A link that was selected is followed up to an ancestor, too; what has been listed below is then left out.
// A part of tree_walk; nothing else uses it.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// The links of one walk. Directories end in the separator.
class walk_links {
  public:
    explicit walk_links(file_system& files) : files_(files) {}

    // A directory at which the walk starts. False: a link stands in its path, so it waits as links do.
    bool take_root(const std::string& directory);
    void wait(std::string link) { waiting_.push_back({std::move(link), false}); }
    void note_listed(const file_identity& place) { listed_.push_back(place); }
    // The next link to follow, each once; empty when none is left. To be asked when everything else is
    // listed.
    std::string next();
    // True for a place that has been listed on another road. Only behind a link to an ancestor can there be
    // one.
    bool was_listed(const std::string& directory);

  private:
    struct waiting_link {
        std::string path;
        bool selected;
    };

    bool is_listed(const file_identity& place);
    void note_ancestors(std::string directory);

    file_system& files_;
    std::vector<waiting_link> waiting_;
    std::size_t next_ = 0;
    // Most walks meet no link: the places are put in order only when one asks.
    std::vector<file_identity> listed_;
    std::size_t ordered_ = 0;
    std::unordered_set<file_identity, file_identity_hash> places_;
    std::unordered_set<file_identity, file_identity_hash> ancestors_;
    bool overlaps_ = false;  // a link to an ancestor has been followed
};

}  // namespace corvane
