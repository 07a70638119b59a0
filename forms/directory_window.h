// The window 目录选择: volumes and a tree of directories on the left, the chosen ones on the right.
#pragma once

#include <QDialog>
#include <functional>

#include "app/program.h"

class QFileSystemModel;
class QListWidget;
class QPushButton;
class QTreeView;

namespace corvane {

class directory_window : public QDialog {
  public:
    // The program outlives the window. `act` runs a handler by name and shows what it changed.
    directory_window(program& corvane, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* build_tree_side();
    QWidget* build_chosen_side();
    QPushButton* button_for(const control& model, const char* caption);
    void fill_volumes();
    void show_directory(const QString& path);
    void pick_selected();
    void remove_selected();

    directory_form& form_;
    std::function<void(const std::string&)> act_;
    QListWidget* volumes_ = nullptr;
    QTreeView* tree_ = nullptr;
    QFileSystemModel* directories_ = nullptr;
    QListWidget* chosen_ = nullptr;
    std::uint64_t shown_revision_ = ~std::uint64_t{0};
};

}  // namespace corvane
