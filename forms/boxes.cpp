#include "forms/boxes.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "forms/colours.h"
#include "forms/form_parts.h"
#include "forms/help_keys.h"
#include "forms/own_words.h"
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

// Escape and the close button leave it without an answer, whatever its buttons are.
class question_box : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Cancel))
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        event->accept();
        reject();
    }
};

void show_words(QMessageBox& box, const message& shown) {
    box.setWindowTitle(own_line(shown.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(own_lines(shown.text));
    box.setIcon(icon_of(shown.icon));
    box.setProperty(help_keys::context_property, shown.help_context);
    if (shown.detail.empty()) return;
    box.setInformativeText(own_lines(shown.detail));
    // The box has no setter for it, and a path may look like marked-up text.
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
}

// Its buttons are described by what the box is about.
void describe(QMessageBox& box) {
    describe_parts(box, box.text());
}

void add_help(QMessageBox& box, const message& shown, const std::function<void(int)>& open_topic) {
    if (!shown.help_button) return;
    QAbstractButton* help = box.addButton(own_line("帮助"), QMessageBox::HelpRole);
    // The box stays open while its help is read.
    help->disconnect();
    QObject::connect(help, &QAbstractButton::clicked, &box, [&open_topic, topic = shown.help_context % 100] {
        if (open_topic) open_topic(topic);
    });
}

// The letters stay what they are under other words: the text of a question may name them.
QString lettered(const std::string& words, const char* usual, char letter) {
    return own_caption(words.empty() ? usual : words, letter);
}

box_answer ask_in_box(QWidget* owner, const message& shown, const std::function<void(int)>& open_topic) {
    question_box box(owner);
    show_words(box, shown);
    QPushButton* yes = box.addButton(lettered(shown.yes_words, "是", 'Y'), QMessageBox::YesRole);
    QPushButton* no = box.addButton(lettered(shown.no_words, "否", 'N'), QMessageBox::NoRole);
    if (!shown.cancel_words.empty()) {
        box.addButton(own_line(shown.cancel_words), QMessageBox::RejectRole);
    }
    box.setDefaultButton(shown.default_answer == box_answer::no ? no : yes);
    add_help(box, shown, open_topic);
    describe(box);
    box.exec();
    if (box.clickedButton() == yes) return box_answer::yes;
    return box.clickedButton() == no ? box_answer::no : box_answer::dismissed;
}

}  // namespace

box_answer show_message_box(QWidget* owner, const message& shown,
                            const std::function<void(int)>& open_topic) {
    if (shown.buttons == box_buttons::yes_no) return ask_in_box(owner, shown, open_topic);
    QMessageBox box(owner);
    show_words(box, shown);
    box.setEscapeButton(box.addButton(own_line("确定"), QMessageBox::AcceptRole));
    add_help(box, shown, open_topic);
    describe(box);
    box.exec();
    return box_answer::ok;
}

std::optional<std::string> ask_for_text(QWidget* owner, const std::string& title, const std::string& prompt,
                                        const std::string& initial) {
    QInputDialog dialog(owner);
    dialog.setWindowTitle(own_line(title));
    dialog.setLabelText(own_lines(prompt));
    dialog.setTextValue(QString::fromStdString(initial));
    dialog.setOkButtonText(own_line("确定"));
    dialog.setCancelButtonText(own_line("取消"));
    dialog.resize(420, dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.textValue().toStdString();
}

std::optional<std::string> ask_for_file(QWidget* owner, const std::string& title,
                                        const std::string& initial) {
    const QString chosen =
        QFileDialog::getOpenFileName(owner, own_line(title), system_path(initial), own_line("全部文件 (*)"));
    if (chosen.isEmpty()) return {};
    return program_path(chosen);
}

std::optional<std::string> ask_for_new_file(QWidget* owner, const std::string& title,
                                            const std::string& initial) {
    const QString chosen =
        QFileDialog::getSaveFileName(owner, own_line(title), system_path(initial), own_line("全部文件 (*)"));
    if (chosen.isEmpty()) return {};
    return program_path(chosen);
}

std::optional<std::string> ask_for_files(QWidget* owner, const std::string& title, const std::string& filter,
                                         const std::string& directory) {
    const QString words = QString::fromStdString(filter.substr(0, filter.find('|')));
    QString pattern = QString::fromStdString(filter.substr(filter.find('|') + 1));
    if (pattern == QStringLiteral("*.*")) pattern = QStringLiteral("*");  // names without a dot, too
    const QStringList chosen = QFileDialog::getOpenFileNames(owner, own_line(title), system_path(directory),
                                                             words + QStringLiteral(" (%1)").arg(pattern));
    if (chosen.isEmpty()) return {};
    const QFileInfo first(chosen.front());
    std::string answer = program_path(first.path());
    for (const QString& path : chosen) (answer += '\0') += program_path(QFileInfo(path).fileName());
    return answer;
}

std::optional<int> ask_for_colour(QWidget* owner, const std::string& title, int initial) {
    const QColor chosen = QColorDialog::getColor(from_blue_green_red(initial), owner, own_line(title));
    if (!chosen.isValid()) return {};
    return to_blue_green_red(chosen);
}

}  // namespace corvane
