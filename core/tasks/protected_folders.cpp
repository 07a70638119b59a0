#include "core/tasks/protected_folders.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/file_copy.h"
#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr char title[] = "Corvane protected folders 1";

// A line that can stand for a folder: a full path.
bool names_folder(const Tavrel& form, std::string_view line) {
    const char separator = form.outside.files.separator();
    if (separator == '/') return line.starts_with('/');
    return line.size() >= 3 && (line[1] == ':' || line.starts_with("\\\\"));
}

// False: the file is not whole, or not of this version.
bool read_lines(Tavrel& form, const std::string& path, std::set<std::string>& folders) {
    line_reader lines(form.outside.files, path);
    std::string_view line;
    if (!lines.is_open() || !lines.next(line) || line != title || !lines.next(line)) return false;
    const std::int64_t count = parse_number(line);
    if (count < 0) return false;
    for (std::int64_t i = 0; i < count; ++i) {
        if (!lines.next(line) || !names_folder(form, line)) return false;
        folders.insert(with_separator(line, form.outside.files.separator()));
    }
    return !lines.next(line);
}

// Whether the data files of this machine can say the text. Another folder in its place would protect nothing.
bool comes_back(const data_encoding* encoding, const std::string& text) {
    if (encoding == nullptr) return true;
    std::string bytes, back;
    encoding->append_bytes(bytes, text);
    encoding->append_text(back, bytes);
    return back == text;
}

}  // namespace

void read_protected_folders(Tavrel& form) {
    protected_state& state = form.state;
    const std::string path = form.data_path(data_file::protected_directories);
    if (!path_exists(form.outside.files, path)) return;
    state.protection_unknown = !read_lines(form, path, state.protected_folders);
    ++state.protection_revision;
    if (state.protection_unknown)
        form.complain(path + "\r\n受保护的目录读不全。在目录选择中按“确定”之前,什么都不标记、不删除。");
}

void set_protected_folders(Tavrel& form, std::set<std::string> folders) {
    protected_state& state = form.state;
    if (folders == state.protected_folders && !state.protection_unknown) return;
    const std::string path = form.data_path(data_file::protected_directories);
    const bool kept = !state.protection_unknown ||
                      copy_file(form.outside.files, path, form.data_path(data_file::protected_aside));
    state.protected_folders = std::move(folders);
    ++state.protection_revision;
    const bool said = std::all_of(
        state.protected_folders.begin(), state.protected_folders.end(),
        [&form](const std::string& folder) { return comes_back(form.outside.files.data_files(), folder); });
    if (!kept || !said) return form.complain(path + "\r\n受保护的目录没有保存。");
    line_writer writer(form.outside.files, path);
    writer.line(title);
    writer.number(static_cast<std::int64_t>(state.protected_folders.size()));
    for (const std::string& folder : state.protected_folders) writer.line(folder);
    if (!writer.finish()) return report_write_failure(form, path, writer.error());
    state.protection_unknown = false;
}

protection::protection(const Tavrel& form) : form_(form), files_(form.outside.files) {
    renew();
}

void protection::renew() {
    revision_ = form_.state.protection_revision;
    spellings_.clear();
    volume_places_.clear();
    identities_.clear();
    known_.clear();
    above_.clear();
    if (form_.state.protected_folders.empty()) return;
    mounts_ = files_.mounted_trees();
    for (const std::string& folder : form_.state.protected_folders) {
        const std::string resolved = with_separator(files_.resolve(folder), files_.separator());
        spellings_.push_back(folded(folder));
        spellings_.push_back(folded(resolved));
        if (std::string place = place_in_volume(resolved); !place.empty())
            volume_places_.push_back(std::move(place));
        file_identity identity;
        if (files_.identity(folder, identity)) identities_.insert(identity);
    }
}

bool protection::is_needed() const {
    return form_.state.protection_unknown || !form_.state.protected_folders.empty();
}

bool protection::covers(std::string_view path) {
    if (!is_needed()) return false;
    if (form_.state.protection_unknown) return true;
    if (revision_ != form_.state.protection_revision) renew();
    const std::string_view file = archive_path_of(path);
    if (is_spelled_inside(file)) return true;
    const char separator = files_.separator();
    // A directory is asked about itself, a file about the folder that it is in.
    const std::size_t cut = file.rfind(separator);
    if (cut == std::string_view::npos) return false;
    if (folder_is_covered(file.substr(0, cut + 1))) return true;
    // An archive is written to through a link.
    return is_archive_member(path) && archive_is_covered(file);
}

bool protection::is_spelled_inside(std::string_view path) const {
    const std::string text = with_separator(folded(path), files_.separator());
    return std::any_of(spellings_.begin(), spellings_.end(),
                       [&](const std::string& folder) { return text.starts_with(folder); });
}

bool protection::folder_is_covered(std::string_view folder) {
    const auto found = known_.find(folder);
    if (found != known_.end()) return found->second;
    const std::string text(folder);
    return known_[text] = lies_inside(with_separator(files_.resolve(text), files_.separator()));
}

// Known by its path, which ends in no separator as those of folders do.
bool protection::archive_is_covered(std::string_view archive) {
    const auto found = known_.find(archive);
    if (found != known_.end()) return found->second;
    const std::string text(archive);
    const std::string resolved = files_.resolve(text);
    const std::size_t cut = resolved.rfind(files_.separator());
    const bool covered =
        resolved != text && cut != std::string::npos && folder_is_covered(resolved.substr(0, cut + 1));
    return known_[text] = covered;
}

bool protection::lies_inside(const std::string& folder) {
    if (is_spelled_inside(folder) || is_a_protected_one(folder)) return true;
    const std::string place = place_in_volume(folder);
    return !place.empty() &&
           std::any_of(volume_places_.begin(), volume_places_.end(), [&](const std::string& protected_place) {
               return place.starts_with(protected_place);
           });
}

// The folder itself or one above it.
bool protection::is_a_protected_one(const std::string& folder) {
    const auto found = above_.find(folder);
    if (found != above_.end()) return found->second;
    file_identity identity;
    bool covered = files_.identity(folder, identity) && identities_.count(identity) != 0;
    const std::size_t cut =
        folder.size() < 2 ? std::string::npos : folder.rfind(files_.separator(), folder.size() - 2);
    if (!covered && cut != std::string::npos) covered = is_a_protected_one(folder.substr(0, cut + 1));
    return above_[folder] = covered;
}

std::string protection::place_in_volume(const std::string& folder) const {
    const mounted_tree* mount = nullptr;
    for (const mounted_tree& each : mounts_)
        if (folder.starts_with(each.point) && (mount == nullptr || each.point.size() >= mount->point.size()))
            mount = &each;
    return mount == nullptr ? std::string()
                            : mount->device + ' ' + mount->root + folder.substr(mount->point.size());
}

std::string protection::folded(std::string_view path) const {
    return files_.ignores_case() ? upper_case(path) : std::string(path);
}

}  // namespace corvane
