// The window tree_dir on the screen: what is written at the left, the lines, the suffixes or a month to pick
// a day from at the right, at the bottom the progress and the buttons. Made by front_end.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/child_window.h"
#include "reports/tree_form.h"

class QAbstractButton;
class QBoxLayout;
class QCalendarWidget;
class QGridLayout;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace corvane {

class list_box_view;
class suffix_view;

class tree_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    tree_window(Tavrel& main, tree_form& form, std::function<void(const std::string&)> act, QWidget* parent);

    // With `tasks_locked`, nothing that reads or writes the file list starts.
    void sync(bool tasks_locked) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void before_open() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct bound_field {
        QLineEdit* field;
        control* model;
    };
    struct bound_mark {
        QAbstractButton* button;
        control* model;
    };
    struct bound_button {
        QPushButton* button;
        const control* model;
        bool waits_for_task;
    };

    QWidget* make_settings();
    QWidget* make_lists();
    QWidget* make_buttons();
    QWidget* make_bounds(std::size_t check, std::size_t first, const char* words, const char* unit);
    QLineEdit* make_field(std::size_t number);
    QAbstractButton* make_mark(QAbstractButton* button, control& model, const char* key);
    QPushButton* make_button(control& model, const QString& words, bool waits_for_task);
    void sync_month();
    void colour_month();
    void act(const std::string& handler) { act_(form_.name() + "." + handler); }

    tree_form& form_;
    std::vector<bound_field> fields_;
    std::vector<bound_mark> marks_;
    std::vector<bound_button> buttons_;
    list_box_view* lines_ = nullptr;
    suffix_view* suffixes_ = nullptr;
    QCalendarWidget* month_ = nullptr;
    QProgressBar* progress_ = nullptr;
};

}  // namespace corvane
