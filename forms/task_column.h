// The column of tasks at the left of the main window: a row for each picture of the task table. Used by
// main_window.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/model/main_form.h"

namespace corvane {

class task_button;

class task_column : public QWidget {
  public:
    // `act` runs a handler of the main form by its name; `hovered` brings the tip up to date.
    task_column(Tavrel& form, const std::function<void(const std::string&)>& act,
                std::function<void()> hovered, QWidget* parent);

    void sync();
    // The pictures' places on the screen become their resting places in the model.
    void take_places();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct row {
        control* picture;
        control* label;
        task_button* button;
        int number;  // of Picture1 to Picture8; 0: the pointer does nothing to it
    };

    void watch_pointer(const row& task);
    void show_shifts();

    Tavrel& form_;
    std::function<void()> hovered_;
    std::vector<row> rows_;
    std::vector<QWidget*> separators_;
};

// The picture of the step that comes next by itself, by what the run state holds already; empty where it is
// up to the user to mark something.
std::string next_step(const Tavrel& form);

}  // namespace corvane
