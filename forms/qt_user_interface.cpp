#include "forms/qt_user_interface.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDialog>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <future>
#include <system_error>

#include "forms/boxes.h"
#include "forms/child_window.h"

namespace corvane {

namespace {

constexpr std::chrono::milliseconds turn_interval(10);

// Programs may read and place the pointer under X11, Windows and macOS; not under Wayland or without a
// screen.
bool has_pointer() {
    const QString name = QGuiApplication::platformName();
    return name == QLatin1String("xcb") || name == QLatin1String("windows") || name == QLatin1String("cocoa");
}

local_time parts_of(const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

}  // namespace

QWidget* qt_user_interface::window() const {
    if (QWidget* active = QApplication::activeWindow()) return active;
    QWidget* main = find_window_ ? find_window_("") : nullptr;
    return main && main->isVisible() ? main : nullptr;
}

bool qt_user_interface::shows_boxes() {
    if (!ended_) sync();
    return !ended_ && !silent_ && !held_;
}

box_answer qt_user_interface::show_message(const message& shown) {
    if (!shows_boxes()) return shown.buttons == box_buttons::yes_no ? box_answer::dismissed : box_answer::ok;
    return show_message_box(window(), shown, open_topic_);
}

std::optional<std::string> qt_user_interface::ask_text(const std::string& title, const std::string& prompt,
                                                       const std::string& initial) {
    if (!shows_boxes()) return {};
    return ask_for_text(window(), title, prompt, initial);
}

std::optional<std::string> qt_user_interface::choose_file(const std::string& title,
                                                          const std::string& initial) {
    if (!shows_boxes()) return {};
    return ask_for_file(window(), title, initial);
}

std::optional<std::string> qt_user_interface::choose_new_file(const std::string& title,
                                                              const std::string& initial) {
    if (!shows_boxes()) return {};
    return ask_for_new_file(window(), title, initial);
}

std::optional<std::string> qt_user_interface::choose_files(const std::string& title,
                                                           const std::string& filter,
                                                           const std::string& directory) {
    if (!shows_boxes()) return {};
    return ask_for_files(window(), title, filter, directory);
}

std::optional<int> qt_user_interface::choose_colour(const std::string& title, int initial) {
    if (!shows_boxes()) return {};
    return ask_for_colour(window(), title, initial);
}

void qt_user_interface::take_turn() {
    sync();
    QCoreApplication::processEvents();
    next_turn_ = std::chrono::steady_clock::now() + turn_interval;
}

void qt_user_interface::work_aside(const std::function<void()>& work) {
    std::future<void> done;
    try {
        done = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return work();  // no thread to be had
    }
    while (done.wait_for(turn_interval) != std::future_status::ready) take_turn();
    done.get();
}

void qt_user_interface::wait(double seconds) {
    sync();
    if (ended_ || !(seconds > 0)) return take_turn();
    QEventLoop turns;
    QTimer::singleShot(static_cast<int>(seconds * 1000), Qt::PreciseTimer, &turns,
                       [&turns] { turns.quit(); });
    turns.exec();
}

void qt_user_interface::repaint() {
    sync();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

double qt_user_interface::seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

local_time qt_user_interface::now() {
    return parts_of(QDateTime::currentDateTime());
}

local_time qt_user_interface::local_date(std::int64_t unix_seconds) {
    return parts_of(QDateTime::fromSecsSinceEpoch(unix_seconds));
}

std::optional<screen_point> qt_user_interface::pointer() {
    if (!has_pointer()) return {};
    return screen_point{QCursor::pos().x(), QCursor::pos().y()};
}

void qt_user_interface::set_pointer(screen_point place) {
    if (has_pointer()) QCursor::setPos(place.x, place.y);
}

std::optional<screen_point> qt_user_interface::centre_of(const std::string& form,
                                                         const std::string& control) {
    QWidget* owner = find_window_ ? find_window_(form) : nullptr;
    QWidget* widget = owner ? owner->findChild<QWidget*>(QString::fromStdString(control)) : nullptr;
    if (!widget || !widget->isVisible()) return {};
    const QPoint centre = widget->mapToGlobal(widget->rect().center());
    return screen_point{centre.x(), centre.y()};
}

screen_size qt_user_interface::screen() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (!primary) return {};
    return {primary->geometry().width() * twips_per_pixel, primary->geometry().height() * twips_per_pixel};
}

void qt_user_interface::hold_boxes(bool held) {
    held_ = held;
    if (!held) return;
    // Each ends its own event loop; the task behind it goes on when this call has returned.
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QDialog*>(top);
            box && box->isModal() && box->isVisible() && dynamic_cast<child_window*>(box) == nullptr)
            box->reject();
}

void qt_user_interface::end_program() {
    // Ends every event loop at once; a task that is still on the stack unwinds before the outermost one
    // returns.
    ended_ = true;
    QCoreApplication::quit();
}

}  // namespace corvane
