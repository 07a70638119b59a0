// One list of the options window: font and colours after its model, its pop-up menu, keys, drags and drops.
// Used by options_window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/list_box_view.h"

class QMenu;

namespace corvane {

class option_list_view : public list_box_view {
  public:
    option_list_view(list_box& box, bool with_check_marks, QWidget* parent);

    // Rows and look.
    void sync_list();

    QMenu* menu = nullptr;
    std::function<void()> remove_selected;  // the Delete key
    // The list takes what one of these is there for.
    std::function<void(const std::vector<std::string>&)> drop_paths;
    std::function<void(const std::string&)> drop_text;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    bool takes(const QDropEvent& event) const;
    void take_look();
    void toggle_selected();

    const bool with_check_marks_;
};

}  // namespace corvane
