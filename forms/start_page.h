// What the work area shows while there is nothing to show: the three steps to a result, in plain words. Used
// by main_window.
#pragma once

#include <QWidget>
#include <array>

#include "core/main_form.h"

namespace corvane {

class start_page : public QWidget {
  public:
    start_page(const Tavrel& form, QWidget* parent);

    void sync();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    enum class step_state { waiting, next, done };
    struct step {
        step_state state = step_state::waiting;
        QString note;
        bool operator==(const step&) const = default;
    };

    void paint_step(QPainter& painter, int number, double left, double top, double width,
                    double height) const;

    const Tavrel& form_;
    std::array<step, 3> steps_;
};

}  // namespace corvane
