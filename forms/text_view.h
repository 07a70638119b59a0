// The text pane: shows a file of any size, painting the visible lines only. Lines can be selected and copied.
// Used by main_window.
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include "core/model/controls.h"
#include "forms/text_lines.h"

namespace corvane {

class text_view : public QAbstractScrollArea {
  public:
    text_view(file_system& files, QWidget* parent);

    void sync(const text_pane& pane);

    std::int64_t line_count() const { return lines_.count(); }
    std::int64_t first_visible_line() const;
    QString selected_text() const;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    int line_height() const { return fontMetrics().height() + 3; }
    int visible_lines() const { return std::max(1, viewport()->height() / line_height()); }
    std::int64_t line_at(int y) const;
    void update_scroll_bars();
    void select_to(std::int64_t line);
    void copy_selection() const;

    text_lines lines_;
    QBasicTimer finder_;
    std::uint64_t shown_revision_ = 0;
    std::int64_t anchor_ = -1;  // selected range of lines; -1: none
    std::int64_t current_ = -1;
    int widest_ = 0;  // of the lines painted so far, in pixels
};

}  // namespace corvane
