#include "platform/windows/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/windows/windows_entries.h"

namespace corvane {

namespace {

// No call takes more at once.
constexpr std::size_t longest_block = std::size_t{1} << 30;

OVERLAPPED place_in_file(std::int64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

// -1 on an error, less than the buffer only at the end of the file. `position` is where the file stands, as
// the system keeps it: a read that goes on from there costs less than one that names its place.
std::int64_t read_some(const handle& file, std::int64_t& position, std::int64_t offset,
                       std::span<std::byte> buffer, std::size_t enough) {
    constexpr std::int64_t unknown = -1;
    std::size_t filled = 0;
    while (filled < buffer.size() && filled != enough) {
        const std::int64_t at = offset + static_cast<std::int64_t>(filled);
        OVERLAPPED place = place_in_file(at);
        const auto wanted = static_cast<DWORD>(std::min(buffer.size() - filled, longest_block));
        DWORD count = 0;
        OVERLAPPED* const named = std::exchange(position, unknown) == at ? nullptr : &place;
        if (!ReadFile(file.get(), buffer.data() + filled, wanted, &count, named)) {
            if (GetLastError() == ERROR_HANDLE_EOF) break;
            return -1;
        }
        if (count == 0) break;
        position = at + count;
        filled += count;
    }
    return static_cast<std::int64_t>(filled);
}

// Opens a regular file; what is a directory or a device the system refuses or is refused here.
outcome open_regular(const std::wstring& path, DWORD access, DWORD sharing, DWORD how, DWORD flags,
                     handle& file) {
    handle opened(CreateFileW(path.c_str(), access, sharing, nullptr, how, flags, nullptr));
    if (!opened) return system_failure();
    if (GetFileType(opened.get()) != FILE_TYPE_DISK) return system_failure(ERROR_INVALID_PARAMETER);
    file = std::move(opened);
    return outcome::success();
}

class windows_reader : public file_reader {
  public:
    explicit windows_reader(handle file) : file_(std::move(file)) {}

    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        return read_some(file_, position_, offset, buffer, buffer.size());
    }
    // Windows reads ahead by itself as soon as two reads follow each other, and knows no other hint for a
    // file that is open.
    void will_read(std::int64_t) override {}
    void fetch(std::int64_t, std::int64_t) override {}

  private:
    handle file_;
    std::int64_t position_ = 0;
};

outcome write_all(const handle& file, std::int64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        OVERLAPPED place = place_in_file(offset);
        DWORD count = 0;
        if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), longest_block)),
                       &count, &place))
            return system_failure();
        if (count == 0) return system_failure(ERROR_DISK_FULL);
        bytes.remove_prefix(count);
        offset += count;
    }
    return outcome::success();
}

class windows_writer : public file_writer {
  public:
    // With a final path the file is a temporary one and is renamed at commit.
    windows_writer(handle file, std::wstring path, std::wstring final_path)
        : file_(std::move(file)), path_(std::move(path)), final_path_(std::move(final_path)) {}

    ~windows_writer() override {
        if (!file_) return;
        file_.close();
        if (!final_path_.empty()) DeleteFileW(path_.c_str());
    }

    outcome write(std::string_view bytes) override {
        is_settled_ = false;
        outcome written = write_all(file_, end_, bytes);
        if (written) end_ += static_cast<std::int64_t>(bytes.size());
        return written;
    }

    outcome write_at(std::int64_t offset, std::string_view bytes) override {
        is_settled_ = false;
        return write_all(file_, offset, bytes);
    }

    void settle() override {
        if (final_path_.empty()) return;
        const outcome done = make_durable();
        if (settled_) settled_ = done;
        is_settled_ = true;
    }

    outcome commit() override {
        const bool replaces = !final_path_.empty();
        if (!settled_) return settled_;
        if (replaces && !is_settled_)
            if (outcome failed = make_durable(); !failed) return failed;
        if (!file_.close() ||
            (replaces && !MoveFileExW(path_.c_str(), final_path_.c_str(), MOVEFILE_REPLACE_EXISTING))) {
            outcome failed = system_failure();
            if (replaces) DeleteFileW(path_.c_str());
            return failed;
        }
        return outcome::success();
    }

  private:
    outcome make_durable() { return FlushFileBuffers(file_.get()) ? outcome::success() : system_failure(); }

