#include "platform/windows/windows_keys.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/windows/handle.h"

namespace corvane {

namespace {

struct named_key {
    std::string_view name;
    unsigned short code;
};
constexpr named_key named_keys[] = {
    {"ENTER", VK_RETURN}, {"TAB", VK_TAB},       {"ESC", VK_ESCAPE},     {"DELETE", VK_DELETE},
    {"DEL", VK_DELETE},   {"HOME", VK_HOME},     {"END", VK_END},        {"PGUP", VK_PRIOR},
    {"PGDN", VK_NEXT},    {"UP", VK_UP},         {"DOWN", VK_DOWN},      {"LEFT", VK_LEFT},
    {"RIGHT", VK_RIGHT},  {"INSERT", VK_INSERT}, {"BACKSPACE", VK_BACK}, {"F1", VK_F1},
    {"F2", VK_F2},        {"F3", VK_F3},         {"F4", VK_F4},          {"F5", VK_F5},
    {"F6", VK_F6},        {"F7", VK_F7},         {"F8", VK_F8},          {"F9", VK_F9},
    {"F10", VK_F10},      {"F11", VK_F11},       {"F12", VK_F12}};

unsigned short modifier(char sign) {
    return sign == '+' ? VK_SHIFT : sign == '^' ? VK_CONTROL : sign == '%' ? VK_MENU : 0;
}

// The key at the start of `keys`, which is taken away; 0 for none.
unsigned short take_key(std::string_view& keys) {
    if (keys.front() != '{') {
        const char sign = keys.front();
        keys.remove_prefix(1);
        if (sign >= 'a' && sign <= 'z') return static_cast<unsigned short>(sign - 'a' + 'A');
        return (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9') || sign == ' '
                   ? static_cast<unsigned short>(sign)
                   : 0;
    }
    const std::size_t end = keys.find('}');
    if (end == std::string_view::npos) return 0;
    const std::string_view name = keys.substr(1, end - 1);
    keys.remove_prefix(end + 1);
    for (const named_key& each : named_keys)
        if (name == each.name) return each.code;
    return 0;
}

}  // namespace

outcome put_into_clipboard(const std::wstring& text) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory == nullptr) return system_failure();
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    outcome done = outcome::success();
    if (!OpenClipboard(nullptr)) {
        done = system_failure();
    } else {
        // What the clipboard has taken is its own.
        if (!EmptyClipboard() || SetClipboardData(CF_UNICODETEXT, memory) == nullptr) done = system_failure();
        CloseClipboard();
    }
    if (!done) GlobalFree(memory);
    return done;
}

std::vector<key_stroke> strokes_of(std::string_view keys) {
    std::vector<key_stroke> strokes;
    while (!keys.empty()) {
        std::vector<unsigned short> held;
        while (!keys.empty() && modifier(keys.front()) != 0) {
            held.push_back(modifier(keys.front()));
            keys.remove_prefix(1);
        }
        const unsigned short key = keys.empty() ? static_cast<unsigned short>(0) : take_key(keys);
        if (key == 0) return {};
        for (const unsigned short each : held) strokes.push_back({each, false});
        strokes.push_back({key, false});
        strokes.push_back({key, true});
        for (std::size_t i = held.size(); i-- > 0;) strokes.push_back({held[i], true});
    }
    return strokes;
}

outcome type_keys(std::string_view keys) {
    const std::vector<key_stroke> strokes = strokes_of(keys);
    if (strokes.empty()) return system_failure(ERROR_INVALID_PARAMETER);
    std::vector<INPUT> inputs;
    for (const key_stroke& each : strokes) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = each.code;
        input.ki.dwFlags = each.released ? KEYEVENTF_KEYUP : 0;
        inputs.push_back(input);
    }
    const auto count = static_cast<UINT>(inputs.size());
    return SendInput(count, inputs.data(), sizeof(INPUT)) == count ? outcome::success() : system_failure();
}

}  // namespace corvane
