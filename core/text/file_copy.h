// Copies one of the program's files as it stands. Used where a file is taken over or put aside.
#pragma once

#include <functional>
#include <string>

#include "platform/file_system.h"

namespace corvane {

// All bytes of the one to the end of the other. `turn`, unless empty, is called before each block.
outcome copy_bytes(file_reader& source, file_writer& target, const std::function<void()>& turn = {});

// Byte by byte; the copy takes its name when it is whole. On failure what stood at `to` is as it was.
outcome copy_file(file_system& files, const std::string& from, const std::string& to);

}  // namespace corvane
