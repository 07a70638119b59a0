#include "forms/directory_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "forms/directory_model.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/path_box.h"
#include "forms/screen_text.h"
#include "forms/selected_list.h"

namespace corvane {

namespace {

constexpr QSize first_size(760, 520);

QLabel* heading(const char* words, QWidget* buddy) {
    auto* label = new QLabel(own_line(words));
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
    flight_ = new QLabel(this);
    name_after(flight_, form_.Text_animal);
    flight_->setTextFormat(Qt::PlainText);
    flight_->setFrameShape(QFrame::Box);
    flight_->setAutoFillBackground(true);
    flight_->setForegroundRole(QPalette::ToolTipText);
    flight_->setBackgroundRole(QPalette::ToolTipBase);
    flight_->setAttribute(Qt::WA_TransparentForMouseEvents);
    flight_->hide();
    resize(first_size);
}

QWidget* directory_window::make_pick_side() {
    auto* side = new QWidget(this);
    QWidget* path_row = make_path_row();
    volume_list_ = new pick_list(form_.List_disk_sele, side);
    volume_list_->setMaximumHeight(4 * (fontMetrics().height() + 8));
    tree_ = new pick_tree(side);
    name_after(tree_, form_.Dir_select);
    tree_->setModel(directories_);
    tree_->setItemDelegate(new list_box_painter(tree_));
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setExpandsOnDoubleClick(false);
    hidden_ = new QCheckBox(side);
    name_after(hidden_, form_.Check_hidden);
    hidden_->setText(own_caption(form_.Check_hidden.caption, 'D'));
    connect(hidden_, &QCheckBox::toggled, this, [this](bool shown) {
        form_.Check_hidden.value = shown ? 1 : 0;
        show_directory();
    });
    note_ = new QLabel(own_line(form_.Label1.caption), side);
    name_after(note_, form_.Label1);
    note_->setWordWrap(true);
    auto* layout = column_layout(side);
    layout->addWidget(path_row);
    layout->addWidget(heading("驱动器(&V)", volume_list_));
    layout->addWidget(volume_list_);
    layout->addSpacing(4);
    layout->addWidget(heading("文件目录(&T)", tree_));
    layout->addWidget(tree_, 1);
    layout->addWidget(hidden_);
    layout->addWidget(note_);
    connect_picks();
    return side;
}

void directory_window::connect_picks() {
    form_.tree.paths = [this](int first, int last) {
        std::vector<std::string> paths;
        for (const QModelIndex& row : tree_->rows(first, last)) paths.push_back(directories_->path(row));
        return paths;
    };
    tree_->opened = [this] { act_("目录选择.Command_open_Click"); };
    const auto in_window = [this](const QAbstractScrollArea& view, QPoint place) {
        return view.viewport()->mapTo(this, place) * twips_per_pixel;
    };
    tree_->pressed = [this, in_window](mouse_button button, int shift, int row, QPoint place) {
        const QPoint at = in_window(*tree_, place);
        tell_places();
        form_.Dir_select_MouseDown(button, shift, row, at.x(), at.y());
        show_flight();
    };
    volume_list_->pressed = [this, in_window](mouse_button button, int shift, int row, QPoint place) {
        const QPoint at = in_window(*volume_list_, place);
        tell_places();
        form_.List_disk_sele_MouseDown(button, shift, row, at.x(), at.y());
        show_flight();
    };
    connect(volume_list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!current.isValid() || showing_) return;
                form_.List_disk_sele_Click(current.row());
                show_directory();
            });
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { take_current(current); });
    connect(&flight_clock_, &QTimer::timeout, this, [this] {
        form_.Timer1_Timer();
        show_flight();
    });
}

QWidget* directory_window::make_selected_side() {
    auto* side = new QWidget(this);
    selected_ = new selected_list(form_, act_, side);
    auto* layout = column_layout(side);
    layout->addWidget(heading("选中目录(&L)", selected_));
    layout->addWidget(selected_, 1);
    layout->addWidget(make_list_buttons());
    nested_ = new QLabel(side);
    name_after(nested_, form_.Label_nested);
    nested_->setTextFormat(Qt::PlainText);
    nested_->setWordWrap(true);
    nested_->hide();
    layout->addWidget(nested_);
    auto* note = new QLabel(own_line("前面勾选的目录受保护:照样比对,从不标记,从不删除."), side);
    note->setObjectName(QStringLiteral("protection_note"));
    note->setWordWrap(true);
    layout->addWidget(note);
    return side;
}

QWidget* directory_window::make_buttons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    const bound_button row_buttons[] = {{nullptr, &form_.Command_sele, "选中(&S)", false},
                                        {nullptr, &form_.Command_open, "打开(&E)", false},
                                        {nullptr, &form_.direction_help, "帮助F1(&H)", false},
                                        {nullptr, &form_.cmd_dir_firm, "执行(&R)", true},
                                        {nullptr, &form_.Command34, "确定(&O)", true},
                                        {nullptr, &form_.cmd_dir_discard, "放弃(&C)", false}};
    for (const bound_button& bound : row_buttons) {
        if (bound.model == &form_.cmd_dir_firm) layout->addStretch(1);
        layout->addWidget(add_button(bound, row));
    }
    return row;
}

