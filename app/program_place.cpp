#include "app/program_place.h"

#include "core/settings/data_files.h"

namespace corvane {

namespace {

// Of a folder with its closing separator: the one above it, with its own.
std::string above(const std::string& folder, char separator) {
    const std::size_t cut = folder.find_last_of(separator, folder.size() - 2);
    return cut == std::string::npos ? std::string() : folder.substr(0, cut + 1);
}

bool has_lists(file_system& files, const std::string& folder) {
    for (const char* const list : data_file::shipped)
        if (files.attributes(folder + list).exists) return true;
    return false;
}

std::string users_folder(file_system& files, const place_facts& facts) {
    std::string folder = facts.data_home + "corvane";
    if (files.attributes(folder).exists && !files.is_own_directory(folder + files.separator()))
        folder += '-' + std::to_string(facts.user);
    return folder + files.separator();
}

}  // namespace

bool is_system_prefix(std::string_view folder) {
    for (const std::string_view prefix :
         {"/usr/", "/bin/", "/sbin/", "/lib/", "/lib32/", "/lib64/", "/libx32/", "/opt/", "/snap/", "/app/",
          "/nix/store/", "/gnu/store/", "/var/lib/flatpak/"})
        if (folder.starts_with(prefix)) return true;
    return false;
}

program_place find_program_place(file_system& files, const place_facts& facts) {
    const char separator = files.separator();
    const std::string prefix = above(facts.own_folder, separator);
    const std::string installed = prefix + "share" + separator + "corvane" + separator;
    const bool is_installed = !has_lists(files, facts.own_folder) && has_lists(files, installed);
    program_place place;
    place.shared = is_installed ? installed : facts.own_folder;
    if (!facts.asked.empty()) {
        place.folder = facts.asked;
        return place;
    }
    const bool is_portable = !is_installed && !is_system_prefix(facts.own_folder) &&
                             files.is_own_directory(facts.own_folder) &&
                             (files.attributes(facts.own_folder + data_file::environment).exists ||
                              files.can_write_into(facts.own_folder));
    if (is_portable || facts.data_home.empty()) {
        place.kind = place_kind::beside;
        place.folder = facts.own_folder;
        return place;
    }
    place.kind = place_kind::user;
    place.folder = users_folder(files, facts);
    const std::string in_lib = std::string("lib") + separator + "corvane" + separator;
    place.earlier = {facts.own_folder, prefix + in_lib};
    // ~/.local/lib/corvane, beside ~/.local/share.
    const std::string of_user = above(facts.data_home, separator) + in_lib;
    if (of_user != place.earlier.back()) place.earlier.push_back(of_user);
    return place;
}

}  // namespace corvane
