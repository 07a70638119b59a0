#include "platform/windows/windows_file_system.h"

#include <windows.h>

#include <chrono>
#include <cwchar>
#include <string_view>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_facts.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

// Answers until 50 ms have passed, but always the first question; returns where it stopped.
template <class Answer>
std::size_t in_time(std::size_t count, const Answer& answer) {
    using clock = std::chrono::steady_clock;
    const clock::time_point end = clock::now() + std::chrono::milliseconds(50);
    std::size_t i = 0;
    do answer(i);
    while (++i < count && clock::now() < end);
    return i;
}

// Questions in a row to one thread: each opens a file, which costs more than taking it.
constexpr std::size_t in_a_row = 16;
constexpr unsigned most_network_threads = 4;

// The disk is asked what it is only where that matters.
unsigned most_threads(const request_pace& pace, std::string_view path) {
    if (pace.threads(request_pace::most_threads) <= most_network_threads) return most_network_threads;
    return is_on_network(path) ? most_network_threads : request_pace::most_threads;
}

template <class Answer>
request_pool::work one_by_one(const Answer& answer) {
    return [answer](std::size_t first, std::size_t end, const time_limit& limit) {
        for (std::size_t i = first; i < end; ++i) {
            if (i > first && limit.passed()) return i;
            answer(i);
        }
        return end;
    };
}

}  // namespace

windows_file_system::windows_file_system()
    : facts_pace_(request_pool::processors(), 150e-6), starts_pace_(request_pool::processors(), 150e-6) {}

file_facts windows_file_system::facts(std::string_view path) {
    const handle entry = open_entry(wide_path(path).c_str(), FILE_READ_ATTRIBUTES);
    file_facts result;
    if (!entry || !tell_facts(entry, result) ||
        !serials_.find(entry, path, result.identity.device, result.stacked))
        return {};
    return result;
}

std::int64_t windows_file_system::now_ns() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return nanoseconds_of(units_of_time(now));
}

std::size_t windows_file_system::many_facts(std::span<const std::string_view> paths,
                                            std::span<file_facts> answers) {
    if (paths.empty()) return 0;
    return pool_.run(paths.size(), in_a_row, most_threads(facts_pace_, paths.front()), facts_pace_,
                     one_by_one([&](std::size_t i) { answers[i] = facts(paths[i]); }));
}

std::size_t windows_file_system::many_states(std::span<const std::string_view> paths,
                                             std::span<file_facts> answers) {
    // What a share tells by path may be older than what an open file of it tells.
    if (!paths.empty() && is_on_network(paths.front())) return many_facts(paths, answers);
    return in_time(paths.size(), [&](std::size_t i) {
        const std::string_view path = paths[i];
        file_facts& answer = answers[i];
        answer = {};
        if (numbers_.holds(path)) {
            if (numbers_.find(path, answer.identity) && tell_state(wide_path(path), answer)) return;
            answer = facts(path);
            return;
        }
        answer = facts(path);
        if (!answer.exists || answer.stacked) return;
        const std::size_t run = listed_numbers::run_at(paths, i);
        if (run >= listed_numbers::least_run) numbers_.hold(path, answer, run);
    });
}

std::size_t windows_file_system::many_exist(std::span<const std::string_view> paths,
                                            std::span<std::uint8_t> answers) {
    return in_time(paths.size(),
                   [&](std::size_t i) { answers[i] = attributes(std::string(paths[i])).exists ? 1 : 0; });
}

std::size_t windows_file_system::read_starts(std::span<start_request> requests) {
    if (requests.empty()) return 0;
    return pool_.run(requests.size(), in_a_row, most_threads(starts_pace_, requests.front().path),
                     starts_pace_, one_by_one([&](std::size_t i) {
                         start_request& each = requests[i];
                         each.count = read_start(each.path, each.buffer, each.expected);
                     }));
}

std::string windows_file_system::resolve(const std::string& path) {
    const handle target = open_target(wide_path(path).c_str(), 0);
    if (!target) return path;
    std::wstring resolved(32'768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(target.get(), resolved.data(),
                                                   static_cast<DWORD>(resolved.size()), VOLUME_NAME_DOS);
    if (length == 0 || length >= resolved.size()) return path;
    resolved.resize(length);
    return text_of_path(resolved);
}

