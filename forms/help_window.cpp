#include "forms/help_window.h"
#include "forms/own_words.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "forms/form_parts.h"
#include "forms/help_browser.h"
#include "forms/help_pages.h"
#include "forms/icons.h"

namespace corvane {

namespace {

constexpr QSize first_size(820, 680);
constexpr int narrowest = 520;
constexpr int first_side = 220;
constexpr int gap = 8;  // to the window beside it
constexpr int file_role = Qt::UserRole;

}  // namespace

QString help_folder(const QString& program_folder) {
    const bool english = translation_in_use() != nullptr;
    return QDir(program_folder).filePath(english ? QStringLiteral("help/en") : QStringLiteral("help/zh_CN"));
}

help_window::help_window(QString folder) : folder_(std::move(folder)) {
    setObjectName(QStringLiteral("help_window"));
}

help_window::~help_window() = default;

void help_window::build() {
    pages_ = std::make_unique<help_pages>(folder_);
    setWindowTitle(own_line("Corvane 帮助"));
    setWindowIcon(application_icon());
    browser_ = new help_browser(folder_, this);
    parts_ = new QSplitter(Qt::Horizontal, this);
    parts_->setChildrenCollapsible(false);
    parts_->addWidget(make_side());
    parts_->addWidget(browser_);
    parts_->setStretchFactor(0, 0);
    parts_->setStretchFactor(1, 1);
    parts_->setSizes({first_side, first_size.width() - first_side});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(make_bar());
    layout->addWidget(parts_, 1);
    fill_contents();
    connect(browser_, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& page) { follow_page(page.fileName()); });
    resize(first_size);
}

QAction* help_window::add_action(const QString& text, const QList<QKeySequence>& keys) {
    auto* action = new QAction(text, this);
    action->setShortcuts(keys);
    addAction(action);
    return action;
}

QWidget* help_window::make_bar() {
    auto* bar = new QToolBar(this);
    QAction* back = add_action(own_line("← 后退"), {QKeySequence::Back});
    QAction* next = add_action(own_line("前进 →"), {QKeySequence::Forward});
    QAction* home = add_action(own_line("目录"), {QKeySequence(Qt::ALT | Qt::Key_Home)});
    QAction* smaller = add_action(own_line("字小"), {QKeySequence::ZoomOut});
    QAction* larger =
        add_action(own_line("字大"), {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    QAction* find = add_action(own_line("查找"), {QKeySequence::Find});
    bar->addActions({back, next, home});
    auto* space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    bar->addActions({smaller, larger});
    back->setEnabled(false);
    next->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, next, &QAction::setEnabled);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(next, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { show_page(QLatin1String(help_pages::contents_file)); });
    connect(smaller, &QAction::triggered, this,
            [this] { browser_->set_text_size(browser_->text_size() - 1); });
    connect(larger, &QAction::triggered, this,
            [this] { browser_->set_text_size(browser_->text_size() + 1); });
    connect(find, &QAction::triggered, this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    return bar;
}

QWidget* help_window::make_side() {
    auto* side = new QWidget(this);
    search_ = new QLineEdit(side);
    search_->setObjectName(QStringLiteral("help_search"));
    search_->setPlaceholderText(own_line("在帮助中查找"));
    search_->setClearButtonEnabled(true);
    contents_ = new QTreeWidget(side);
    contents_->setHeaderHidden(true);
    contents_->setFrameShape(QFrame::NoFrame);
    contents_->setObjectName(QStringLiteral("help_contents"));
    hits_ = new QListWidget(side);
    hits_->setFrameShape(QFrame::NoFrame);
    hits_->setObjectName(QStringLiteral("help_hits"));
    hits_->setWordWrap(true);
    hits_->setSpacing(2);
    side_ = new QStackedWidget(side);
    side_->addWidget(contents_);
    side_->addWidget(hits_);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(8, 8, 0, 8);
    layout->setSpacing(8);
    layout->addWidget(search_);
    layout->addWidget(side_, 1);
    connect(search_, &QLineEdit::textChanged, this, &help_window::search);
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (hits_->count() > 0) hits_->setCurrentRow(0);
    });
    connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item && !following_ && item->data(0, file_role).isValid())
            show_page(item->data(0, file_role).toString());
    });
    connect(hits_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (!item || !item->data(file_role).isValid()) return;
        show_page(item->data(file_role).toString());
        browser_->mark(search_->text().trimmed());
    });
    return side;
}

