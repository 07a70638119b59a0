// ListView1 on the screen: a table for a million rows, fixed row heights, no object per row. Used by
// main_window.
#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>
#include <string>

#include "core/main_form.h"

namespace corvane {

class list_model;

// What the user does on the list; x in twips from the list's left edge, row and column as in list_view.
struct list_act {
    enum kind { press, click, double_click, header, key };
    kind what = press;
    std::int32_t row = 0;
    int column = 0;
    int x = 0;
    int button = 0;  // 1 left, 2 right
    int key_code = 0;
    bool shift = false;
    bool ctrl = false;
};

class list_table : public QTableView {
  public:
    // `act` runs a handler of the main form by its name.
    list_table(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    // With `tasks_locked`, growing rows are taken over now and then only.
    void sync(bool tasks_locked);

    // Called before the handler of each act.
    std::function<void(const list_act&)> list_input;

    // The twips of one pixel: the widths were laid out for digits of six pixels and grow with the font.
    double twips_per_pixel() const;
    list_model& cells() { return *cells_; }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
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
    list_act act_at(list_act::kind what, QMouseEvent* event) const;
    void run(const list_act& what, const char* handler);

    Tavrel& form_;
    list_view& list_;
    std::function<void(const std::string&)> act_;
    list_model* cells_;
    QElapsedTimer since_growth_;
    std::uint64_t shown_layout_ = ~std::uint64_t{0};
    std::uint64_t shown_cells_ = 0;
    bool taking_over_ = false;
};

}  // namespace corvane