bool windows_file_system::identity(const std::string& path, file_identity& identity) {
    const handle target = open_target(wide_path(path).c_str(), 0);
    BY_HANDLE_FILE_INFORMATION facts;
    if (!target || !GetFileInformationByHandle(target.get(), &facts)) return false;
    identity = identity_of(facts);
    return true;
}

bool windows_file_system::is_recycle_directory(const std::string& path) {
    // At any depth: a volume may be mounted in a folder, and a folder of a share may be a root to its users.
    std::string_view name = path;
    while (!name.empty() && (name.back() == '\\' || name.back() == '/')) name.remove_suffix(1);
    name.remove_prefix(name.find_last_of("\\/") + 1);
    std::wstring units;
    return units_of(name, units) && _wcsicmp(units.c_str(), L"$RECYCLE.BIN") == 0;
}

std::int64_t windows_file_system::read_start(std::string_view path, std::span<std::byte> buffer,
                                             std::size_t expected) {
    return read_windows_start(wide_path(path), buffer, expected);
}

outcome_with<file_reader> windows_file_system::open_file(std::string_view path) {
    return open_windows_reader(wide_path(path));
}

outcome_with<file_writer> windows_file_system::replace_file(const std::string& path) {
    return open_replacing_writer(wide_path(path));
}

outcome_with<file_writer> windows_file_system::overwrite_file(const std::string& path) {
    return open_overwriting_writer(wide_path(path));
}

outcome windows_file_system::put_text(const std::string& path, std::string_view text) {
    return put_windows_text(wide_path(path), text);
}

bool windows_file_system::can_write_into(const std::string& directory) {
    // A trial says more than the rights that are written down.
    std::wstring trial;
    handle file;
    return static_cast<bool>(open_new_file(wide_path(directory + "\\.corvane"), true, trial, file));
}

outcome windows_file_system::make_directory(const std::string& path) {
    outcome made = outcome::success();
    for (std::size_t end = path.find_first_of("\\/", volume_root(path).size());;
         end = path.find_first_of("\\/", end + 1)) {
        if (!CreateDirectoryW(wide_path(path.substr(0, end)).c_str(), nullptr) &&
            GetLastError() != ERROR_ALREADY_EXISTS)
            made = system_failure();
        if (end == std::string::npos) break;
    }
    if (attributes(path).directory) return outcome::success();
    return made ? system_failure(ERROR_DIRECTORY) : made;
}

bool windows_file_system::claim_directory(const std::string& directory) {
    file_identity place;
    if (!identity(directory, place)) return true;
    // By what the folder is, not by how it is written. The object ends with the last process that holds it.
    const std::wstring name =
        L"Global\\corvane.Folder.v" + std::to_wstring(place.device) + L".f" + std::to_wstring(place.index);
    handle claim(CreateMutexW(nullptr, FALSE, name.c_str()));
    if (!claim) return GetLastError() != ERROR_ACCESS_DENIED;  // another user has it
    if (GetLastError() == ERROR_ALREADY_EXISTS) return false;
    claim_ = std::move(claim);
    return true;
}

outcome windows_file_system::remove_file(const std::string& path, const file_facts& expected) {
    // What is looked at is what is deleted: one open file.
    const handle entry = open_entry(wide_path(path).c_str(), FILE_READ_ATTRIBUTES | DELETE);
    FILE_BASIC_INFO facts;
    if (!entry || !GetFileInformationByHandleEx(entry.get(), FileBasicInfo, &facts, sizeof facts))
        return system_failure();
    if (outcome regular = check_regular(entry, facts.FileAttributes); !regular) return regular;
    file_facts told;
    if (!tell_facts(entry, told) || !serials_.find(entry, path, told.identity.device, told.stacked))
        return system_failure();
    if (!same_state(told, expected)) return system_failure(ERROR_FILE_INVALID);
    FILE_DISPOSITION_INFO gone;
    gone.DeleteFile = TRUE;
    if (!SetFileInformationByHandle(entry.get(), FileDispositionInfo, &gone, sizeof gone))
        return system_failure();
    return outcome::success();
}

outcome windows_file_system::remove_data_file(const std::string& path) {
    if (DeleteFileW(wide_path(path).c_str())) return outcome::success();
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return outcome::success();
    return system_failure(error);
}

}  // namespace corvane
