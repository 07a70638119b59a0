// The main form on the screen. Copies the model to its widgets and turns the user's acts into handlers. Made
// by front_end.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "cleanup/stake.h"
#include "core/model/main_form.h"
#include "core/tasks/run_progress.h"
#include "forms/window_place.h"

class QLabel;
class QScrollArea;
class QSplitter;

namespace corvane {

class column_scroll;
class error_frame;
class export_frame;
class key_focus;
class list_box_view;
class list_head;
class list_table;
class menu_bar;
class number_frame;
class panel_bar;
class preview_pane;
class row_panel;
class run_row;
class side_list;
class start_page;
class task_column;
class text_view;
class tip_box;

class main_window : public QMainWindow {
  public:
    // `act` runs a handler of the form by its name and brings the screen up to date; `close` is called when
    // the user closes the window.
    main_window(Tavrel& form, std::function<void(const std::string&)> act, std::function<void()> close);
    ~main_window() override;

    void sync(bool tasks_locked);

    menu_bar& menus() { return *menus_; }
    list_table& list() { return *list_; }
    preview_pane& preview() { return *preview_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    // Escape closes the row panel wherever the focus is.
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    // A press on no control.
    void mousePressEvent(QMouseEvent* event) override;
    // The splitter's handle tells the model of its drags; a press on the left list or the text pane may ask
    // for help.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* make_work_area();
    void sync_work_area(bool tasks_locked);
    // Goes on with what is told of all rows of the list, for a few milliseconds.
    void look_through_rows();
    void sync_title();
    void place_splitter();
    // True when the pointer asks for help: the press opens the topic and does nothing else.
    bool asks_for_help(QObject* pressed);
    // Tells the model how large its parts are and runs its resize handler.
    void lay_out();

    Tavrel& form_;
    std::function<void(const std::string&)> act_;
    std::function<void()> close_;
    std::unique_ptr<menu_bar> menus_;
    task_column* tasks_ = nullptr;
    column_scroll* tasks_area_ = nullptr;
    QSplitter* splitter_ = nullptr;
    QWidget* left_ = nullptr;
    list_box_view* left_list_ = nullptr;
    side_list* side_list_ = nullptr;
    text_view* text_ = nullptr;
    start_page* start_ = nullptr;
    QScrollArea* start_area_ = nullptr;
    QWidget* list_area_ = nullptr;  // the list with what belongs to it
    list_head* list_head_ = nullptr;
    QSplitter* list_side_ = nullptr;  // the list, and the preview below it
    list_table* list_ = nullptr;
    preview_pane* preview_ = nullptr;
    QLabel* marks_ = nullptr;  // the status line of the list
    run_row* run_row_ = nullptr;
    panel_bar* panels_ = nullptr;
    row_panel* panel_ = nullptr;
    error_frame* failure_ = nullptr;
    number_frame* numbers_ = nullptr;
    export_frame* exports_ = nullptr;
    tip_box* tip_ = nullptr;
    std::unique_ptr<key_focus> keys_;
    run_progress progress_;
    std::string marked_;  // what is marked, for the line above the list
    window_place place_;
    stake_count stake_;
    QTimer slices_;                  // runs while a look at the rows is on its way
    std::uint64_t marked_fill_ = 0;  // of the rows that marked_ tells of
    bool splitter_placed_ = false;
};

}  // namespace corvane
