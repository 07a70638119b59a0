// Getting folders in: the box of paths, keys and clicks that open or pick, earlier selections, drops and
// pastes on both windows.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "forms/directory_model.h"
#include "forms/directory_window.h"
#include "forms/main_window.h"
#include "forms/path_box.h"
#include "forms/selected_list.h"
#include "forms/start_page.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct choosing_window {
    choosing_window() : window(shown.windows.directory()), model(shown.corvane.directory_window()) {
        for (const char* path : {"/home/li/照片/2023", "/home/li/文档", "/home/li/音乐"})
            shown.files.add_directory(path);
        shown.files.add_file("/home/li/note.txt", "x");
        shown.files.mounted = {{"/home/li/", "", volume_kind::home}, {"/", "", volume_kind::root}};
        shown.form.run("Picture1_Click");
        shown.windows.sync();
        shown.settle();
        box = static_cast<path_box*>(shown.widget("Text_path", &window));
        tree = static_cast<pick_tree*>(shown.widget("Dir_select", &window));
    }
    ~choosing_window() { QGuiApplication::clipboard()->clear(); }

    texts chosen() {
        for (int step = 0; step < 30; ++step) model.Timer1_Timer();
        shown.windows.sync();
        texts rows;
        for (const list_box::row& row : model.list_selected_dir.rows()) rows.push_back(row.text);
        return rows;
    }
    QModelIndex row(const char* path) { return window.directories().find(path); }
    QPoint place_of(const char* path) {
        tree->scrollTo(row(path));
        return tree->visualRect(row(path)).center();
    }
    void click(const char* name) { QTest::mouseClick(shown.widget(name, &window), Qt::LeftButton); }
    // Answers the next box and tells what it says.
    QString next_box(const std::function<void()>& act) {
        QString words;
        QTimer::singleShot(0, [&words] {
            if (QWidget* standing = QApplication::activeModalWidget()) {
                for (const QLabel* label : standing->findChildren<QLabel*>()) words += label->text();
                standing->close();
            }
        });
        act();
        return words;
    }

    forms_program shown;
    directory_window& window;
    directory_form& model;
    path_box* box;
    pick_tree* tree;
};

TEST(folders_in, a_typed_path_is_added_by_enter_and_by_the_button) {
    choosing_window open;
    QTest::keyClicks(open.box, "/home/li/");
    open.box->insert(QString::fromUtf8("文档"));
    QTest::keyClick(open.box, Qt::Key_Return);
    EXPECT_EQ(open.chosen(), texts{"/home/li/文档"});
    EXPECT_TRUE(open.box->text().isEmpty());
    QTest::keyClicks(open.box, "~/");
    open.box->insert(QString::fromUtf8("音乐"));
    open.click("Command_path");
    EXPECT_EQ(open.chosen(), (texts{"/home/li/文档", "/home/li/音乐"}));
    EXPECT_TRUE(open.box->text().isEmpty());
    EXPECT_TRUE(open.window.isVisible()) << "Enter confirms nothing";
}

TEST(folders_in, what_is_no_directory_stays_in_the_box) {
    choosing_window open;
    QTest::keyClicks(open.box, "/home/li/note.txt");
    const QString said = open.next_box([&] { QTest::keyClick(open.box, Qt::Key_Return); });
    EXPECT_TRUE(said.contains(QString::fromUtf8("/home/li/note.txt  不是目录"))) << said.toStdString();
    EXPECT_EQ(open.box->text(), QStringLiteral("/home/li/note.txt"));
    EXPECT_TRUE(open.chosen().empty());
}

TEST(folders_in, completions_come_while_typing_and_enter_takes_one_into_the_box_first) {
    choosing_window open;
    open.box->setFocus();
    ASSERT_TRUE(open.box->hasFocus());
    QTest::keyClicks(open.box, "/home/L");
    QAbstractItemView* popup = open.box->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    ASSERT_EQ(popup->model()->rowCount(), 1);
    // Where the list of completions has the focus its first row is current already, without being chosen.
    for (int press = 0; press < 2 && !popup->selectionModel()->hasSelection(); ++press)
        QTest::keyClick(popup, Qt::Key_Down);
    ASSERT_TRUE(popup->selectionModel()->hasSelection());
    QTest::keyClick(popup, Qt::Key_Return);
    ASSERT_EQ(open.box->text(), QStringLiteral("/home/li/"));
    EXPECT_TRUE(open.chosen().empty()) << "chosen, not added";
    QTest::keyClick(open.box, Qt::Key_Return);
    EXPECT_EQ(open.chosen(), texts{"/home/li"});
}

