#include "core/tasks/help.h"

#include <string>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

void open(Tavrel& form, const std::string& path) {
    const outcome result = form.outside.desktop.open_document(path);
    if (!result) form.complain(result.reason);
}

}  // namespace

void open_beside_program(Tavrel& form, const std::string& name) {
    open(form, form.data_path(name));
}

void open_notes(Tavrel& form) {
    const std::string path = form.data_path(data_file::notes);
    if (!form.outside.files.attributes(path).exists) {
        line_writer writer(form.outside.files, path);
        if (!writer.finish()) return form.complain(path + "\r\n" + writer.error());
    }
    open_beside_program(form, data_file::notes);
}

void open_manual(Tavrel& form) {
    open(form, form.state.shared_dir + "帮助" + form.outside.files.separator() + "Corvane帮助.htm");
}

void open_topic(Tavrel& form, int topic) {
    std::string digits = std::to_string(topic);
    if (digits.size() < 2) digits.insert(0, 1, '0');
    const outcome result = form.outside.desktop.open_help_topic(form.state.shared_dir + data_file::help,
                                                                "aux" + digits + "_Corvane帮助_Link.htm");
    if (!result) form.complain(result.reason);
}

bool help_mode_opens(Tavrel& form, int topic) {
    if (form.mouse_pointer != help_pointer) return false;
    open_topic(form, topic);
    return true;
}

}  // namespace corvane
