// The numbers of the files of one directory, taken from its list. Used by windows_file_system where many
// files of a directory are asked about in a row: a number is what a path alone does not tell, and opening
// each file for it costs more than all other questions.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/file_system.h"

namespace corvane {

class listed_numbers {
  public:
    // Paths of one directory in a row from which on its list is worth its reading.
    static constexpr std::size_t least_run = 8;

    // How many paths of the directory of paths[first] stand there in a row.
    static std::size_t run_at(std::span<const std::string_view> paths, std::size_t first);

    // True while what the list of the path's directory has told is held: for a second.
    bool holds(std::string_view path) const;
    // Lists the directory of `path`, a file whose facts have just been asked by opening it. No file of it is
    // known where the list tells another number of this one, or cannot be read. Ends early where it grows
    // long beside the `run` of files that will be asked about; those that it has not come to are not known.
    void hold(std::string_view path, const file_facts& facts, std::size_t run);
    // Of a file of the directory that is held, by its exact name. False: not known, the file has to be
    // opened.
    bool find(std::string_view path, file_identity& identity) const;

  private:
    using clock = std::chrono::steady_clock;

    struct text_hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    std::string directory_;
    std::uint64_t device_ = 0;
    clock::time_point read_at_;
    std::unordered_map<std::string, std::uint64_t, text_hash, std::equal_to<>> numbers_;  // by name
};

}  // namespace corvane
