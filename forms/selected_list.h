// The list of chosen directories in the directory window: removing by double click, key and menu, adding by
// drop. Used by directory_window.
#pragma once

#include <functional>
#include <string>

#include "forms/list_box_view.h"
#include "search/directory_form.h"

namespace corvane {

class selected_list : public list_box_view {
  public:
    selected_list(directory_form& form, std::function<void(const std::string&)> act, QWidget* parent);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    // Where the check mark of a row is.
    QRect check_place(const QModelIndex& row) const;
    static void accept_as_copy(QDropEvent& event);

    directory_form& form_;
    std::function<void(const std::string&)> act_;
};

}  // namespace corvane
