// A list box of a form on the screen; reads the model's rows directly. Used by main_window and
// directory_window.
#pragma once

#include <QListView>

#include "core/controls.h"

namespace corvane {

class list_box_rows;

class list_box_view : public QListView {
  public:
    // `box` outlives the view.
    list_box_view(list_box& box, QWidget* parent);

    void sync();

  protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    list_box& box_;
    list_box_rows* rows_;
    std::uint64_t shown_revision_ = ~std::uint64_t{0};
    bool taking_over_ = false;
};

}  // namespace corvane