    handle file_;
    std::wstring path_;
    std::wstring final_path_;
    std::int64_t end_ = 0;
    outcome settled_ = outcome::success();
    bool is_settled_ = false;  // nothing has been written since
};

// What the path leads to; the path itself where there is nothing.
std::wstring final_path_of(const std::wstring& path) {
    const handle target = open_target(path.c_str(), 0);
    if (!target) return path;
    std::wstring resolved(32'768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(target.get(), resolved.data(),
                                                   static_cast<DWORD>(resolved.size()), VOLUME_NAME_DOS);
    if (length == 0 || length >= resolved.size()) return path;
    resolved.resize(length);
    return resolved;
}

}  // namespace

outcome_with<file_reader> open_windows_reader(const std::wstring& path) {
    handle file;
    outcome found = open_regular(path, GENERIC_READ, share_all, OPEN_EXISTING, 0, file);
    if (!found) return found;
    return std::make_unique<windows_reader>(std::move(file));
}

std::int64_t read_windows_start(const std::wstring& path, std::span<std::byte> buffer, std::size_t expected) {
    const handle file(CreateFileW(path.c_str(), GENERIC_READ, share_all, nullptr, OPEN_EXISTING, 0, nullptr));
    std::int64_t position = 0;
    return file ? read_some(file, position, 0, buffer, expected) : -1;
}

outcome open_new_file(const std::wstring& beside, bool goes_with_handle, std::wstring& path, handle& file) {
    // A text that no path maps to would make a file of the current folder.
    if (beside.empty()) return system_failure(ERROR_PATH_NOT_FOUND);
    // Two programs at work meet in no name; what an earlier run has left is passed over.
    const DWORD flags = goes_with_handle ? FILE_FLAG_DELETE_ON_CLOSE : FILE_ATTRIBUTE_NORMAL;
    for (unsigned attempt = 0; attempt < 1000; ++attempt) {
        path = beside + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(attempt);
        file = handle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, share_all, nullptr,
                                  CREATE_NEW, flags, nullptr));
        if (file) return outcome::success();
        if (GetLastError() != ERROR_FILE_EXISTS && GetLastError() != ERROR_ALREADY_EXISTS) break;
    }
    return system_failure();
}

outcome_with<file_writer> open_replacing_writer(const std::wstring& path) {
    if (path.empty()) return system_failure(ERROR_PATH_NOT_FOUND);
    // A link stays a link: what it leads to is replaced.
    std::wstring final_path = final_path_of(path);
    const DWORD attributes = GetFileAttributesW(final_path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && has_attribute(attributes, FILE_ATTRIBUTE_DIRECTORY))
        return system_failure(ERROR_ACCESS_DENIED);
    // Not every system keeps such a file from being renamed over.
    if (attributes != INVALID_FILE_ATTRIBUTES && has_attribute(attributes, FILE_ATTRIBUTE_READONLY))
        return system_failure(ERROR_ACCESS_DENIED);
    std::wstring temporary;
    handle file;
    outcome made = open_new_file(final_path, false, temporary, file);
    if (!made) return made;
    if (attributes != INVALID_FILE_ATTRIBUTES && has_attribute(attributes, FILE_ATTRIBUTE_HIDDEN))
        SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_HIDDEN);
    return std::make_unique<windows_writer>(std::move(file), std::move(temporary), std::move(final_path));
}

outcome_with<file_writer> open_overwriting_writer(const std::wstring& path) {
    handle file;
    outcome found = open_regular(path, GENERIC_WRITE, share_all, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, file);
    if (!found) return found;
    if (!SetEndOfFile(file.get())) return system_failure();
    return std::make_unique<windows_writer>(std::move(file), path, std::wstring());
}

outcome put_windows_text(const std::wstring& path, std::string_view text) {
    handle file;
    outcome found = open_regular(path, GENERIC_WRITE, share_all, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, file);
    if (!found) return found;
    outcome written = write_all(file, 0, text);
    if (!written) return written;
    LARGE_INTEGER end;
    end.QuadPart = static_cast<LONGLONG>(text.size());
    if (!SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN) || !SetEndOfFile(file.get()) || !file.close())
        return system_failure();
    return outcome::success();
}

}  // namespace corvane
