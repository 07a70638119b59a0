#include "forms/directory_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "forms/directory_model.h"
#include "forms/path_names.h"
#include "forms/screen_text.h"
#include "forms/selected_list.h"

namespace corvane {

namespace {

constexpr char hint[] = "右键选中;Ctrl+鼠标:多选;shift 鼠标:区域选.";
constexpr char pick_tip[] = "右键选中,Ctrl+鼠标:多重选;shift 鼠标:区域选.";
constexpr QSize first_size(760, 520);

QLabel* heading(const char* words, QWidget* buddy) {
    auto* label = new QLabel(QString::fromUtf8(words));
    label->setBuddy(buddy);
    return label;
}

QVBoxLayout* column_layout(QWidget* owner) {
    auto* layout = new QVBoxLayout(owner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    return layout;
}

}  // namespace

directory_window::directory_window(Tavrel& main, directory_form& form,
                                   std::function<void(const std::string&)> act, QWidget* parent)
    : child_window(main, form, std::move(act), parent),
      form_(form),
      directories_(new directory_model(main.outside.files, this)) {
    auto* sides = new QSplitter(Qt::Horizontal, this);
    sides->setChildrenCollapsible(false);
    sides->setHandleWidth(12);
    sides->addWidget(make_pick_side());
    sides->addWidget(make_selected_side());
    sides->setStretchFactor(0, 1);
    sides->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(12);
    layout->addWidget(sides, 1);
    layout->addWidget(make_buttons());
    resize(first_size);
}

QWidget* directory_window::make_pick_side() {
    auto* side = new QWidget(this);
    volume_list_ = new pick_list(side);
    volume_list_->setObjectName(QStringLiteral("List_disk_sele"));
    volume_list_->setToolTip(QString::fromUtf8(pick_tip));
    volume_list_->setMaximumHeight(4 * (fontMetrics().height() + 8));
    volume_list_->setTextElideMode(Qt::ElideMiddle);
    tree_ = new pick_tree(side);
    tree_->setObjectName(QStringLiteral("Dir_select"));
    tree_->setModel(directories_);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setExpandsOnDoubleClick(false);
    volume_list_->pick = [this](const QModelIndexList& rows) {
        std::vector<std::string> paths;
        for (const QModelIndex& row : rows)
            paths.push_back(volumes_[static_cast<std::size_t>(row.row())].path);
        pick(paths);
    };
    tree_->pick = [this](const QModelIndexList& rows) {
        std::vector<std::string> paths;
        for (const QModelIndex& row : rows) paths.push_back(directories_->path(row));
        pick(paths);
    };
    connect(volume_list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) show_volume(volumes_[static_cast<std::size_t>(row)].path);
    });
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { take_current(current); });
    auto* note = new QLabel(QString::fromUtf8(hint), side);
    note->setObjectName(QStringLiteral("Label1"));
    note->setWordWrap(true);
    auto* layout = column_layout(side);
    layout->addWidget(heading("驱动器(&V)", volume_list_));
    layout->addWidget(volume_list_);
    layout->addSpacing(4);
    layout->addWidget(heading("文件目录(&T)", tree_));
    layout->addWidget(tree_, 1);
    layout->addWidget(note);
    return side;
}

QWidget* directory_window::make_selected_side() {
    auto* side = new QWidget(this);
    selected_ = new selected_list(main_.outside.files, form_, act_, side);
    auto* layout = column_layout(side);
    layout->addWidget(heading("选中目录(&L)", selected_));
    layout->addWidget(selected_, 1);
    return side;
}

QWidget* directory_window::make_buttons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    buttons_ = {{nullptr, &form_.Command_sele, "选中(&S)", false},
                {nullptr, &form_.direction_help, "帮助F1", false},
                {nullptr, &form_.cmd_dir_firm, "执行(&R)", true},
                {nullptr, &form_.Command34, "确定(&O)", true},
                {nullptr, &form_.cmd_dir_discard, "放弃(&C)", false}};
    for (bound_button& bound : buttons_) {
        const std::string& name = bound.model->name();
        bound.button = new QPushButton(QString::fromUtf8(bound.caption), row);
        bound.button->setObjectName(QString::fromStdString(name));
        bound.button->setAutoDefault(false);
        bound.button->setMinimumWidth(84);
        connect(bound.button, &QPushButton::clicked, this,
                [this, name] { act_("目录选择." + name + "_Click"); });
        watch_button(bound.button, *bound.model);
        if (bound.model == &form_.cmd_dir_firm) layout->addStretch(1);
        layout->addWidget(bound.button);
    }
    return row;
}

void directory_window::fill_volumes() {
    volumes_ = volumes();
    const QSignalBlocker silent(volume_list_);
    volume_list_->clear();
    for (const volume& place : volumes_) volume_list_->addItem(place.label);
    volume_list_->setCurrentRow(0);
    show_volume(volumes_.front().path);
}

void directory_window::show_volume(const std::string& root) {
    directories_->set_root(root);
    const QModelIndex top = directories_->index(0, 0);
    tree_->expand(top);
    tree_->setCurrentIndex(top);
}

void directory_window::take_current(const QModelIndex& current) {
    if (!current.isValid()) return;
    form_.Dir_select.text = directories_->path(current);
    main_.run("目录选择.Dir_select_Change");
}

void directory_window::pick(const std::vector<std::string>& paths) {
    form_.add_paths(paths);
    selected_->sync();
    selected_->scrollToBottom();
}

void directory_window::sync(bool tasks_locked) {
    selected_->sync();
    const QString list_tip = screen_text(form_.list_selected_dir.tooltip);
    if (selected_->toolTip() != list_tip) selected_->setToolTip(list_tip);
    for (const bound_button& bound : buttons_) {
        const bool enabled = bound.model->enabled && !(tasks_locked && bound.waits_for_task);
        if (bound.button->isEnabled() != enabled) bound.button->setEnabled(enabled);
        const QString tip = screen_text(bound.model->tooltip);
        if (bound.button->toolTip() != tip) bound.button->setToolTip(tip);
    }
    sync_window();
}

void directory_window::before_open() {
    if (volumes_.empty()) fill_volumes();
    tree_->setFocus();
}

void directory_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1)
        act_("目录选择.direction_help_Click");
    else
        child_window::keyPressEvent(event);
}

}  // namespace corvane
