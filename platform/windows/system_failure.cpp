#include <cwchar>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/windows/handle.h"
#include "platform/windows/windows_names.h"

namespace corvane {

outcome system_failure(DWORD error) {
    wchar_t words[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        error, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    std::wstring_view said(words, length);
    while (!said.empty() && (said.back() == L'\r' || said.back() == L'\n' || said.back() == L' '))
        said.remove_suffix(1);
    outcome failed = outcome::failure(said.empty() ? "Windows: " + std::to_string(error) : narrow(said));
    failed.number = static_cast<int>(error);
    return failed;
}

}  // namespace corvane
