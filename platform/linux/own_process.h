// Where this process stands: the folder of its program, and the home of the user that it runs as. Asked by
// the mains before anything else.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace corvane {

// The folder of the running program, links followed, with its closing separator; text. The current folder
// where the system does not tell.
std::string own_folder();
std::uint32_t own_user();
// $XDG_DATA_HOME where it is an absolute path, else ~/.local/share; text, with its closing separator. Empty
// for a user without a home.
std::string user_data_home();

// What an environment has to become so that the superuser makes nothing in the home of somebody else.
struct environment_change {
    std::map<std::string, std::string> set;
    std::set<std::string> dropped;
};
struct environment_facts {
    std::function<std::optional<std::string>(const std::string& name)> variable;
    // The user whom an existing path belongs to, links followed; nothing where there is none.
    std::function<std::optional<std::uint32_t>(const std::string& path)> owner;
    std::string home_of_user;  // as the user database has it
    std::uint32_t user = 0;
};
// Only the superuser can leave files that others cannot write. A folder is somebody else's when one of the
// folders on the way to it belongs neither to the superuser nor to whoever owns "/". HOME is then replaced,
// XDG_DATA_HOME and its like are dropped; the key of the display (XAUTHORITY) is still found in the old home.
environment_change change_for_superuser(const environment_facts& facts);
// The same for this process. Before the first thread, and before a library reads the environment.
void keep_to_own_home();

}  // namespace corvane
