// A whole program with its windows over a disk in memory: what the tests of the windows stand on.
#pragma once

#include <QAction>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/program.h"
#include "forms/front_end.h"
#include "forms/qt_user_interface.h"
#include "platform/machine.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scripted_interface.h"
#include "tests/support/settings_file.h"

namespace corvane {

// The screen with a time of day that stands still once a test has set it.
class dated_interface : public qt_user_interface {
  public:
    std::optional<local_time> date;
    local_time now() override { return date ? *date : qt_user_interface::now(); }
};

struct forms_program {
    // `disk` may be one of its own kind.
    explicit forms_program(std::unique_ptr<memory_file_system> disk = std::make_unique<memory_file_system>());
    ~forms_program();

    // A widget or menu entry of a window by its control's name.
    QWidget* widget(const char* name, QWidget* owner = nullptr);
    QAction* action(const char* name);
    // Counts the runs of a handler in place of what it does.
    int& count_runs(const std::string& handler);
    // Lets all waiting events run.
    void settle();
    // Fills ListView1 with pairs of one directory and shows it.
    void show_pairs(std::int32_t rows);
    QImage picture(QWidget* window);
    // A program folder that has been used before: a start asks and tells nothing.
    void add_used_folder(const std::vector<std::string>& settings_lines = fresh_settings_lines());

    const std::unique_ptr<memory_file_system> own_disk;
    memory_file_system& files;
    recording_shell desktop;
    dated_interface screen;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    scripted_instances instances;
    scripted_attention notice;
    program corvane;
    Tavrel& form;
    front_end windows;

  private:
    std::map<std::string, int> runs_;
};

// Palettes of a light and a dark desktop.
QPalette light_palette();
QPalette dark_palette();

}  // namespace corvane
