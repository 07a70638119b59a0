// What the environment of a process has to become so that the superuser makes nothing in the home of somebody
// else. Used by keep_to_own_home.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace corvane {

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

}  // namespace corvane
