#include "forms/long_run.h"

#include <QApplication>
#include <string>

#include "core/tasks/progress.h"
#include "forms/form_parts.h"
#include "forms/own_words.h"

namespace corvane {

namespace {

constexpr int settling_time = 1000;  // milliseconds

// What the panels say of the task: its figures, then its name.
std::string totals(const Tavrel& form) {
    std::string words;
    for (int number = 1; number <= 6; ++number) {
        const std::string& panel = form.StatusBar1.panel(number);
        if (panel.empty()) continue;
        if (!words.empty()) words += "  ";
        words += own_text(panel).toStdString();
    }
    return words;
}

}  // namespace

long_run::long_run(Tavrel& main, attention* notice, QWidget& window, std::function<double()> clock)
    : in_front([] { return QApplication::activeWindow() != nullptr; }),
      main_(main),
      notice_(notice),
      window_(window),
      clock_(std::move(clock)) {
    settling_.setSingleShot(true);
    settling_.setInterval(settling_time);
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { settle(); });
}

void long_run::follow() {
    if (notice_ == nullptr) return;
    if (tasks_locked(main_)) {
        settling_.stop();
        if (!runs_) begin();
        show_progress();
    } else if (runs_ && !settling_.isActive()) {
        until_ = clock_();
        settling_.start();
    }
}

void long_run::begin() {
    runs_ = true;
    since_ = clock_();
    shown_percent_ = -1;
    awake_ = notice_->keep_awake(own_text("正在运行: " + main_.StatusBar1.panel(7)).toStdString());
}

void long_run::show_progress() {
    const colour_bar& bar = main_.pic_gressbar1;
    if (!bar.visible) return;
    const int percent = static_cast<int>(bar.filled() * 100);
    if (percent == shown_percent_) return;
    shown_percent_ = percent;
    notice_->show_progress(bar.filled());
}

void long_run::settle() {
    settling_.stop();
    if (!runs_ || tasks_locked(main_)) return;
    runs_ = false;
    awake_.reset();
    if (shown_percent_ >= 0) notice_->hide_progress();
    if (until_ - since_ > told_from && main_.state.added.notify_after_task && !in_front()) tell();
}

void long_run::tell() {
    QApplication::alert(&window_);
    notice_->notify("Corvane: " + own_text(main_.StatusBar1.panel(7)).toStdString(), totals(main_),
                    [this] { bring_to_front(window_); });
}

void long_run::end() {
    settling_.stop();
    if (runs_ && shown_percent_ >= 0) notice_->hide_progress();
    runs_ = false;
    awake_.reset();
}

}  // namespace corvane