QPushButton* directory_window::add_button(const bound_button& bound, QWidget* parent) {
    const std::string& name = bound.model->name();
    auto* button = new QPushButton(own_line(bound.caption), parent);
    buttons_.push_back({button, bound.model, bound.caption, bound.waits_for_task, bound.model->caption});
    name_after(button, *bound.model);
    button->setAutoDefault(false);
    button->setMinimumWidth(84);
    connect(button, &QPushButton::clicked, this, [this, name] { act_("目录选择." + name + "_Click"); });
    watch_button(button, *bound.model);
    return button;
}

// Where the lists stand: the caption flies between them.
void directory_window::tell_places() {
    const auto told = [this](const QWidget* view, control& model) {
        const QPoint corner = view->mapTo(this, QPoint(0, 0)) * twips_per_pixel;
        model.place = {corner.x(), corner.y(), view->width() * twips_per_pixel,
                       view->height() * twips_per_pixel};
    };
    told(selected_, form_.list_selected_dir);
    told(tree_, form_.Dir_select);
    form_.row_height = std::max(255, selected_->sizeHintForRow(0) * twips_per_pixel);
}

void directory_window::show_flight() {
    const control& caption = form_.Text_animal;
    if (caption.visible) {
        flight_->setText(screen_lines(caption.text));
        const int height = caption.place.height / twips_per_pixel + 2 * flight_->frameWidth();
        flight_->setGeometry(caption.place.left / twips_per_pixel, caption.place.top / twips_per_pixel,
                             std::min(flight_->sizeHint().width(), width() / 2),
                             std::min(height, this->height()));
        flight_->raise();
    }
    mirror_visible(flight_, caption.visible);
    const bool runs = form_.Timer1.enabled;
    if (runs && !flight_clock_.isActive()) flight_clock_.start(form_.Timer1.interval);
    if (runs || !flight_clock_.isActive()) return;
    flight_clock_.stop();
    selected_->sync();
    selected_->scrollToBottom();
}

void directory_window::show_directory() {
    showing_ = true;
    directories_->show_hidden(form_.Check_hidden.value != 0);
    directories_->set_root(form_.tree_root());
    QModelIndex row = directories_->find(form_.Dir_select.text);
    if (!row.isValid() && !directories_->hidden_shown()) {
        // The directory may lie in a hidden one, which then has to be shown.
        directories_->show_hidden(true);
        row = directories_->find(form_.Dir_select.text);
        if (row.isValid())
            form_.Check_hidden.value = 1;
        else
            directories_->show_hidden(false);
    }
    const QSignalBlocker silent(hidden_);
    mirror_checked(hidden_, form_.Check_hidden.value != 0);
    if (!row.isValid()) row = directories_->index(0, 0);
    for (QModelIndex above = row; above.isValid(); above = above.parent()) tree_->expand(above);
    tree_->setCurrentIndex(row);
    tree_->scrollTo(row);
    showing_ = false;
    take_current(row);
}

void directory_window::take_current(const QModelIndex& current) {
    if (!current.isValid() || showing_) return;
    form_.Dir_select.text = shown_directory_ = directories_->path(current);
    form_.Dir_select_Change();
}

void directory_window::sync(bool tasks_locked) {
    volume_list_->sync();
    selected_->sync();
    if (!isHidden()) tell_places();
    show_flight();
    if (form_.visible && !isHidden() && form_.Dir_select.text != shown_directory_) show_directory();
    mirror_tooltip(selected_, form_.list_selected_dir.tooltip);
    mirror_tooltip(volume_list_, form_.List_disk_sele.tooltip);
    mirror_tooltip(tree_, form_.Dir_select.tooltip);
    toggle_directory();
    mirror_text(note_, own_line(form_.Label1.caption));
    mirror_text(nested_, own_line(form_.Label_nested.caption));
    mirror_visible(nested_, !form_.Label_nested.caption.empty());
    mirror_tooltip(path_, form_.Text_path.tooltip);
    if (form_.Text_path.text != shown_path_) {
        shown_path_ = form_.Text_path.text;
        path_->setText(QString::fromStdString(shown_path_));
    }
    for (const bound_button& bound : buttons_) {
        const bool is_design = bound.model->caption == bound.design;
        mirror_text(bound.button, own_line(is_design ? bound.caption : bound.model->caption));
        mirror_enabled(bound.button, bound.model->enabled && !(tasks_locked && bound.waits_for_task));
        mirror_tooltip(bound.button, bound.model->tooltip);
    }
    sync_window();
}

void directory_window::before_open() {
    volume_list_->sync();
    showing_ = true;
    volume_list_->setCurrentIndex(volume_list_->model()->index(main_.state.disk_index, 0));
    showing_ = false;
    show_directory();
    tree_->setFocus();
}

void directory_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1)
        act_("目录选择.direction_help_Click");
    else
        child_window::keyPressEvent(event);
}

}  // namespace corvane
