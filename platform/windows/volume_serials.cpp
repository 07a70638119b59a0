#include "platform/windows/volume_serials.h"

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

constexpr std::chrono::seconds believed{1};  // another disk may take the place
constexpr std::size_t most_answers = 100'000;

bool is_remote_file(const handle& file) {
    FILE_REMOTE_PROTOCOL_INFO told;
    return GetFileInformationByHandleEx(file.get(), FileRemoteProtocolInfo, &told, sizeof told) != 0;
}

}  // namespace

bool is_on_network(std::string_view path) {
    const std::string_view root = volume_root(path);
    return root.starts_with("\\\\") || GetDriveTypeW(wide(root).c_str()) == DRIVE_REMOTE;
}

bool volume_serials::find(const handle& file, std::string_view path, std::uint64_t& serial, bool& is_remote) {
    const std::string_view directory = directory_of(path);
    const clock::time_point now = clock::now();
    {
        const std::lock_guard lock(guard_);
        const auto known = answers_.find(directory);
        if (known != answers_.end() && now - known->second.asked < believed) {
            serial = known->second.serial;
            is_remote = known->second.is_remote;
            return true;
        }
    }
    BY_HANDLE_FILE_INFORMATION facts;
    if (!GetFileInformationByHandle(file.get(), &facts)) return false;
    serial = facts.dwVolumeSerialNumber;
    is_remote = is_on_network(path) || is_remote_file(file);
    const std::lock_guard lock(guard_);
    if (answers_.size() >= most_answers) answers_.clear();
    answers_.insert_or_assign(std::string(directory), answer{serial, is_remote, now});
    return true;
}

}  // namespace corvane
