// The window sleep_music on the screen: on the left what happens and when, on the right the times with the
// countdown, at the bottom the buttons. Made by front_end.
#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "forms/child_window.h"
#include "power/sleep_form.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace corvane {

class colour_bar_view;

class sleep_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    sleep_window(Tavrel& main, sleep_form& form, std::function<void(const std::string&)> act,
                 QWidget* parent);

    void sync(bool tasks_locked) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void before_open() override;

  private:
    struct bound_option {
        QRadioButton* button;
        control* model;
    };
    struct bound_field {
        QLineEdit* edit;
        control* model;
        QString shown;  // what the model said last; what is being typed is left alone
    };
    struct bound_button {
        QPushButton* button;
        control* model;
    };
    struct bound_label {
        QLabel* label;
        control* model;
    };
    struct bound_arrows {
        QWidget* arrows;
        control* model;
    };

    QGroupBox* make_options(const char* frame, const std::vector<control*>& options);
    QWidget* make_times();
    QWidget* make_buttons();
    QLabel* make_label(const char* name, const QString& letter = {}, QWidget* buddy = nullptr);
    QLineEdit* make_field(control& model, int digits);
    QWidget* make_arrows(range_control& model);
    QPushButton* make_button(control& model, char letter);
    void take_over(bound_field& field);
    void sync_fields();
    void act(const std::string& handler) { act_(form_.name() + "." + handler); }

    sleep_form& form_;
    std::vector<bound_option> options_;
    std::vector<bound_field> fields_;
    std::vector<bound_button> buttons_;
    std::vector<bound_label> labels_;
    std::vector<bound_arrows> arrows_;
    colour_bar_view* bar_ = nullptr;
    QTimer timer_;
};

}  // namespace corvane
