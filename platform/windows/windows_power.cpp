#include "platform/windows/windows_power.h"

#include <windows.h>

#include "platform/windows/handle.h"

namespace corvane {

namespace {

constexpr DWORD reason =
    SHTDN_REASON_MAJOR_APPLICATION | SHTDN_REASON_MINOR_MAINTENANCE | SHTDN_REASON_FLAG_PLANNED;

outcome end_session(UINT how) {
    if (how != EWX_LOGOFF)
        if (outcome allowed = take_shutdown_right(); !allowed) return allowed;
    return ExitWindowsEx(how | EWX_FORCEIFHUNG, reason) ? outcome::success() : system_failure();
}

}  // namespace

outcome take_shutdown_right() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened))
        return system_failure();
    const handle token(opened);
    TOKEN_PRIVILEGES wanted{};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (!LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &wanted.Privileges[0].Luid))
        return system_failure();
    // The call succeeds without giving anything; what it left out it says aside.
    if (!AdjustTokenPrivileges(token.get(), FALSE, &wanted, 0, nullptr, nullptr)) return system_failure();
    return GetLastError() == ERROR_SUCCESS ? outcome::success() : system_failure();
}

outcome windows_power::log_off() {
    return end_session(EWX_LOGOFF);
}

outcome windows_power::reboot() {
    return end_session(EWX_REBOOT);
}

outcome windows_power::power_off() {
    return end_session(EWX_POWEROFF);
}

}  // namespace corvane
