#include "platform/own_process.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/linux/superuser_home.h"
#include "platform/name_mapping.h"

namespace corvane {

namespace {

std::optional<std::string> variable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    if (value == nullptr) return {};
    return value;
}

std::optional<std::uint32_t> owner(const std::string& path) {
    struct stat facts;
    if (stat(path.c_str(), &facts) != 0) return {};
    return facts.st_uid;
}

std::string home_of_user() {
    const passwd* const entry = getpwuid(geteuid());
    return entry != nullptr && entry->pw_dir != nullptr ? entry->pw_dir : "";
}

std::string closed(std::string path) {
    if (!path.ends_with('/')) path += '/';
    return path;
}

bool is_somebody_elses(const environment_facts& facts, const std::string& folder) {
    const std::optional<std::uint32_t> systems = facts.owner("/");
    std::filesystem::path way;
    for (const std::filesystem::path& name : std::filesystem::path(folder)) {
        way /= name;
        const std::optional<std::uint32_t> owner = facts.owner(way.string());
        if (!owner) return false;
        if (*owner != facts.user && owner != systems) return true;
    }
    return false;
}

}  // namespace

std::string own_folder() {
    std::error_code failed;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", failed);
    return to_text(
        closed(failed ? std::filesystem::current_path(failed).string() : self.parent_path().string()));
}

std::uint32_t own_user() {
    return geteuid();
}

std::string user_name(std::uint32_t user) {
    std::array<char, 4096> room;
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(user, &entry, room.data(), room.size(), &found) != 0 || found == nullptr)
        return std::to_string(user);
    return found->pw_name;
}

std::string user_data_home() {
    const std::optional<std::string> given = variable("XDG_DATA_HOME");
    if (given && given->starts_with('/')) return to_text(closed(*given));
    std::string home = variable("HOME").value_or("");
    if (!home.starts_with('/')) home = home_of_user();
    if (!home.starts_with('/')) return {};
    return to_text(closed(home) + ".local/share/");
}

std::vector<std::string> own_arguments(int count, char** arguments) {
    return {arguments + (count > 0 ? 1 : 0), arguments + count};
}

environment_change change_for_superuser(const environment_facts& facts) {
    environment_change change;
    if (facts.user != 0) return change;
    for (const char* const name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
        const std::optional<std::string> folder = facts.variable(name);
        if (folder && is_somebody_elses(facts, *folder)) change.dropped.insert(name);
    }
    const std::optional<std::string> home = facts.variable("HOME");
    if (!home || !is_somebody_elses(facts, *home) || facts.home_of_user.empty()) return change;
    change.set["HOME"] = facts.home_of_user;
    const std::string key = closed(*home) + ".Xauthority";
    if (!facts.variable("XAUTHORITY") && facts.owner(key)) change.set["XAUTHORITY"] = key;
    return change;
}

void keep_to_own_home() {
    const environment_change change = change_for_superuser({variable, owner, home_of_user(), own_user()});
    for (const std::string& name : change.dropped) unsetenv(name.c_str());
    for (const auto& [name, value] : change.set) setenv(name.c_str(), value.c_str(), 1);
}

}  // namespace corvane