void help_window::fill_contents() {
    QTreeWidgetItem* group = nullptr;
    for (const help_page& page : pages_->pages()) {
        if (!group || group->text(0) != page.group) {
            group = new QTreeWidgetItem(contents_, {page.group});
            group->setFlags(Qt::ItemIsEnabled);
        }
        auto* line = new QTreeWidgetItem(group, {page.title});
        line->setData(0, file_role, page.file);
        line->setToolTip(0, page.title);
    }
    contents_->expandAll();
}

void help_window::search(const QString& asked) {
    hits_->clear();
    side_->setCurrentWidget(asked.trimmed().isEmpty() ? static_cast<QWidget*>(contents_) : hits_);
    if (asked.trimmed().isEmpty()) return browser_->mark({});
    for (const help_hit& hit : pages_->search(asked)) {
        const help_page& page = pages_->pages()[hit.page];
        auto* title = new QListWidgetItem(page.title, hits_);
        QFont bold = hits_->font();
        bold.setBold(true);
        title->setFont(bold);
        auto* excerpt = new QListWidgetItem(hit.excerpt, hits_);
        for (QListWidgetItem* line : {title, excerpt}) line->setData(file_role, page.file);
    }
    if (hits_->count() > 0) return;
    auto* nothing = new QListWidgetItem(own_line("没有找到"), hits_);
    nothing->setFlags(Qt::NoItemFlags);
}

void help_window::show_page(const QString& file) {
    browser_->setSource(QUrl::fromLocalFile(QDir(folder_).filePath(file)));
}

QString help_window::shown_page() const {
    return browser_ ? QFileInfo(browser_->source().toLocalFile()).fileName() : QString();
}

// The contents show where the page stands.
void help_window::follow_page(const QString& shown) {
    following_ = true;
    for (int i = 0; i < contents_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* group = contents_->topLevelItem(i);
        for (int j = 0; j < group->childCount(); ++j)
            if (group->child(j)->data(0, file_role).toString() == shown)
                contents_->setCurrentItem(group->child(j));
    }
    following_ = false;
}

outcome help_window::open(const QString& page) {
    if (!QFileInfo(QDir(folder_).filePath(page)).isFile())
        return outcome::failure(QDir(folder_).filePath(page).toStdString() + "  不存在");
    if (!browser_) build();
    join_modal_window();
    if (isHidden()) place_beside(QApplication::activeWindow());
    show_page(page);
    bring_to_front(*this);
    return outcome::success();
}

void help_window::join_modal_window() {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == parentWidget()) return;
    const QRect place = geometry();
    const bool was_open = isVisible();
    setParent(box, Qt::Window);
    if (was_open) setGeometry(place);
    if (!box) return;
    // With the box this window would go as well.
    connect(box, &QDialog::finished, this, [this, box] {
        if (parentWidget() != box) return;
        const QRect stays = geometry();
        const bool is_open = isVisible();
        setParent(nullptr, Qt::Window);
        setGeometry(stays);
        setVisible(is_open);
    });
}

// Right of the window that asked, left of it, else at an edge of the screen: at the right one, where the
// tasks of the main form stay free for help mode, or at the left one while the list shows results, which
// stand on the right.
void help_window::place_beside(const QWidget* other) {
    if (!other) return resize(size().boundedTo(screen()->availableGeometry().size()));
    const QRect free = other->screen()->availableGeometry();
    const int least = std::min(narrowest, free.width());
    const QRect beside = other->frameGeometry();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int high = std::min(height(), free.height() - title);
    const int top = std::clamp(beside.top(), free.top(), std::max(free.top(), free.bottom() - high - title));
    const int right = free.right() - beside.right() - gap;
    const int left = beside.left() - free.left() - gap;
    const auto* list = other->findChild<QWidget*>(QStringLiteral("ListView1"));
    const bool has_results = list && list->isVisible();
    const bool goes_right = right >= narrowest || (left < narrowest && !has_results);
    const int wide =
        std::clamp(goes_right ? right : left, least, std::max(least, std::min(width(), free.width())));
    resize(wide, high);
    if (right >= narrowest)
        move(beside.right() + gap, top);
    else if (left >= narrowest)
        move(beside.left() - gap - wide, top);
    else
        move(goes_right ? std::max(free.left(), free.right() - wide - gap) : free.left(), top);
    const int side = std::min(first_side, wide * 3 / 10);
    parts_->setSizes({side, wide - side});
}

void help_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    if (search_->text().isEmpty())
        hide();
    else
        search_->clear();
}

}  // namespace corvane
