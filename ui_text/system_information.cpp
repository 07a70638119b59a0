#include "ui_text/system_information.h"

#include <string>
#include <vector>

#include "core/model/main_form.h"

namespace corvane {

namespace {

// A tool by the name that it is started by, and what it is told to show.
struct information_tool {
    const char* name;
    const char* page;  // empty: it shows nothing else
};

constexpr information_tool tools[] = {
    {"msinfo32", ""},
    {"hardinfo2", ""},
    {"hardinfo", ""},
    {"kinfocenter", ""},
    {"gnome-control-center", "info-overview"},
};

// The command line of the tool; empty where the machine has none.
std::vector<std::string> find_tool(shell& desktop) {
    for (const information_tool& tool : tools) {
        const std::string path = desktop.find_program(tool.name);
        if (path.empty()) continue;
        std::vector<std::string> arguments{path};
        if (*tool.page != '\0') arguments.emplace_back(tool.page);
        return arguments;
    }
    return {};
}

}  // namespace

void StartSysInfo(Tavrel& form) {
    shell& desktop = form.outside.desktop;
    const std::vector<std::string> arguments = find_tool(desktop);
    if (arguments.empty() || !desktop.start_process(arguments)) form.complain("此时系统信息不可用");
}

}  // namespace corvane
