// What the main window shows of a running task: how far it is in words, the file in work, the bar, the button
// that cancels. Used by main_window.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "core/model/main_form.h"
#include "core/tasks/run_progress.h"

class QPushButton;

namespace corvane {

class colour_bar_view;
class elided_label;

class run_row : public QWidget {
  public:
    // `progress` outlives the row; `act` runs a handler of the main form by its name.
    run_row(Tavrel& form, const run_progress& progress, const std::function<void(const std::string&)>& act,
            QWidget* parent);

    // Hides the row where there is nothing to tell.
    void sync();
    QPushButton& cancel() { return *cancel_; }
    int bar_height() const;

  private:
    Tavrel& form_;
    const run_progress& progress_;
    elided_label* words_;
    elided_label* file_name_;
    colour_bar_view* bar_;
    QPushButton* cancel_;
};

}  // namespace corvane
