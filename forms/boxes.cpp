#include "forms/boxes.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include "forms/colours.h"
#include "forms/path_names.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

QMessageBox::Icon icon_of(box_icon icon) {
    switch (icon) {
        case box_icon::information:
            return QMessageBox::Information;
        case box_icon::exclamation:
            return QMessageBox::Warning;
        case box_icon::question:
            return QMessageBox::Question;
        default:
            return QMessageBox::NoIcon;
    }
}

}  // namespace

box_answer show_message_box(QWidget* owner, const message& shown,
                            const std::function<void(int)>& open_topic) {
    const bool asks = shown.buttons == box_buttons::yes_no;
    QMessageBox box(owner);
    box.setWindowTitle(screen_line(shown.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(screen_lines(shown.text));
    box.setIcon(icon_of(shown.icon));
    const QAbstractButton* yes = nullptr;
    if (asks) {
        yes = box.addButton(QStringLiteral("是(&Y)"), QMessageBox::YesRole);
        box.setEscapeButton(box.addButton(QStringLiteral("否(&N)"), QMessageBox::NoRole));
    } else {
        box.setEscapeButton(box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole));
    }
    if (shown.help_button) {
        QAbstractButton* help = box.addButton(QStringLiteral("帮助"), QMessageBox::HelpRole);
        // The box stays open while its help is read.
        help->disconnect();
        QObject::connect(help, &QAbstractButton::clicked, &box,
                         [&open_topic, topic = shown.help_context % 100] {
                             if (open_topic) open_topic(topic);
                         });
    }
    box.exec();
    if (!asks) return box_answer::ok;
    return box.clickedButton() == yes ? box_answer::yes : box_answer::no;
}

std::optional<std::string> ask_for_text(QWidget* owner, const std::string& title, const std::string& prompt,
                                        const std::string& initial) {
    QInputDialog dialog(owner);
    dialog.setWindowTitle(screen_line(title));
    dialog.setLabelText(screen_lines(prompt));
    dialog.setTextValue(QString::fromStdString(initial));
    dialog.setOkButtonText(QStringLiteral("确定"));
    dialog.setCancelButtonText(QStringLiteral("取消"));
    dialog.resize(420, dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.textValue().toStdString();
}

std::optional<std::string> ask_for_file(QWidget* owner, const std::string& title,
                                        const std::string& initial) {
    const QString chosen = QFileDialog::getOpenFileName(owner, screen_line(title), system_path(initial),
                                                        QStringLiteral("全部文件 (*)"));
    if (chosen.isEmpty()) return {};
    return program_path(chosen);
}

std::optional<std::string> ask_for_files(QWidget* owner, const std::string& title, const std::string& filter,
                                         const std::string& directory) {
    const QString words = QString::fromStdString(filter.substr(0, filter.find('|')));
    QString pattern = QString::fromStdString(filter.substr(filter.find('|') + 1));
    if (pattern == QStringLiteral("*.*")) pattern = QStringLiteral("*");  // names without a dot, too
    const QStringList chosen = QFileDialog::getOpenFileNames(
        owner, screen_line(title), system_path(directory), words + QStringLiteral(" (%1)").arg(pattern));
    if (chosen.isEmpty()) return {};
    const QFileInfo first(chosen.front());
    std::string answer = program_path(first.path());
    for (const QString& path : chosen) (answer += '\0') += program_path(QFileInfo(path).fileName());
    return answer;
}

std::optional<int> ask_for_colour(QWidget* owner, const std::string& title, int initial) {
    const QColor chosen = QColorDialog::getColor(from_blue_green_red(initial), owner, screen_line(title));
    if (!chosen.isValid()) return {};
    return to_blue_green_red(chosen);
}

}  // namespace corvane
