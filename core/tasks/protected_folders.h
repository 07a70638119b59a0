// Protected folders: their files are compared, and never marked or deleted. Read at start, set by the
// directory window, asked by the marks and, on every road to the disk, by the deletion.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/text/text_hash.h"
#include "platform/file_system.h"

namespace corvane {

class Tavrel;

// Reads the file at start. What is damaged, of another version or cannot be read is told in one line;
// everything then counts as protected.
void read_protected_folders(Tavrel& form);

// These, each closed by the separator, are protected from now on, and are written. A file that could not be
// understood is copied beside its place first. When it cannot be written the user is told; for this run they
// are protected all the same.
void set_protected_folders(Tavrel& form, std::set<std::string> folders);

// Answers for many paths. What it has found out of a folder it keeps until the choice of the user changes;
// make a new one for each act.
class protection {
  public:
    explicit protection(const Tavrel& form);

    // False when nothing can be covered.
    bool is_needed() const;
    // True for a file, a directory or an archive entry that lies in a protected folder, and for such a folder
    // itself, by whatever road: another spelling, a link, a mount of the folder or of a part of it.
    bool covers(std::string_view path);

  private:
    void renew();
    bool is_spelled_inside(std::string_view folder) const;
    bool folder_is_covered(std::string_view folder);
    bool archive_is_covered(std::string_view archive);
    bool lies_inside(const std::string& folder);
    bool is_a_protected_one(const std::string& folder);
    // Where a resolved folder stands in its file system; empty when that is not known.
    std::string place_in_volume(const std::string& folder) const;
    std::string folded(std::string_view path) const;

    const Tavrel& form_;
    file_system& files_;
    std::uint64_t revision_ = 0;
    std::vector<std::string> spellings_;  // folded; as chosen, and where links in them lead
    std::vector<std::string> volume_places_;
    std::unordered_set<file_identity, file_identity_hash> identities_;
    std::vector<mounted_tree> mounts_;
    std::unordered_map<std::string, bool, text_hash, std::equal_to<>> known_;  // by folder as it is spelled
    std::unordered_map<std::string, bool> above_;                              // by resolved folder
};

}  // namespace corvane
