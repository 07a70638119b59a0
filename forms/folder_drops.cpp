#include "forms/folder_drops.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QShortcut>
#include <utility>

#include "forms/path_box.h"

namespace corvane {

folder_drops::folder_drops(QWidget& window, std::function<void(const std::string&, bool)> drop,
                           std::function<void(const std::string&)> paste)
    : QObject(&window), drop_(std::move(drop)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    auto* key = new QShortcut(QKeySequence::Paste, &window);
    connect(key, &QShortcut::activated, this, [take = std::move(paste)] {
        if (const QMimeData* data = QGuiApplication::clipboard()->mimeData()) take(given_text(*data));
    });
}

bool folder_drops::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto& brought = static_cast<QDropEvent&>(*event);
    // Behind a box nothing is taken.
    if (!brought.mimeData()->hasUrls() || QApplication::activeModalWidget() != nullptr) {
        brought.ignore();
        return true;
    }
    // Always a copy: who hears that a directory was moved here deletes it where it was.
    brought.setDropAction(Qt::CopyAction);
    brought.accept();
    if (type != QEvent::Drop) return true;
    // The other program waits for the end of the event, and what comes now may ask the user something.
    const std::string text = given_text(*brought.mimeData());
    const bool joins = brought.modifiers().testFlag(Qt::ControlModifier);
    QMetaObject::invokeMethod(
        this, [this, text, joins] { drop_(text, joins); }, Qt::QueuedConnection);
    return true;
}

}  // namespace corvane
