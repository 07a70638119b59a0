#include "forms/selected_list.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "forms/colours.h"
#include "forms/path_names.h"

namespace corvane {

selected_list::selected_list(file_system& files, directory_form& form,
                             std::function<void(const std::string&)> act, QWidget* parent)
    : list_box_view(form.list_selected_dir, parent), files_(files), form_(form), act_(std::move(act)) {
    setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::DropOnly);
}

void selected_list::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !row.isValid()) return;
    form_.remove_row(static_cast<std::size_t>(row.row()));
    sync();
}

void selected_list::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete)
        act_("目录选择.move_selected_dir");
    else
        list_box_view::keyPressEvent(event);
}

void selected_list::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const QAction* remove = menu.addAction(QStringLiteral("移去选中的项目"));
    const QAction* clear = menu.addAction(QStringLiteral("清空列表"));
    const QAction* chosen = menu.exec(event->globalPos());
    if (chosen == remove) act_("目录选择.move_selected_dir");
    if (chosen == clear) act_("目录选择.清空列表M");
}

void selected_list::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void selected_list::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void selected_list::dropEvent(QDropEvent* event) {
    if (!event->mimeData()->hasUrls()) return;
    event->acceptProposedAction();
    if (!event->modifiers().testFlag(Qt::ControlModifier)) form_.clear_list();
    std::vector<std::string> directories;
    for (const QUrl& place : event->mimeData()->urls()) {
        if (!place.isLocalFile()) continue;
        std::string path = program_path(place.toLocalFile());
        while (path.size() > 1 && path.back() == files_.separator()) path.pop_back();
        if (files_.attributes(path).directory) directories.push_back(std::move(path));
    }
    form_.add_paths(directories);
    sync();
}

void selected_list::paintEvent(QPaintEvent* event) {
    list_box_view::paintEvent(event);
    if (model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(quiet_text(palette()));
    painter.drawText(
        viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
        QStringLiteral("还没有选中目录。\n在左边双击一个目录，它就会列在这里；\n也可以把文件夹拖进来。"));
}

}  // namespace corvane