TEST(folders_in, a_paste_of_urls_or_lines_joins_the_list_and_one_line_the_box) {
    choosing_window open;
    auto* urls = new QMimeData;
    urls->setUrls(
        {QUrl::fromLocalFile(QString::fromUtf8("/home/li/照片")), QUrl(QStringLiteral("http://x/y"))});
    QGuiApplication::clipboard()->setMimeData(urls);
    open.next_box([&] { QTest::keySequence(open.box, QKeySequence::Paste); });
    EXPECT_EQ(open.chosen(), texts{"/home/li/照片"});
    QGuiApplication::clipboard()->setText(QString::fromUtf8("/home/li/文档\n\"/home/li/音乐\"\n"));
    QTest::keySequence(open.box, QKeySequence::Paste);
    EXPECT_EQ(open.chosen(), (texts{"/home/li/照片", "/home/li/文档", "/home/li/音乐"}));
    QGuiApplication::clipboard()->setText(QStringLiteral("/home/li"));
    QTest::keySequence(open.box, QKeySequence::Paste);
    EXPECT_EQ(open.box->text(), QStringLiteral("/home/li"));
    EXPECT_EQ(open.chosen().size(), 3u);
    // Outside of the box one line is taken, too; the box keeps what stands in it.
    open.tree->setFocus();
    QTest::keySequence(open.tree, QKeySequence::Paste);
    EXPECT_EQ(open.chosen().back(), "/home/li");
    EXPECT_EQ(open.box->text(), QStringLiteral("/home/li"));
}

TEST(folders_in, blank_middle_button_and_open_open_without_picking) {
    choosing_window open;
    open.tree->setCurrentIndex(open.row("/home/li/照片"));
    ASSERT_FALSE(open.tree->isExpanded(open.row("/home/li/照片")));
    QTest::keyClick(open.tree, Qt::Key_Space);
    EXPECT_TRUE(open.tree->isExpanded(open.row("/home/li/照片")));
    QTest::keyClick(open.tree, Qt::Key_Space);
    EXPECT_FALSE(open.tree->isExpanded(open.row("/home/li/照片")));
    QTest::mouseClick(open.tree->viewport(), Qt::MiddleButton, {}, open.place_of("/home/li/照片"));
    EXPECT_TRUE(open.tree->isExpanded(open.row("/home/li/照片")));
    open.click("Command_open");
    EXPECT_FALSE(open.tree->isExpanded(open.row("/home/li/照片")));
    EXPECT_TRUE(open.chosen().empty());
    QTest::keyClick(open.tree, Qt::Key_Insert);
    EXPECT_EQ(open.chosen(), texts{"/home/li/照片"});
}

TEST(folders_in, the_button_removes_and_a_line_tells_what_lies_in_what) {
    choosing_window open;
    auto* line = static_cast<QLabel*>(open.shown.widget("Label_nested", &open.window));
    EXPECT_TRUE(line->isHidden());
    open.model.add_paths({"/home/li/照片", "/home/li/照片/2023"});
    open.shown.windows.sync();
    EXPECT_FALSE(line->isHidden());
    EXPECT_EQ(line->text(), QString::fromUtf8("/home/li/照片/2023 在 /home/li/照片 之内,随它一起搜索"));
    auto* list = static_cast<selected_list*>(open.shown.widget("list_selected_dir", &open.window));
    list->setCurrentIndex(list->model()->index(1, 0));
    open.click("Command_remove");
    EXPECT_EQ(open.chosen(), texts{"/home/li/照片"});
    EXPECT_TRUE(line->isHidden());
}

TEST(folders_in, earlier_selections_come_back_from_a_menu) {
    choosing_window open;
    open.model.add_paths({"/home/li/照片"});
    open.click("Command34");
    open.shown.form.run("Picture1_Click");
    open.shown.windows.sync();
    open.model.clear_list();
    open.click("Command_recent");
    auto* menu = open.window.findChild<QMenu*>(QStringLiteral("List_recent"));
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), QString::fromUtf8("/home/li/照片"));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(open.chosen(), texts{"/home/li/照片"});
}

// What a drop onto a widget is answered; Qt hands it to the window where no part of it takes drops.
Qt::DropAction drop(QWidget& target, const QList<QUrl>& urls, Qt::KeyboardModifiers keys = {},
                    Qt::DropAction asked = Qt::CopyAction) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&target, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, keys);
    event.setDropAction(asked);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
}

