// Shows a text file of any length: an index of every 64th line is made in one pass, lines are read as they
// come into view. Lines can be selected and copied.
#pragma once

#include <QAbstractScrollArea>
#include <QFile>
#include <vector>

#include "core/controls.h"

namespace corvane {

class text_pane_widget : public QAbstractScrollArea {
  public:
    // The model outlives the widget.
    explicit text_pane_widget(const text_pane& model, QWidget* parent = nullptr);

    // Loads the file when the model has been given one since.
    void sync();
    qint64 line_count() const { return lines_; }
    // Line numbers count from 0; empty beyond the end.
    QString line(qint64 number);
    void select_all();
    // The selected lines, joined by line ends.
    QString selected_text();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    static constexpr int lines_per_mark = 64;

    void load();
    void set_scroll_range();
    int row_height() const;
    qint64 line_at(int y) const;

    const text_pane& model_;
    std::uint64_t shown_revision_ = 0;
    QFile file_;
    std::vector<qint64> marks_;  // offsets of the lines 0, 64, 128 ...
    qint64 lines_ = 0;
    qint64 longest_ = 0;  // bytes of the longest line
    qint64 anchor_ = -1;
    qint64 current_ = -1;
};

}  // namespace corvane
