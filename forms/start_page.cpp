#include "forms/start_page.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane {

namespace {

struct step {
    const char* picture;
    const char* title;
    const char* text;
};

constexpr step steps[] = {
    {"Picture1", "1  选择目录", "选中要清理的磁盘或目录，可以选多个。"},
    {"Picture2", "2  文件搜索", "列出所选目录中的全部文件。"},
    {"Picture3", "3  查相同文件", "找出内容相同的文件，成对显示，由您决定去留。"},
};

}  // namespace

start_page::start_page(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("start_page"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* outer = new QHBoxLayout(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(18);
    auto* title = new QLabel(QStringLiteral("找出重复的文件，腾出磁盘空间"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    title->setFont(large);
    title->setForegroundRole(QPalette::Text);
    column->addStretch(2);
    column->addWidget(title);
    column->addSpacing(8);
    for (const step& each : steps) {
        auto* row = new QHBoxLayout;
        row->setSpacing(16);
        auto* picture = new QLabel(this);
        picture->setPixmap(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(each.picture)))
                               .pixmap(QSize(40, 40), devicePixelRatioF()));
        auto* words = new QVBoxLayout;
        words->setSpacing(2);
        auto* heading = new QLabel(QString::fromUtf8(each.title), this);
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
        heading->setForegroundRole(QPalette::Text);
        auto* text = new QLabel(QString::fromUtf8(each.text), this);
        text->setForegroundRole(QPalette::Text);
        words->addWidget(heading);
        words->addWidget(text);
        row->addWidget(picture, 0, Qt::AlignVCenter);
        row->addLayout(words);
        row->addStretch();
        column->addLayout(row);
    }
    column->addStretch(3);
    outer->addStretch(1);
    outer->addLayout(column);
    outer->addStretch(1);
}

}  // namespace corvane