struct main_drops {
    main_drops() {
        for (const char* path : {"/a", "/b", "/c c"}) shown.files.add_directory(path);
        shown.files.add_file("/f", "x");
    }
    ~main_drops() { QGuiApplication::clipboard()->clear(); }
    texts selected() {
        shown.settle();
        return {shown.form.state.selected_dirs.begin(), shown.form.state.selected_dirs.end()};
    }
    static QList<QUrl> urls(std::initializer_list<const char*> paths) {
        QList<QUrl> list;
        for (const char* path : paths) list.append(QUrl::fromLocalFile(QString::fromUtf8(path)));
        return list;
    }
    forms_program shown;
};

TEST(folders_in, a_drop_on_the_window_and_its_cards_selects) {
    main_drops d;
    EXPECT_EQ(drop(d.shown.windows.main(), d.urls({"/a", "/f"})), Qt::CopyAction);
    EXPECT_EQ(d.selected(), texts{"/a"});
    auto* page = d.shown.windows.main().findChild<start_page*>();
    ASSERT_NE(page, nullptr);
    // A card takes no drops of its own, so that its window gets them.
    EXPECT_FALSE(page->acceptDrops());
    EXPECT_TRUE(page->window()->acceptDrops());
    EXPECT_EQ(drop(*page, d.urls({"/b"})), Qt::CopyAction);
    EXPECT_EQ(d.selected(), texts{"/b"});
    EXPECT_EQ(drop(d.shown.windows.main(), d.urls({"/c c"}), Qt::ControlModifier), Qt::CopyAction);
    EXPECT_EQ(d.selected(), (texts{"/b", "/c c"}));
}

TEST(folders_in, a_drop_is_never_answered_with_a_move) {
    main_drops d;
    EXPECT_EQ(drop(d.shown.windows.main(), d.urls({"/a"}), {}, Qt::MoveAction), Qt::CopyAction);
}

TEST(folders_in, a_drop_without_files_is_not_taken) {
    main_drops d;
    QMimeData data;
    data.setText(QStringLiteral("/a"));
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&d.shown.windows.main(), &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(d.selected(), texts{});
}

TEST(folders_in, a_drop_that_asks_the_user_lets_the_other_program_go_on) {
    main_drops d;
    QString said;
    bool answered = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            QWidget* box = QApplication::activeModalWidget();
            if (box == nullptr) return;
            for (const QLabel* label : box->findChildren<QLabel*>()) said += label->text();
            box->close();
        });
    });
    answered = drop(d.shown.windows.main(), d.urls({"/f"})) == Qt::CopyAction;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the box comes after the event";
    EXPECT_TRUE(answered);
    for (int i = 0; i < 5; ++i) d.shown.settle();
    EXPECT_TRUE(said.contains(QString::fromUtf8("没有可选中的目录。"))) << said.toStdString();
}

TEST(folders_in, ctrl_v_adds_what_was_copied) {
    main_drops d;
    d.shown.windows.main().activateWindow();
    d.shown.settle();
    QGuiApplication::clipboard()->setText(QStringLiteral("/a\n'/c c'"));
    QTest::keySequence(&d.shown.windows.main(), QKeySequence::Paste);
    EXPECT_EQ(d.selected(), (texts{"/a", "/c c"}));
    auto* urls = new QMimeData;
    urls->setUrls(d.urls({"/b"}));
    QGuiApplication::clipboard()->setMimeData(urls);
    QTest::keySequence(&d.shown.windows.main(), QKeySequence::Paste);
    EXPECT_EQ(d.selected(), (texts{"/a", "/b", "/c c"}));
}

TEST(folders_in, drops_and_pastes_of_a_running_task_wait_for_its_end) {
    main_drops d;
    d.shown.files.add_file("/a/1", "x");
    d.shown.form.state.selected_dirs = {"/a"};
    d.shown.form.state.selected_dir_count = 1;
    texts during;
    d.shown.form.bind(
        {"a_task",
         [&](Tavrel&) {
             drop(d.shown.windows.main(), d.urls({"/b"}));
             QTimer::singleShot(0, [] {
                 QTimer::singleShot(0, [] {
                     if (QWidget* box = QApplication::activeModalWidget()) box->close();
                 });
             });
             for (int i = 0; i < 5; ++i) d.shown.settle();
             during = {d.shown.form.state.selected_dirs.begin(), d.shown.form.state.selected_dirs.end()};
         },
         starts_task});
    d.shown.form.run("a_task");
    EXPECT_EQ(during, texts{"/a"});
    EXPECT_EQ(d.selected(), texts{"/b"});
}

}  // namespace
}  // namespace corvane
