#include "forms/option_list_view.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>
#include <algorithm>

#include "forms/colours.h"
#include "forms/path_names.h"

namespace corvane {

namespace {

// Rows with room between their check marks.
class roomy_rows : public list_box_painter {
  public:
    using list_box_painter::list_box_painter;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return list_box_painter::sizeHint(option, index) + QSize(0, row_room);
    }

  private:
    static constexpr int row_room = 7;
};

}  // namespace

option_list_view::option_list_view(list_box& box, bool with_check_marks, QWidget* parent)
    : list_box_view(box, parent, with_check_marks), with_check_marks_(with_check_marks) {
    setItemDelegate(new roomy_rows(this));
    // A list with check marks is filled by drops; the other one is the source.
    setAcceptDrops(with_check_marks);
    setDragEnabled(!with_check_marks);
    setDragDropMode(with_check_marks ? QAbstractItemView::DropOnly : QAbstractItemView::DragOnly);
    setDefaultDropAction(Qt::CopyAction);
}

void option_list_view::sync_list() {
    take_look();
    const int before = model()->rowCount();
    const int current = currentIndex().row();
    const int scrolled = verticalScrollBar()->value();
    sync();
    const int rows = model()->rowCount();
    // The keyboard and the view go on where they were; what has just been added stands at the end.
    if (current >= 0 && !currentIndex().isValid() && rows > 0)
        selectionModel()->setCurrentIndex(model()->index(std::min(current, rows - 1), 0),
                                          QItemSelectionModel::NoUpdate);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrolled);
    if (isVisible() && rows > before) scrollToBottom();
}

void option_list_view::take_look() {
    if (box_.font_size > 0 && font().pointSize() != box_.font_size) {
        QFont wanted = font();
        wanted.setPointSize(box_.font_size);
        setFont(wanted);
    }
    // The colours that stand until the user has chosen others are those of the desktop.
    if (box_.back_colour == button_face || (box_.back_colour == 0xFFFFFF && box_.fore_colour == 0)) {
        if (testAttribute(Qt::WA_SetPalette)) setPalette(QPalette());
        return;
    }
    const QColor back = from_blue_green_red(box_.back_colour);
    const QColor fore = from_blue_green_red(box_.fore_colour);
    QPalette colours = palette();
    if (colours.color(QPalette::Base) == back && colours.color(QPalette::Text) == fore) return;
    colours.setColor(QPalette::Base, back);
    colours.setColor(QPalette::Text, fore);
    setPalette(colours);
}

// All selected rows get the opposite of the first one's mark.
void option_list_view::toggle_selected() {
    const std::vector<list_box::row>& rows = box_.rows();
    const auto first =
        std::find_if(rows.begin(), rows.end(), [](const list_box::row& row) { return row.selected; });
    if (first == rows.end()) return;
    const Qt::CheckState wanted = first->checked ? Qt::Unchecked : Qt::Checked;
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (rows[row].selected)
            model()->setData(model()->index(static_cast<int>(row), 0), wanted, Qt::CheckStateRole);
}

void option_list_view::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && remove_selected)
        remove_selected();
    else if (event->key() == Qt::Key_Space && with_check_marks_)
        toggle_selected();
    else
        list_box_view::keyPressEvent(event);
}

void option_list_view::contextMenuEvent(QContextMenuEvent* event) {
    if (!menu) return;
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex());
        place =
            viewport()->mapToGlobal(row.isValid() ? QPoint(row.left() + 16, row.bottom()) : QPoint(16, 16));
    }
    menu->popup(place);
}

bool option_list_view::takes(const QDropEvent& event) const {
    const QMimeData& carried = *event.mimeData();
    if (drop_paths && carried.hasUrls()) return true;
    return drop_text && carried.hasFormat(QStringLiteral("text/plain")) && !carried.hasUrls();
}

void option_list_view::dragEnterEvent(QDragEnterEvent* event) {
    if (takes(*event)) event->acceptProposedAction();
}

void option_list_view::dragMoveEvent(QDragMoveEvent* event) {
    if (takes(*event)) event->acceptProposedAction();
}

void option_list_view::dropEvent(QDropEvent* event) {
    if (!takes(*event)) return;
    // A file manager that offers to move must not delete what it has handed over.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (!drop_paths) return drop_text(event->mimeData()->text().toStdString());
    std::vector<std::string> paths;
    for (const QUrl& place : event->mimeData()->urls())
        if (place.isLocalFile()) paths.push_back(program_path(place.toLocalFile()));
    drop_paths(paths);
}

}  // namespace corvane
