#include "forms/preview_side.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "core/text/text_format.h"
#include "forms/colours.h"
#include "forms/fonts.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "platform/file_time.h"

namespace corvane {

preview_side::preview_side(Tavrel& form, const QString& name, QWidget* parent)
    : QFrame(parent),
      form_(form),
      name_(new QLabel(this)),
      facts_(new QLabel(this)),
      content_(new QStackedWidget(this)),
      picture_(new picture_view(content_)),
      text_(new QPlainTextEdit(content_)),
      message_(new QLabel(content_)) {
    setObjectName(name);
    setFrameShape(QFrame::StyledPanel);
    for (QLabel* label : {name_, facts_, message_}) label->setTextFormat(Qt::PlainText);
    name_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    name_->setObjectName(name + QStringLiteral("_name"));
    facts_->setObjectName(name + QStringLiteral("_facts"));
    facts_->setWordWrap(true);
    facts_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    message_->setObjectName(name + QStringLiteral("_message"));
    message_->setWordWrap(true);
    message_->setAlignment(Qt::AlignCenter);
    text_->setObjectName(name + QStringLiteral("_text"));
    text_->setReadOnly(true);
    text_->setUndoRedoEnabled(false);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(even_font());
    text_->setFrameShape(QFrame::NoFrame);
    text_->setTabChangesFocus(true);
    text_->setAccessibleName(own_line("预览"));
    picture_->setObjectName(name + QStringLiteral("_picture"));
    picture_->setAccessibleName(own_line("预览"));
    for (QWidget* page :
         {static_cast<QWidget*>(message_), static_cast<QWidget*>(picture_), static_cast<QWidget*>(text_)})
        content_->addWidget(page);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->setSpacing(4);
    layout->addWidget(name_);
    layout->addWidget(facts_);
    layout->addWidget(content_, 1);
}

void preview_side::show_name() {
    const QString whole = screen_line(path_);
    name_->setText(name_->fontMetrics().elidedText(whole, Qt::ElideMiddle, std::max(name_->width(), 40)));
    if (name_->toolTip() != whole) name_->setToolTip(whole);
}

void preview_side::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    show_name();
}

void preview_side::show_message(const QString& words) {
    message_->setText(words);
    content_->setCurrentWidget(message_);
}

void preview_side::begin(const std::string& path, const std::string& length) {
    path_ = path;
    length_ = length;
    show_name();
    facts_->clear();
    text_->clear();
    picture_->show_picture({});
    show_message(own_line("正在读…"));
}

QString preview_side::date_words(const file_facts& facts) const {
    const local_time at = form_.outside.screen.local_date(to_unix_seconds({facts.date_high, facts.date_low}));
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(at.year)
        .arg(at.month, 2, 10, QLatin1Char('0'))
        .arg(at.day, 2, 10, QLatin1Char('0'))
        .arg(at.hour, 2, 10, QLatin1Char('0'))
        .arg(at.minute, 2, 10, QLatin1Char('0'))
        .arg(at.second, 2, 10, QLatin1Char('0'));
}

void preview_side::show_answer(const preview_answer& answer) {
    const file_preview& file = answer.file;
    QStringList facts;
    std::string heading = file.heading;
    if (!answer.picture.image.isNull() && file.kind == preview_kind::picture)
        heading = "图片 " + std::to_string(answer.picture.full_size.width()) + " × " +
                  std::to_string(answer.picture.full_size.height());
    if (!heading.empty()) facts.append(own_line(heading));
    if (!file.tags.empty()) facts.append(screen_line(file.tags));
    if (file.facts.exists) {
        const std::string bytes = group_count(static_cast<double>(file.facts.length));
        facts.append(own_line("长度 " + bytes + " 字节"));
        facts.append(own_line("修改 " + date_words(file.facts).toStdString()));
        if (!answer.owner.empty()) facts.append(own_line("所有者 " + answer.owner));
        if (file.facts.link_count > 1)
            facts.append(own_line("硬链接 " + std::to_string(file.facts.link_count) + " 个"));
    } else if (!length_.empty() && file.note.empty()) {
        facts.append(own_line("长度 " + length_ + " 字节"));
    }
    if (!file.note.empty()) facts.append(own_line(file.note));
    facts_->setText(facts.join(QStringLiteral("   ")));
    if (!answer.picture.image.isNull()) {
        picture_->show_picture(answer.picture.image);
        content_->setCurrentWidget(picture_);
    } else if (file.kind == preview_kind::picture) {
        show_message(own_line("这个图片不能显示: 损坏、太大,或不认识"));
    } else if (!file.text.empty()) {
        text_->setPlainText(QString::fromStdString(file.text));
        content_->setCurrentWidget(text_);
    } else {
        show_message(own_line(file.note.empty() ? file.heading : file.note));
    }
}

QString preview_side::text() const {
    return content_->currentWidget() == text_      ? text_->toPlainText()
           : content_->currentWidget() == message_ ? message_->text()
                                                   : QString();
}

QString preview_side::facts() const {
    return facts_->text();
}

}  // namespace corvane
