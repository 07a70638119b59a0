// Which folder the program keeps its files in, and where what ships with it stands. Asked by the mains of
// both front ends, before there is a program.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

enum class place_kind {
    asked,   // by --program-dir
    beside,  // the folder of the program: portable
    user     // the user's own, below the data home
};

struct program_place {
    program_place() = default;
    // A folder that somebody has asked for, with all that ships beside it.
    program_place(std::string program_dir) : folder(std::move(program_dir)), shared(folder) {}
    program_place(const char* program_dir) : program_place(std::string(program_dir)) {}

    std::string folder;  // program_dir; ends in the separator
    std::string shared;  // lists and help as they ship; ends in the separator
    place_kind kind = place_kind::asked;
    // Folders that a version before this one may have kept its files in, the likeliest first.
    std::vector<std::string> earlier;
};

// All folders as texts with their closing separator; an empty one is not known.
struct place_facts {
    std::string asked;       // --program-dir
    std::string own_folder;  // of the program
    std::string data_home;   // of the user
    std::uint32_t user = 0;
};

// Below it the system's packages lie, and no program writes.
bool is_system_prefix(std::string_view folder);

// Makes nothing but a trial in the program's folder, where that may be portable. One that holds settings
// stays the place also when it cannot be written for once: what it protects has to hold. A folder counts as
// portable only for the user that it belongs to: so two users never meet in one, and the superuser leaves no
// files in somebody else's. Where the user's folder belongs to another one (a home that two share), it is
// "corvane-<user>" in its place.
program_place find_program_place(file_system& files, const place_facts& facts);

}  // namespace corvane
