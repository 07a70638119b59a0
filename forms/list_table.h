// ListView1 on the screen: a table for a million rows, fixed row heights, no object per row. Used by
// main_window.
#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>
#include <memory>
#include <string>

#include "core/model/main_form.h"
#include "core/tasks/protected_folders.h"

namespace corvane {

class list_model;

class list_table : public QTableView {
  public:
    // `act` runs a handler of the main form by its name.
    list_table(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    // With `tasks_locked`, growing rows are taken over now and then only.
    void sync(bool tasks_locked);
    // Goes on with what takes a look at every row, at up to `most` of them; true when there is no more to be
    // taken over. A running task changes one cell after the other: its marks and bands wait until it has
    // ended.
    bool look_through(bool tasks_locked, std::int64_t most);
    // True once for each load: rows have come that are others than before. Their first path is then the
    // current cell, unless a row is selected.
    bool take_load();

    // Shows a menu by its top entry's name at a place on the screen.
    std::function<void(const std::string& name, QPoint place)> show_menu;

    // The twips of one pixel: the widths were laid out for digits of six pixels and grow with the font.
    double twips_per_pixel() const;
    list_model& cells() { return *cells_; }
    // The selected row, else that of the current cell; 0 for none.
    std::int32_t row_in_hand() const;

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    void take_widths();
    void take_width_from_user(int column, int pixels);
    void take_selection();
    void place_in_twips();
    // The event of the mouse at a point of the viewport, in the model's twips.
    list_pointer pointer_at(QPoint place, const QMouseEvent& event) const;
    // The event of a mouse in the middle of the current cell, for keys that stand for it. On a column without
    // paths the first path column is meant.
    list_pointer pointer_at_current() const;
    void run(const list_pointer& event, const char* handler, QPoint place = {});
    void reveal_row();
    void show_sort_sign(int column);

    Tavrel& form_;
    list_view& list_;
    std::function<void(const std::string&)> act_;
    list_model* cells_;
    std::unique_ptr<protection> protected_;  // of the rows that are shown
    std::uint64_t shown_protection_ = 0;
    std::uint64_t protected_fill_ = 0;
    QElapsedTimer since_growth_;
    std::uint64_t shown_layout_ = ~std::uint64_t{0};
    std::uint64_t shown_cells_ = 0;
    std::uint64_t known_fill_ = 0;  // of the load that was taken last
    std::uint64_t top_fill_ = 0;    // of the rows that were shown from their first one on
    bool taking_over_ = false;
};

}  // namespace corvane
