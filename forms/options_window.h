// The window Form_no_dire on the screen: the list of directories beside the options of a run, below them the
// common types beside the two lists of types, at the bottom the buttons. Made by front_end.
#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "forms/child_window.h"
#include "search/options_form.h"

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QPushButton;

namespace corvane {

class option_list_view;

class options_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    options_window(Tavrel& main, options_form& form, std::function<void(const std::string&)> act,
                   QWidget* parent);

    void sync(bool tasks_locked) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void before_open() override;

  private:
    struct bound_check {
        QCheckBox* box;
        control* model;
    };
    struct bound_button {
        QPushButton* button;
        control* model;
    };
    struct bound_list {
        option_list_view* view;
        const char* help;  // handler of its help entry
    };

    option_list_view* make_list(list_box& box, bool with_check_marks, const char* help);
    QWidget* make_directories();
    QWidget* make_checks();
    QWidget* make_types();
    QWidget* make_buttons();
    QPushButton* make_button(control& model, char letter, QWidget* parent);
    void act(const std::string& handler) { act_(form_.name() + "." + handler); }

    options_form& form_;
    std::vector<bound_list> lists_;
    std::vector<bound_check> checks_;
    std::vector<bound_button> buttons_;
    QTimer timer_;
};

}  // namespace corvane
