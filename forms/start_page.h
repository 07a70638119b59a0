// What the work area shows while there is nothing to show: the three steps to a result in plain words, the
// result of the last run, and, while files are searched, how many there are. Used by main_window.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/model/main_form.h"
#include "core/tasks/run_progress.h"

namespace corvane {

class start_page : public QWidget {
  public:
    // `act` runs a handler of the main form by its name: a click on a step starts its task.
    // `progress` outlives the page.
    start_page(const Tavrel& form, const run_progress& progress, std::function<void(const std::string&)> act,
               QWidget* parent);

    void sync();

    QSize sizeHint() const override { return minimumSizeHint(); }
    // What the words take; the page scrolls where there is less.
    QSize minimumSizeHint() const override;

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
        std::vector<QRectF> cards;  // as many as there are steps
        QRectF closing;
    };

    page_places places() const;
    // Index of the step under a point whose task can be started; -1 for none.
    int step_at(QPointF point) const;
    void paint_search(QPainter& painter) const;
    void paint_step(QPainter& painter, std::size_t at, const QRectF& card) const;
    void set_hovered(int at);

    const Tavrel& form_;
    std::function<void(const std::string&)> act_;
    const run_progress& progress_;
    std::vector<step> steps_;
    QString found_;        // while files are searched
    double moved_to_ = 0;  // seconds: where the bar of a search stands
    int hovered_ = -1;
};

}  // namespace corvane
