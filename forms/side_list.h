// List1 beside the work area, below a heading that says what its rows are, with a way to close it. Used by
// main_window.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "core/model/main_form.h"

class QLabel;

namespace corvane {

class list_box_view;

class side_list : public QWidget {
  public:
    // `act` runs a handler of the main form by its name.
    side_list(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    // True while there is something to show.
    bool sync();

  protected:
    // Escape closes it.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Tavrel& form_;
    std::function<void(const std::string&)> act_;
    QLabel* heading_;
    list_box_view* rows_;
};

}  // namespace corvane
