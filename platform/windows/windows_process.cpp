#include "platform/windows/windows_process.h"

#include <windows.h>

#include <cstddef>
#include <memory>
#include <utility>

#include "platform/windows/handle.h"
#include "platform/windows/wide_path.h"
#include "platform/windows/windows_names.h"

namespace corvane {

namespace {

std::wstring variable(const wchar_t* name) {
    std::wstring value(32'768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

bool is_file(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool is_absolute(std::wstring_view folder) {
    return folder.size() >= 3 && ((folder[1] == L':' && folder[2] == L'\\') || folder.starts_with(L"\\\\"));
}

std::vector<std::wstring> program_folders() {
    std::vector<std::wstring> folders;
    const std::wstring path = variable(L"PATH");
    std::wstring_view rest(path);
    while (!rest.empty()) {
        const std::size_t end = rest.find(L';');
        const std::wstring_view folder = rest.substr(0, end);
        rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + 1);
        if (is_absolute(folder)) folders.emplace_back(folder);
    }
    for (const wchar_t* const place : {L"ProgramW6432", L"ProgramFiles", L"ProgramFiles(x86)"})
        for (const wchar_t* const tool : {L"\\7-Zip", L"\\WinRAR"})
            if (const std::wstring folder = variable(place); is_absolute(folder))
                folders.push_back(folder + tool);
    return folders;
}

// Quoted where it must be, as the C library takes it apart: a backslash counts only before a quote.
void append_argument(std::wstring& line, std::wstring_view argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == std::wstring_view::npos) {
        line += argument;
        return;
    }
    line += L'"';
    for (std::size_t at = 0; at < argument.size(); ++at) {
        std::size_t slashes = 0;
        for (; at < argument.size() && argument[at] == L'\\'; ++at) ++slashes;
        const bool ends = at == argument.size();
        const bool is_quote = !ends && argument[at] == L'"';
        line.append(ends || is_quote ? 2 * slashes : slashes, L'\\');
        if (ends) break;
        if (is_quote) line += L'\\';
        line += argument[at];
    }
    line += L'"';
}

class windows_process : public started_process {
  public:
    explicit windows_process(handle process) : process_(std::move(process)) {}
    bool has_ended(double seconds) override {
        return WaitForSingleObject(process_.get(), static_cast<DWORD>(seconds * 1000)) == WAIT_OBJECT_0;
    }

  private:
    handle process_;
};

outcome cannot_start() {
    outcome failed = system_failure();
    failed.reason = "程序不能启动。 " + failed.reason;
    return failed;
}

// Reads nothing, and drops what is written to it.
handle open_nothing(bool for_writing) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return handle(CreateFileW(L"NUL", for_writing ? GENERIC_WRITE : GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
}

}  // namespace

std::wstring command_line_of(const std::vector<std::wstring>& arguments) {
    std::wstring line;
    for (const std::wstring& argument : arguments) {
        if (!line.empty()) line += L' ';
        append_argument(line, argument);
    }
    return line;
}

std::string find_windows_program(const std::string& name) {
    std::wstring units;
    if (!units_of(name, units) || units.empty() || units.find_first_of(L"\\/:") != std::wstring::npos)
        return {};
    for (std::wstring folder : program_folders()) {
        if (folder.back() != L'\\') folder += L'\\';
        if (const std::wstring program = folder + units + L".exe"; is_file(program)) return text_of(program);
    }
    return {};
}

std::wstring system_program(std::wstring_view name) {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetWindowsDirectoryW(folder.data(), MAX_PATH));
    return folder + L"\\" + std::wstring(name);
}

outcome start_line(const std::wstring& program, std::wstring line) {
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                        &started))
        return cannot_start();
    const handle process(started.hProcess), thread(started.hThread);
    return outcome::success();
}

outcome_with<started_process> start_windows_process(const std::vector<std::string>& arguments) {
    std::vector<std::wstring> words;
    words.reserve(arguments.size());
    for (const std::string& argument : arguments) {
        std::wstring units;
        if (!units_of(argument, units)) return system_failure(ERROR_INVALID_PARAMETER);
        words.push_back(std::move(units));
    }
    if (words.empty() || wide_path(arguments.front()).empty()) return system_failure(ERROR_FILE_NOT_FOUND);
    const std::wstring program = words.front();
    std::wstring line = command_line_of(words);
    const handle input = open_nothing(false), output = open_nothing(true);
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESTDHANDLES;
    how.hStdInput = input.get();
    how.hStdOutput = how.hStdError = output.get();
    PROCESS_INFORMATION started{};
    // No window, and an interrupt is not for it.
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                        CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP, nullptr, nullptr, &how, &started))
        return cannot_start();
    const handle thread(started.hThread);
    return std::make_unique<windows_process>(handle(started.hProcess));
}

}  // namespace corvane
