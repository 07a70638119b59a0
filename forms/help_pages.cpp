#include "forms/help_pages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

namespace corvane {

namespace {

constexpr int words_before = 12;  // of an excerpt
constexpr int words_around = 60;

QString content_of(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString plain(const QString& marked_up) {
    return QTextDocumentFragment::fromHtml(marked_up).toPlainText().simplified();
}

}  // namespace

help_pages::help_pages(QString folder) : folder_(std::move(folder)) {
    static const QRegularExpression entry(
        QStringLiteral("<h2>(?<group>.*?)</h2>|<a href=\"(?<file>[^\"]*)\">(?<title>.*?)</a>"));
    QString group;
    auto each = entry.globalMatch(content_of(QDir(folder_).filePath(QLatin1String(contents_file))));
    while (each.hasNext()) {
        const QRegularExpressionMatch found = each.next();
        if (found.capturedLength(QStringLiteral("group")) > 0)
            group = plain(found.captured(QStringLiteral("group")));
        else
            pages_.push_back({found.captured(QStringLiteral("file")),
                              plain(found.captured(QStringLiteral("title"))), group});
    }
}

const QString& help_pages::text_of(std::size_t page) {
    texts_.resize(pages_.size());
    QString& text = texts_[page];
    if (text.isNull()) text = plain(content_of(QDir(folder_).filePath(pages_[page].file))) + QLatin1Char(' ');
    return text;
}

QString help_pages::excerpt_of(std::size_t page, const QString& word) {
    const QString& text = text_of(page);
    const qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive);
    if (at < 0) return text.left(words_around).trimmed();
    const qsizetype start = std::max<qsizetype>(0, at - words_before);
    const QString part = text.mid(start, words_around).trimmed();
    return start > 0 ? QStringLiteral("…") + part : part;
}

std::vector<help_hit> help_pages::search(const QString& words) {
    const QStringList asked = words.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    struct weighed {
        std::size_t page;
        qsizetype weight;
        QString word;  // the longest that was found
    };
    std::vector<weighed> found;
    qsizetype whole = 0;
    for (const QString& word : asked) whole += word.size();
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        weighed hit{page, 0, {}};
        for (const QString& word : asked) {
            if (!text_of(page).contains(word, Qt::CaseInsensitive)) continue;
            hit.weight += word.size();
            if (word.size() > hit.word.size()) hit.word = word;
        }
        if (hit.weight == 0) continue;
        const bool in_title = pages_[page].title.contains(hit.word, Qt::CaseInsensitive);
        hit.weight = 2 * hit.weight + (in_title ? 1 : 0);
        found.push_back(hit);
    }
    const bool any_whole =
        std::any_of(found.begin(), found.end(), [&](const weighed& hit) { return hit.weight >= 2 * whole; });
    if (any_whole) std::erase_if(found, [&](const weighed& hit) { return hit.weight < 2 * whole; });
    std::stable_sort(found.begin(), found.end(),
                     [](const weighed& left, const weighed& right) { return left.weight > right.weight; });
    std::vector<help_hit> hits;
    hits.reserve(found.size());
    for (const weighed& hit : found) hits.push_back({hit.page, excerpt_of(hit.page, hit.word)});
    return hits;
}

}  // namespace corvane
