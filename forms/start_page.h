// What the work area shows while there is nothing to show: the three steps to a result, in plain words. Used
// by main_window.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "core/model/main_form.h"

namespace corvane {

class start_page : public QWidget {
  public:
    // `act` runs a handler of the main form by its name: a click on a step starts its task.
    start_page(const Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    enum class step_state { waiting, next, done };
    struct step {
        step_state state = step_state::waiting;
        QString note;
        bool operator==(const step&) const = default;
    };

    struct page_places {
        QRectF title;
        QRectF subtitle;
        std::array<QRectF, 3> cards;
        QRectF closing;
    };

    page_places places() const;
    // Index of the step under a point whose task can be started; -1 for none.
    int step_at(QPointF point) const;
    void paint_step(QPainter& painter, std::size_t at, const QRectF& card) const;
    void set_hovered(int at);

    const Tavrel& form_;
    std::function<void(const std::string&)> act_;
    std::array<step, 3> steps_;
    int hovered_ = -1;
};

}  // namespace corvane
