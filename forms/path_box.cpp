#include "forms/path_box.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QCompleter>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QStringListModel>

#include "search/path_completion.h"

namespace corvane {

namespace {
constexpr std::size_t most_completions = 50;
}

std::string given_text(const QMimeData& data) {
    const QString urls = QStringLiteral("text/uri-list");
    return (data.hasFormat(urls) ? data.data(urls) : data.text().toUtf8()).toStdString();
}

path_box::path_box(file_system& files, QWidget* parent)
    : QLineEdit(parent), files_(files), completions_(new QStringListModel(this)) {
    auto* completer = new QCompleter(completions_, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    setCompleter(completer);
    connect(this, &QLineEdit::textEdited, this, [this] { complete(); });
}

void path_box::complete() {
    QStringList found;
    const QByteArray typed = text().toUtf8();
    for (const std::string& each : path_completions(
             files_, {typed.constData(), static_cast<std::size_t>(typed.size())}, most_completions))
        found.append(QString::fromStdString(each));
    completions_->setStringList(found);
}

void path_box::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        QAbstractItemView* popup = completer()->popup();
        // What is chosen among the completions comes into the box first.
        if (popup->isVisible() && popup->selectionModel()->hasSelection()) return event->ignore();
        popup->hide();
        if (given && !text().trimmed().isEmpty()) given(text().toStdString());
        return event->accept();
    }
    if (event->matches(QKeySequence::Paste)) {
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        if (copied != nullptr && given &&
            (copied->hasUrls() || copied->text().trimmed().contains(QLatin1Char('\n')))) {
            given(given_text(*copied));
            return event->accept();
        }
    }
    QLineEdit::keyPressEvent(event);
}

}  // namespace corvane
