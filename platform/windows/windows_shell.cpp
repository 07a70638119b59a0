#include "platform/windows/windows_shell.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/com_object.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide_path.h"
#include "platform/windows/windows_keys.h"
#include "platform/windows/windows_names.h"
#include "platform/windows/windows_process.h"
#include "platform/windows/windows_recycle.h"

namespace corvane {

namespace {

bool is_web_address(const std::string& path) {
    return path.starts_with("https://") || path.starts_with("http://");
}

// A text that no path maps to is none here either: it could be the name of a program.
std::wstring shell_target(const std::string& path) {
    return is_web_address(path) ? wide(path) : shell_path(path);
}

outcome execute(const wchar_t* verb, const std::wstring& target, ULONG mask, const char* lacks) {
    if (target.empty()) return system_failure(ERROR_PATH_NOT_FOUND);
    const com_use com;
    SHELLEXECUTEINFOW asked{};
    asked.cbSize = sizeof asked;
    asked.fMask = mask | SEE_MASK_FLAG_NO_UI;
    asked.lpVerb = verb;
    asked.lpFile = target.c_str();
    asked.nShow = SW_SHOW;
    if (ShellExecuteExW(&asked)) return outcome::success();
    const DWORD error = GetLastError();
    outcome failed = system_failure(error);
    failed.lacking = error == ERROR_NO_ASSOCIATION;
    failed.reason = std::string(lacks) + ' ' + failed.reason;
    return failed;
}

}  // namespace

outcome windows_shell::recycle(const std::string& path) {
    return move_to_bin({&path, 1}).front();
}

outcome windows_shell::open_document(const std::string& path) {
    return execute(L"open", shell_target(path), 0, "没有可以打开它的程序。");
}

outcome windows_shell::show_in_file_manager(const std::string& path) {
    const std::wstring target = shell_target(path);
    if (target.empty()) return system_failure(ERROR_PATH_NOT_FOUND);
    // Explorer reads its command line itself and wants quotes around the path alone. No path holds one.
    return start_line(system_program(L"explorer.exe"), L"explorer.exe /select,\"" + target + L"\"");
}

outcome windows_shell::show_properties(const std::string& path) {
    return execute(L"properties", shell_target(path), SEE_MASK_INVOKEIDLIST, "没有文件管理器可以显示属性。");
}

outcome windows_shell::open_power_settings() {
    return execute(L"open", L"powercfg.cpl", 0, "没有可以打开的电源设置程序。");
}

std::string windows_shell::find_program(const std::string& name) {
    return find_windows_program(name);
}

outcome_with<started_process> windows_shell::start_process(const std::vector<std::string>& arguments) {
    return start_windows_process(arguments);
}

outcome windows_shell::set_clipboard(const std::string& text) {
    return put_into_clipboard(wide(text));
}

outcome windows_shell::send_keys(const std::string& keys) {
    return type_keys(keys);
}

outcome windows_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    const std::string page = help_file.substr(0, help_file.rfind('\\') + 1) + "help\\zh_CN\\" + topic;
    if (GetFileAttributesW(wide_path(page).c_str()) == INVALID_FILE_ATTRIBUTES)
        return outcome::failure(page + "  不存在");
    return open_document(page);
}

}  // namespace corvane
