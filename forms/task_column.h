// The column of tasks: one button a row of the task table with picture and label. Used by the main window.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QToolButton;

namespace corvane {

class Tavrel;
class control;

class task_column : public QFrame {
  public:
    // The form outlives the column. `act` runs a handler by name.
    task_column(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  private:
    struct task_button {
        QToolButton* button;
        const control* picture;
        const control* label;
    };

    Tavrel& form_;
    std::vector<task_button> buttons_;
};

}  // namespace corvane
