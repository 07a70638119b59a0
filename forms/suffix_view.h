// The suffixes of the tree's window as a table: a double click picks one, a heading sorts. Used by
// tree_window.
#pragma once

#include <QTableView>
#include <functional>

#include "core/model/list_view.h"

namespace corvane {

class list_model;

class suffix_view : public QTableView {
  public:
    // `list` outlives the view. `picked` runs for the selected row, `sorted` for a heading.
    suffix_view(list_view& list, std::function<void()> picked, std::function<void(int)> sorted,
                QWidget* parent);

    void sync();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void take_row(const QModelIndex& row);

    list_view& list_;
    std::function<void()> picked_;
    list_model* rows_;
    std::uint64_t shown_layout_ = ~std::uint64_t{0};
    std::uint64_t shown_cells_ = 0;
};

}  // namespace corvane
