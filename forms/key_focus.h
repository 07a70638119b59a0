// Where the keys go when a task locks, hides and shows the parts of the main window. The toolkit hands the
// focus of a part that goes on to the next one, which may be a task that deletes. Used by main_window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QPushButton;

namespace corvane {

class list_table;

class key_focus : public QObject {
  public:
    // On `parking` keys do nothing. Arrows do not leave `cancel`.
    key_focus(QWidget& parking, list_table& list, QPushButton& cancel);

    // Around each copy of the models to the widgets.
    void before_copy();
    void after_copy(bool tasks_locked, bool task_runs);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool can_keep(const QWidget* widget) const;
    void give_back();

    QWidget& parking_;
    list_table& list_;
    QPushButton& cancel_;
    QPointer<QWidget> had_;   // the focus before the copy
    QPointer<QWidget> home_;  // before the task
    bool offered_ = false;    // the cancel button
    bool locked_ = false;
};

}  // namespace corvane
