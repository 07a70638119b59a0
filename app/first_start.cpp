#include "app/first_start.h"

#include <string_view>
#include <vector>

#include "core/settings/added_settings.h"
#include "core/settings/data_files.h"
#include "core/text/file_copy.h"

namespace corvane {

namespace {

bool is_file(file_system& files, const std::string& path) {
    const path_attributes found = files.attributes(path);
    return found.exists && !found.directory;
}

bool is_one_folder(file_system& files, const std::string& left, const std::string& right) {
    file_identity one, other;
    return files.identity(left, one) && files.identity(right, other) && one == other;
}

// What an earlier place has and this one has not. Settings must be among what is there: without them nobody
// has worked in that place.
std::vector<std::string> files_to_take(file_system& files, const std::string& from, const std::string& to) {
    std::vector<std::string> names;
    if (!is_file(files, from + data_file::environment) || is_one_folder(files, from, to)) return names;
    for (const char* const name : data_file::kept)
        if (is_file(files, from + name) && !files.attributes(to + name).exists) names.emplace_back(name);
    return names;
}

// The first earlier place that has something; empty names: none has.
struct earlier_files {
    std::string folder;
    std::vector<std::string> names;
};
earlier_files find_earlier_files(Tavrel& form, const program_place& place) {
    for (const std::string& folder : place.earlier) {
        std::vector<std::string> names = files_to_take(form.outside.files, folder, place.folder);
        if (!names.empty()) return {folder, std::move(names)};
    }
    return {};
}

// False when one cannot be copied, which is told.
bool take(Tavrel& form, const earlier_files& earlier) {
    for (const std::string& name : earlier.names) {
        const std::string target = form.data_path(name);
        const outcome copied = copy_file(form.outside.files, earlier.folder + name, target);
        if (!copied) {
            form.complain(target + "\r\n" + copied.reason);
            return false;
        }
    }
    return true;
}

}  // namespace

bool is_first_start(Tavrel& form, const program_place& place) {
    return place.kind == place_kind::user &&
           !is_file(form.outside.files, form.data_path(data_file::environment));
}

void seed_lists(Tavrel& form, const program_place& place) {
    for (const char* const name : data_file::shipped)
        if (!form.outside.files.attributes(form.data_path(name)).exists)
            copy_file(form.outside.files, place.shared + name, form.data_path(name));
}

void offer_earlier_files(Tavrel& form, const program_place& place) {
    file_system& files = form.outside.files;
    const std::string settings = form.data_path(data_file::added_settings);
    if (place.kind != place_kind::user || read_added_settings(files, settings).earlier_place_asked) return;
    const earlier_files earlier = find_earlier_files(form, place);
    if (earlier.names.empty()) return;
    message question;
    question.text =
        "发现以前的设置和清单:\r\n" + earlier.folder + "\r\n要复制到现在的程序目录吗?\r\n" + place.folder;
    question.detail =
        std::to_string(earlier.names.size()) + " 个文件。这里已有的文件不会改动，原来的文件也留在原处。";
    question.yes_words = "复制";
    question.no_words = "不复制";
    const box_answer answer = form.ask(question);
    if (answer != box_answer::yes && answer != box_answer::no) return;
    if (answer == box_answer::yes && !take(form, earlier)) return;
    added_settings values = read_added_settings(files, settings);
    values.earlier_place_asked = true;
    // A folder that cannot be written has been told of already.
    write_added_settings(files, settings, values);
}

void tell_of_earlier_files(Tavrel& form, const program_place& place) {
    if (!is_first_start(form, place)) return;
    const earlier_files earlier = find_earlier_files(form, place);
    if (!earlier.names.empty())
        form.inform("发现以前的设置和清单:\r\n" + earlier.folder + "\r\n现在的程序目录:\r\n" + place.folder);
}

}  // namespace corvane
