#include "reports/text_viewer.h"

#include "core/model/main_form.h"

namespace corvane {

namespace {

// The first one that is installed is taken.
constexpr const char* windows_viewers[] = {"notepad"};
constexpr const char* desktop_viewers[] = {"gnome-text-editor", "gedit",   "kate",      "kwrite",
                                           "mousepad",          "pluma",   "xed",       "featherpad",
                                           "leafpad",           "l3afpad", "notepadqq", "geany"};

template <std::size_t Count>
std::string find_viewer(shell& desktop, const char* const (&names)[Count]) {
    for (const char* name : names)
        if (std::string found = desktop.find_program(name); !found.empty()) return found;
    return {};
}

}  // namespace

// What ends a process takes a handle, and what was kept is the number of the launch: the old viewer is not
// ended. That is the settled behaviour; it may still show the earlier file.
void forget_viewer(Tavrel& form) {
    if (!form.state.export_viewer_recorded) return;
    form.state.export_viewer.reset();
    form.state.export_viewer_recorded = 0;
}

void show_in_viewer(Tavrel& form, const std::string& path) {
    shell& desktop = form.outside.desktop;
    const std::string viewer = form.outside.files.separator() == '\\' ? find_viewer(desktop, windows_viewers)
                                                                      : find_viewer(desktop, desktop_viewers);
    if (viewer.empty()) {
        const outcome opened = desktop.open_document(path);
        if (!opened) form.complain(opened.reason);
        return;
    }
    outcome_with<started_process> started = desktop.start_process({viewer, path});
    if (!started) return form.complain(started.reason);
    form.state.export_viewer = std::move(started.object);
    form.state.export_viewer_recorded = !form.state.export_viewer->has_ended(0);
}

}  // namespace corvane
