// The viewer of the help: contents, search, pages, back and forward, text size. Answers open_help_topic of
// the shell. Made by main and by the tests.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>

#include "platform/outcome.h"

class QAction;
class QLineEdit;
class QListWidget;
class QSplitter;
class QStackedWidget;
class QTreeWidget;

namespace corvane {

class help_browser;
class help_pages;

class help_window : public QWidget {
  public:
    // `folder` holds the pages of one language, as help_folder tells. Nothing is read before the first
    // opening.
    explicit help_window(QString folder);
    ~help_window() override;

    // Shows a page by the name of its file, beside the window that is in front where there is room. Fails
    // where there is no such page.
    outcome open(const QString& page);

    help_browser& browser() { return *browser_; }
    // The file of the page that is shown.
    QString shown_page() const;
    void search(const QString& words);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void build();
    QWidget* make_bar();
    QWidget* make_side();
    QAction* add_action(const QString& words, const QList<QKeySequence>& keys);
    void show_page(const QString& file);
    void fill_contents();
    void follow_page(const QString& shown);
    // A box that waits for an answer blocks every window but those that belong to it.
    void join_modal_window();
    void place_beside(const QWidget* other);

    QString folder_;
    std::unique_ptr<help_pages> pages_;
    help_browser* browser_ = nullptr;
    QLineEdit* search_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QListWidget* hits_ = nullptr;
    QStackedWidget* side_ = nullptr;
    QSplitter* parts_ = nullptr;
    bool following_ = false;
};

// The folder of the pages in the language of the windows, below the folder of the program.
QString help_folder(const QString& program_folder);

}  // namespace corvane
