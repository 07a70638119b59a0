#include "platform/windows/windows_instance_link.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"

namespace corvane {

namespace {

constexpr wchar_t class_name[] = L"corvane.Instance";
constexpr UINT longest_wait = 2000;  // milliseconds
// What a message is about; paths travel as texts, parted by NUL.
constexpr ULONG_PTR raise_call = 1;
constexpr ULONG_PTR take_call = 2;
// The answer 0 is what a window gives that knows nothing of it.
constexpr LRESULT raised_answer = 1;
constexpr LRESULT first_reception = 10;
constexpr LRESULT too_late = -1;

// The folder by what it is, not by how it is written: two paths of one folder are one instance.
std::wstring window_name(const std::string& program_dir) {
    const handle folder = open_target(wide_path(program_dir).c_str(), 0);
    BY_HANDLE_FILE_INFORMATION facts;
    if (!folder || !GetFileInformationByHandle(folder.get(), &facts)) return {};
    const file_identity place = identity_of(facts);
    return L"v" + std::to_wstring(place.device) + L".f" + std::to_wstring(place.index);
}

std::vector<std::string> directories_of(const COPYDATASTRUCT& message) {
    std::vector<std::string> directories;
    std::string_view rest(static_cast<const char*>(message.lpData), message.cbData);
    while (!rest.empty()) {
        const std::size_t end = rest.find('\0');
        directories.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return directories;
}

LRESULT answer(const instance_services& services, const COPYDATASTRUCT& message) {
    if (message.dwData == raise_call) return services.raise && services.raise() ? raised_answer : 0;
    if (message.dwData != take_call || !services.take) return 0;
    return first_reception + static_cast<LRESULT>(services.take(directories_of(message)));
}

LRESULT CALLBACK handle_message(HWND window, UINT message, WPARAM word, LPARAM data) {
    const auto* services =
        reinterpret_cast<const instance_services*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_COPYDATA || services == nullptr) return DefWindowProcW(window, message, word, data);
    return answer(*services, *reinterpret_cast<const COPYDATASTRUCT*>(data));
}

// What the other one says; 0 where there is none. Whoever has not answered in time has the message all the
// same.
LRESULT ask_other(const std::string& program_dir, ULONG_PTR call, std::string words) {
    const std::wstring name = window_name(program_dir);
    const HWND other =
        name.empty() ? nullptr : FindWindowExW(HWND_MESSAGE, nullptr, class_name, name.c_str());
    if (other == nullptr) return 0;
    // Whoever has the focus may give it away.
    DWORD process = 0;
    GetWindowThreadProcessId(other, &process);
    AllowSetForegroundWindow(process);
    COPYDATASTRUCT message{call, static_cast<DWORD>(words.size()), words.data()};
    DWORD_PTR answered = 0;
    SetLastError(ERROR_SUCCESS);
    if (SendMessageTimeoutW(other, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&message), SMTO_NORMAL,
                            longest_wait, &answered) != 0)
        return static_cast<LRESULT>(answered);
    return GetLastError() == ERROR_TIMEOUT ? too_late : 0;
}

}  // namespace

// The window that is found by the others; it gets its messages within the thread's event loop.
class windows_instance_link::served_window {
  public:
    served_window(const std::wstring& name, instance_services services) : services_(std::move(services)) {
        WNDCLASSW kind{};
        kind.lpfnWndProc = handle_message;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.lpszClassName = class_name;
        RegisterClassW(&kind);  // once a process; the next time says that it is there
        window_ = CreateWindowExW(0, class_name, name.c_str(), 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  kind.hInstance, nullptr);
        if (window_ != nullptr)
            SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&services_));
    }
    ~served_window() {
        if (window_ != nullptr) DestroyWindow(window_);
    }
    served_window(const served_window&) = delete;
    served_window& operator=(const served_window&) = delete;

  private:
    instance_services services_;
    HWND window_ = nullptr;
};

windows_instance_link::windows_instance_link() = default;
windows_instance_link::~windows_instance_link() = default;

void windows_instance_link::serve(const std::string& program_dir, instance_services services) {
    served_.reset();
    if (!services.raise) return;
    const std::wstring name = window_name(program_dir);
    if (!name.empty()) served_ = std::make_unique<served_window>(name, std::move(services));
}

bool windows_instance_link::raise_other(const std::string& program_dir) {
    return ask_other(program_dir, raise_call, {}) == raised_answer;
}

reception windows_instance_link::hand_over(const std::string& program_dir,
                                           const std::vector<std::string>& directories) {
    std::string words;
    for (const std::string& directory : directories) words += directory + '\0';
    const LRESULT answered = ask_other(program_dir, take_call, std::move(words));
    if (answered == too_late) return reception::waits;
    for (const reception what : {reception::taken, reception::waits, reception::refused})
        if (answered == first_reception + static_cast<LRESULT>(what)) return what;
    return reception::none;
}

}  // namespace corvane
