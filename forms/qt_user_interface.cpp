#include "forms/qt_user_interface.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QCursor>
#include <QDateTime>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QThread>
#include <chrono>

#include "forms/shown_text.h"

namespace corvane {

namespace {

constexpr std::int64_t turn_pause = 15'000'000;  // nanoseconds

std::int64_t steady_nanoseconds() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

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

local_time from_date_time(const QDateTime& time) {
    return {time.date().year(), time.date().month(),  time.date().day(),
            time.time().hour(), time.time().minute(), time.time().second()};
}

// Only a display that lets programs place the pointer; elsewhere the pointer is the user's alone.
bool pointer_can_be_placed() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

}  // namespace

qt_user_interface::qt_user_interface() = default;

box_answer qt_user_interface::show_message(const message& message) {
    if (ended_) return message.buttons == box_buttons::ok ? box_answer::ok : box_answer::no;
    repaint();
    QMessageBox box(icon_of(message.icon), shown_text(message.title), shown_text(message.text),
                    QMessageBox::NoButton, owner ? owner() : nullptr);
    box.setTextFormat(Qt::PlainText);
    QPushButton* accept;
    QPushButton* refuse = nullptr;
    if (message.buttons == box_buttons::yes_no) {
        accept = box.addButton(QStringLiteral("是(&Y)"), QMessageBox::YesRole);
        refuse = box.addButton(QStringLiteral("否(&N)"), QMessageBox::NoRole);
        box.setEscapeButton(refuse);
    } else {
        accept = box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
        box.setEscapeButton(accept);
    }
    box.setDefaultButton(accept);
    if (message.help_button) {
        QPushButton* help = box.addButton(QStringLiteral("帮助"), QMessageBox::HelpRole);
        help->disconnect();
        QObject::connect(help, &QPushButton::clicked, &box, [this, context = message.help_context] {
            if (open_help) open_help(context);
        });
    }
    box.exec();
    if (message.buttons == box_buttons::ok) return box_answer::ok;
    return box.clickedButton() == accept ? box_answer::yes : box_answer::no;
}

std::optional<std::string> qt_user_interface::ask_text(const std::string& title, const std::string& prompt,
                                                       const std::string& initial) {
    bool accepted = false;
    const QString text =
        QInputDialog::getText(owner ? owner() : nullptr, shown_text(title), shown_text(prompt),
                              QLineEdit::Normal, shown_text(initial), &accepted);
    if (!accepted) return {};
    return text.toStdString();
}

std::optional<std::string> qt_user_interface::choose_file(const std::string& title,
                                                          const std::string& initial) {
    const QString path =
        QFileDialog::getOpenFileName(owner ? owner() : nullptr, shown_text(title), shown_text(initial));
    if (path.isEmpty()) return {};
    return path.toStdString();
}

std::optional<int> qt_user_interface::choose_colour(int initial) {
    const QColor colour = QColorDialog::getColor(colour_of(initial), owner ? owner() : nullptr);
    if (!colour.isValid()) return {};
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

void qt_user_interface::yield() {
    if (steady_nanoseconds() - last_turn_ >= turn_pause) turn();
}

void qt_user_interface::turn() {
    // The models first: what a task has locked must be locked on the screen before a click is delivered.
    if (sync) sync();
    QCoreApplication::processEvents();
    last_turn_ = steady_nanoseconds();
}

void qt_user_interface::wait(double duration) {
    const std::int64_t end = steady_nanoseconds() + static_cast<std::int64_t>(duration * 1e9);
    turn();
    for (std::int64_t left; (left = end - steady_nanoseconds()) > 0;) {
        QThread::usleep(static_cast<unsigned long>(std::min<std::int64_t>(left / 1000, 5'000)));
        yield();
    }
}

void qt_user_interface::repaint() {
    if (sync) sync();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

double qt_user_interface::seconds() {
    return static_cast<double>(steady_nanoseconds()) / 1e9;
}
local_time qt_user_interface::now() {
    return from_date_time(QDateTime::currentDateTime());
}
local_time qt_user_interface::local_date(std::int64_t unix_seconds) {
    return from_date_time(QDateTime::fromSecsSinceEpoch(unix_seconds));
}

std::optional<screen_point> qt_user_interface::pointer() {
    if (!pointer_can_be_placed()) return {};
    return screen_point{QCursor::pos().x(), QCursor::pos().y()};
}

void qt_user_interface::set_pointer(screen_point place) {
    QCursor::setPos(place.x, place.y);
}

std::optional<screen_point> qt_user_interface::centre_of(const std::string& form,
                                                         const std::string& control) {
    const QWidget* const widget = find_widget ? find_widget(form, control) : nullptr;
    if (widget == nullptr || !widget->isVisible()) return {};
    const QPoint centre = widget->mapToGlobal(widget->rect().center());
    return screen_point{centre.x(), centre.y()};
}

screen_size qt_user_interface::screen() {
    const QScreen* const primary = QGuiApplication::primaryScreen();
    if (primary == nullptr) return {};
    return {twips(primary->geometry().width()), twips(primary->geometry().height())};
}

void qt_user_interface::end_program() {
    ended_ = true;
    if (sync) sync();
    QCoreApplication::quit();
}

}  // namespace corvane
