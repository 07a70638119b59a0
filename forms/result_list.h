// ListView1 on the screen: a table over the list model that holds nothing of its own per row. Used by the
// main window.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "core/list_view.h"

namespace corvane {

class result_model : public QAbstractTableModel {
  public:
    // The list outlives the model.
    result_model(const list_view& list, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Rows or columns have changed: read everything anew.
    void reset();

  private:
    const list_view& list_;
    int rows_ = 0;
    int columns_ = 0;
};

class result_list : public QTableView {
  public:
    // The list outlives the widget.
    result_list(list_view& list, QWidget* parent);

    std::function<void()> clicked_row;
    // Rows from 1, columns from 0.
    std::function<void(int row, int column)> double_clicked;
    std::function<void()> resized;

    // Tells the model the width that the list will have once it is shown.
    void expect_width(int device_pixels);
    // Copies what changed. While a task fills rows, at most every fifth of a second.
    void sync(bool task_running);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Screen pixels for one pixel of the stated widths, so that a length's ten digits fit whatever the font.
    double width_scale() const;

    list_view& list_;
    result_model model_;
    std::uint64_t shown_layout_ = ~std::uint64_t{0};
    std::uint64_t shown_cells_ = 0;
    qint64 last_reset_ = 0;
};

}  // namespace corvane
