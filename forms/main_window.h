// The main window: shows the main form's models and turns the user's acts into calls of handlers. After each
// act and at each turn of the event loop it copies what has changed from the models to the widgets.
#pragma once

#include <QMainWindow>
#include <map>
#include <string>

#include "app/program.h"
#include "forms/qt_user_interface.h"

class QAction;
class QLabel;
class QPushButton;
class QSplitter;

namespace corvane {

class colour_bar_widget;
class directory_window;
class result_list;
class row_panel_frame;
class start_page;
class status_panels;
class task_column;
class text_pane_widget;

class main_window : public QMainWindow {
  public:
    // Both outlive the window.
    main_window(program& corvane, qt_user_interface& screen);
    ~main_window() override;

    // Runs a handler by its stated name, then shows what it changed.
    void act(const std::string& handler);
    void sync();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void build_menus();
    void build_centre();
    void sync_menus();
    void sync_centre();

    program& program_;
    Tavrel& form_;
    qt_user_interface& screen_;
    std::map<std::string, QAction*> actions_;
    task_column* tasks_ = nullptr;
    QSplitter* splitter_ = nullptr;
    start_page* start_ = nullptr;
    text_pane_widget* text_ = nullptr;
    result_list* list_ = nullptr;
    QWidget* progress_ = nullptr;  // the bar and the cancel button
    colour_bar_widget* bar_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QLabel* running_file_ = nullptr;
    status_panels* status_ = nullptr;
    row_panel_frame* row_panel_ = nullptr;
    directory_window* directories_ = nullptr;
    bool syncing_ = false;
};

}  // namespace corvane
