// The window frmAbout on the screen. Made by front_end.
#pragma once

#include <vector>

#include "forms/child_window.h"
#include "ui_text/about_form.h"

class QLabel;
class QPlainTextEdit;

namespace corvane {

class about_window : public child_window {
  public:
    about_window(Tavrel& main, about_form& form, std::function<void(const std::string&)> act,
                 QWidget* parent);

    void sync(bool tasks_locked) override;

  protected:
    void before_open() override;
    void changeEvent(QEvent* event) override;
    // A double click, or Enter, on a link.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct bound_label {
        QLabel* label;
        control* model;
    };
    struct bound_button {
        QPushButton* button;
        control* model;
    };

    QLabel* make_label(control& model, bool wraps = false);
    QLabel* make_link(control& model);
    QPushButton* make_button(control& model);
    QWidget* make_head();
    QWidget* make_feet();
    void show_icon();
    void colour_labels();

    about_form& form_;
    std::vector<bound_label> labels_;
    std::vector<bound_button> buttons_;
    std::vector<QLabel*> links_;
    QLabel* icon_ = nullptr;
    QPlainTextEdit* libraries_ = nullptr;
};

}  // namespace corvane
