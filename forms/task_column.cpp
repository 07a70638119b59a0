#include "forms/task_column.h"

#include <QIcon>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/main_form.h"
#include "core/task_table.h"
#include "forms/shown_text.h"

namespace corvane {

namespace {

// A line stands above these: showing results, removing, empty directories.
bool begins_group(const std::string& picture) {
    return picture == "Picture4" || picture == "Picture5" || picture == "Picture6";
}

QFrame* separator(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Mid);
    line->setFixedHeight(9);
    return line;
}

}  // namespace

task_column::task_column(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : QFrame(parent), form_(form) {
    setObjectName(QStringLiteral("task_column"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 10, 8, 10);
    layout->setSpacing(4);
    for (const task_entry& task : task_table()) {
        const control* const picture = form_.find(task.picture);
        if (picture == nullptr || task.label < 0) continue;
        if (begins_group(picture->name())) layout->addWidget(separator(this));
        auto* button = new QToolButton(this);
        button->setObjectName(QString::fromStdString(picture->name()));
        button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromStdString(picture->name()))));
        button->setIconSize(QSize(28, 28));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setMinimumHeight(42);
        connect(button, &QToolButton::clicked, this,
                [act, handler = picture->name() + "_Click"] { act(handler); });
        layout->addWidget(button);
        buttons_.push_back({button, picture, form_.labels[static_cast<std::size_t>(task.label)]});
    }
    layout->addStretch();
    sync();
}

void task_column::sync() {
    for (const task_button& task : buttons_) {
        const QString caption = QLatin1String("  ") + shown_text(task.label->caption);
        if (task.button->text() != caption) task.button->setText(caption);
        const QString tip = shown_text(task.picture->tooltip).remove(QLatin1Char('\r'));
        if (task.button->toolTip() != tip) task.button->setToolTip(tip);
        if (task.button->isEnabled() != task.picture->enabled) task.button->setEnabled(task.picture->enabled);
    }
}

}  // namespace corvane
