#include "forms/directory_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QStorageInfo>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

#include "forms/shown_text.h"
#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {

std::string text_of(const QString& path) {
    return to_text(QFile::encodeName(QDir::cleanPath(path)).toStdString());
}

// Rows with room above and below their text.
class roomy_delegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 8);
    }
};

QLabel* label_for(const QString& words, QWidget* buddy, QWidget* parent) {
    auto* label = new QLabel(words, parent);
    label->setBuddy(buddy);
    return label;
}

}  // namespace

directory_window::directory_window(program& corvane, std::function<void(const std::string&)> act,
                                   QWidget* parent)
    : QDialog(parent), form_(corvane.directory_window()), act_(std::move(act)) {
    setObjectName(QString::fromStdString(form_.name()));
    setWindowTitle(shown_text(form_.caption));
    setSizeGripEnabled(true);
    resize(900, 600);

    auto* sides = new QSplitter(Qt::Horizontal, this);
    sides->setChildrenCollapsible(false);
    sides->addWidget(build_tree_side());
    sides->addWidget(build_chosen_side());
    sides->setStretchFactor(0, 3);
    sides->setStretchFactor(1, 2);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(button_for(form_.direction_help, "帮助(&H) F1"));
    buttons->addStretch();
    buttons->addWidget(button_for(form_.cmd_dir_discard, "放弃(&C)"));
    buttons->addWidget(button_for(form_.Command34, "确定(&O)"));
    QPushButton* const firm = button_for(form_.cmd_dir_firm, "执行(&R)");
    firm->setDefault(true);
    buttons->addWidget(firm);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(sides, 1);
    layout->addLayout(buttons);
    fill_volumes();
    show_directory(QDir::homePath());
}

QPushButton* directory_window::button_for(const control& model, const char* caption) {
    auto* button = new QPushButton(QString::fromUtf8(caption), this);
    button->setObjectName(QString::fromStdString(model.name()));
    button->setToolTip(shown_text(model.tooltip));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            [this, handler = form_.name() + "." + model.name() + "_Click"] { act_(handler); });
    return button;
}

QWidget* directory_window::build_tree_side() {
    auto* side = new QWidget(this);
    volumes_ = new QListWidget(side);
    volumes_->setItemDelegate(new roomy_delegate(this));
    volumes_->setObjectName(QStringLiteral("List_disk_sele"));
    volumes_->setUniformItemSizes(true);
    connect(volumes_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr) show_directory(item->data(Qt::UserRole).toString());
    });

    directories_ = new QFileSystemModel(this);
    directories_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    directories_->setRootPath(QStringLiteral("/"));
    tree_ = new QTreeView(side);
    tree_->setItemDelegate(new roomy_delegate(this));
    tree_->setObjectName(QStringLiteral("Dir_select"));
    tree_->setModel(directories_);
    for (int column = 1; column < directories_->columnCount(); ++column) tree_->hideColumn(column);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree_->setExpandsOnDoubleClick(false);
    tree_->setToolTip(QStringLiteral("右键、双击或回车选中；Ctrl、Shift 选多个目录。"));
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    tree_->installEventFilter(this);
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                form_.Dir_select.text = text_of(directories_->filePath(index));
                form_.Dir_select_Change();
            });
    connect(tree_, &QTreeView::customContextMenuRequested, this, [this] { pick_selected(); });
    connect(tree_, &QTreeView::doubleClicked, this, [this] { pick_selected(); });

    auto* pick = new QPushButton(QStringLiteral("选中(&S) →"), side);
    pick->setObjectName(QString::fromStdString(form_.Command_sele.name()));
    pick->setAutoDefault(false);
    connect(pick, &QPushButton::clicked, this, [this] { pick_selected(); });

    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 6, 0);
    layout->setSpacing(6);
    layout->addWidget(label_for(QStringLiteral("驱动器(&D)"), volumes_, side));
    layout->addWidget(volumes_, 1);
    layout->addWidget(label_for(QStringLiteral("文件目录(&T)"), tree_, side));
    layout->addWidget(tree_, 4);
    layout->addWidget(pick, 0, Qt::AlignRight);
    return side;
}

QWidget* directory_window::build_chosen_side() {
    auto* side = new QWidget(this);
    chosen_ = new QListWidget(side);
    chosen_->setItemDelegate(new roomy_delegate(this));
    chosen_->setObjectName(QString::fromStdString(form_.list_selected_dir.name()));
    chosen_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    chosen_->setTextElideMode(Qt::ElideMiddle);
    chosen_->setToolTip(QStringLiteral("双击或 Delete 键，放弃该目录。"));
    chosen_->installEventFilter(this);
    connect(chosen_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        form_.remove_row(static_cast<std::size_t>(chosen_->row(item)));
        sync();
    });
    auto* remove = new QPushButton(QStringLiteral("移去(&M)"), side);
    remove->setAutoDefault(false);
    connect(remove, &QPushButton::clicked, this, [this] { remove_selected(); });
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(label_for(QStringLiteral("选中目录(&L)"), chosen_, side));
    layout->addWidget(chosen_, 1);
    layout->addWidget(remove, 0, Qt::AlignRight);
    return side;
}

void directory_window::fill_volumes() {
    const auto add = [this](const QString& name, const QString& path, const QStorageInfo& storage) {
        auto* item = new QListWidgetItem(name, volumes_);
        item->setData(Qt::UserRole, path);
        item->setToolTip(
            QStringLiteral("%1，可用 %2").arg(path, locale().formattedDataSize(storage.bytesAvailable())));
    };
    add(QStringLiteral("主目录"), QDir::homePath(), QStorageInfo(QDir::homePath()));
    add(QStringLiteral("/"), QStringLiteral("/"), QStorageInfo::root());
    for (const QStorageInfo& storage : QStorageInfo::mountedVolumes()) {
        const bool real = storage.isValid() && storage.isReady() && storage.device().startsWith('/');
        if (real && !storage.isRoot()) add(storage.rootPath(), storage.rootPath(), storage);
    }
}

void directory_window::show_directory(const QString& path) {
    const QModelIndex index = directories_->index(path);
    if (!index.isValid()) return;
    tree_->setCurrentIndex(index);
    tree_->expand(index);
    tree_->scrollTo(index, QAbstractItemView::PositionAtTop);
}

void directory_window::pick_selected() {
    std::vector<std::string> paths;
    for (const QModelIndex& index : tree_->selectionModel()->selectedRows())
        paths.push_back(text_of(directories_->filePath(index)));
    if (!paths.empty()) form_.add_paths(paths);
    sync();
}

void directory_window::remove_selected() {
    for (int row = 0; row < chosen_->count(); ++row)
        form_.list_selected_dir.select(static_cast<std::size_t>(row), chosen_->item(row)->isSelected());
    form_.remove_selected();
    sync();
}

bool directory_window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == chosen_ && key == Qt::Key_Delete) {
            remove_selected();
            return true;
        }
        if (watched == tree_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            pick_selected();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void directory_window::sync() {
    if (shown_revision_ != form_.list_selected_dir.revision()) {
        shown_revision_ = form_.list_selected_dir.revision();
        chosen_->clear();
        for (const list_box::row& row : form_.list_selected_dir.rows()) {
            auto* item = new QListWidgetItem(shown_text(row.text), chosen_);
            item->setToolTip(item->text());
        }
    }
    if (isVisible() != form_.visible) setVisible(form_.visible);
}

void directory_window::closeEvent(QCloseEvent* event) {
    form_.visible = false;
    event->accept();
}

}  // namespace corvane
