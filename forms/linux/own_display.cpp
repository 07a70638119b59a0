#include "forms/own_display.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace corvane {

namespace {

bool is_set(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

}  // namespace

bool has_display(std::span<const char* const> arguments) {
    const auto names_platform = [](std::string_view argument) {
        return argument == "-platform" || argument == "--platform";
    };
    if (is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM") ||
        std::any_of(arguments.begin(), arguments.end(), names_platform))
        return true;
    std::fputs("corvane: 没有可用的显示 (DISPLAY 和 WAYLAND_DISPLAY 都未设置)\n", stderr);
    return false;
}

}  // namespace corvane
