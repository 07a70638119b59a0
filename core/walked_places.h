// Which physical directories a walk has met, so that each link to a directory is followed once and a loop
// ends at once. Used by every walk that follows links: links wait until everything else has been listed.
#pragma once

#include <string>
#include <unordered_set>

#include "platform/file_system.h"

namespace corvane {

class walked_places {
  public:
    explicit walked_places(file_system& files) : files_(files) {}

    void note_listed(const file_identity& place) { listed_.insert(place); }
    // The directories above a root count as seen from below: a link to one would list the root again.
    // `directory` is resolved and ends in the separator.
    void note_ancestors(std::string directory);
    // True when the link leads to a place that has neither been listed nor lies above what has been; the
    // directories above that place then count as seen. `link` ends in the separator.
    bool may_follow(const std::string& link);

  private:
    file_system& files_;
    std::unordered_set<file_identity, file_identity_hash> listed_;
    std::unordered_set<file_identity, file_identity_hash> ancestors_;
};

}  // namespace corvane
