// Where this process stands: the folder of its program, and the home of the user that it runs as. Asked by
// the mains before anything else; platform/linux and platform/windows answer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// The folder of the running program, links followed, with its closing separator; text. The current folder
// where the system does not tell.
std::string own_folder();
// 0 is the superuser, and everybody where users have no numbers.
std::uint32_t own_user();
// The name of a user of this machine, text; the number where it has none, and nothing where users
// have no numbers. May be asked from any thread.
std::string user_name(std::uint32_t user);
// Where programs keep the user's data: $XDG_DATA_HOME where it is an absolute path, else ~/.local/share; the
// local application data on Windows. Text, with its closing separator. Empty for a user without a home.
std::string user_data_home();
// Leaves the superuser's process no variable that leads into the home of somebody else. Before the first
// thread, and before a library reads the environment. Nothing where the system keeps that apart.
void keep_to_own_home();

// What the program was started with, without its own name: raw bytes. `count` and `arguments` are main's.
std::vector<std::string> own_arguments(int count, char** arguments);

}  // namespace corvane
