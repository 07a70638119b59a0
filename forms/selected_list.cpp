#include "forms/selected_list.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QUrl>
#include <algorithm>

#include "forms/colours.h"
#include "forms/own_words.h"
#include "forms/path_names.h"
#include "forms/screen_text.h"

namespace corvane {

selected_list::selected_list(directory_form& form, std::function<void(const std::string&)> act,
                             QWidget* parent)
    : list_box_view(form.list_selected_dir, parent, true), form_(form), act_(std::move(act)) {
    setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::DropOnly);
}

void selected_list::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !row.isValid()) return;
    // Two quick clicks on the mark are two checks, and remove nothing.
    if (check_place(row).contains(event->position().toPoint()))
        return list_box_view::mouseDoubleClickEvent(event);
    form_.remove_row(static_cast<std::size_t>(row.row()));
    sync();
}

QRect selected_list::check_place(const QModelIndex& row) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(row);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

void selected_list::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Delete) return list_box_view::keyPressEvent(event);
    const int current = currentIndex().row();
    // Without a selection the row that the keys are on is meant.
    if (!selectionModel()->hasSelection() && current >= 0)
        form_.list_selected_dir.select_only(static_cast<std::size_t>(current));
    act_("目录选择.move_selected_dir");
    if (const int rows = model()->rowCount(); current >= 0 && rows > 0)
        selectionModel()->setCurrentIndex(model()->index(std::min(current, rows - 1), 0),
                                          QItemSelectionModel::NoUpdate);
}

void selected_list::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* remove = menu.addAction(own_caption(form_.move_selected_dir.caption, 'M'));
    const QAction* clear = menu.addAction(own_caption(form_.清空列表M.caption, 'C'));
    remove->setShortcut(QKeySequence(Qt::Key_Delete));
    remove->setEnabled(selectionModel()->hasSelection());
    const QAction* chosen = menu.exec(event->globalPos());
    if (chosen == remove) act_("目录选择.move_selected_dir");
    if (chosen == clear) act_("目录选择.清空列表M");
}

// Always a copy: who hears that a directory was moved here deletes it where it was.
void selected_list::accept_as_copy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

void selected_list::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) accept_as_copy(*event);
}

void selected_list::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls()) accept_as_copy(*event);
}

void selected_list::dropEvent(QDropEvent* event) {
    if (!event->mimeData()->hasUrls()) return;
    accept_as_copy(*event);
    std::vector<std::string> paths;
    for (const QUrl& place : event->mimeData()->urls())
        if (place.isLocalFile()) paths.push_back(program_path(place.toLocalFile()));
    form_.drop_paths(paths, event->modifiers().testFlag(Qt::ControlModifier));
    sync();
}

void selected_list::paintEvent(QPaintEvent* event) {
    list_box_view::paintEvent(event);
    if (model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(quiet_text(palette()));
    painter.drawText(
        viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
        own_text("还没有选中目录。\n在左边双击一个目录，它就会列在这里；\n也可以把文件夹拖进来。"));
}

}  // namespace corvane
