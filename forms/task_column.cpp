#include "forms/task_column.h"

#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "browser/list_views.h"
#include "core/model/task_table.h"
#include "forms/colours.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "forms/task_button.h"
#include "forms/window_place.h"

namespace corvane {

namespace {

struct task_drawing {
    const char* picture;
    const char* icon;
    bool opens_group;
};

constexpr task_drawing drawings[] = {
    {"Picture1", "choose_directories", false}, {"Picture2", "search_files", false},
    {"Picture3", "compare_files", false},      {"Picture4", "show_same", true},
    {"Picture11", "show_different", false},    {"Picture5", "delete_files", false},
    {"Picture6", "search_empty", true},        {"Picture7", "show_empty", false},
    {"Picture8", "delete_empty", false},
};

const task_drawing* drawing_of(std::string_view picture) {
    for (const task_drawing& drawing : drawings)
        if (picture == drawing.picture) return &drawing;
    return nullptr;
}

}  // namespace

task_column::task_column(Tavrel& form, const std::function<void(const std::string&)>& act,
                         std::function<void()> hovered, QWidget* parent)
    : QWidget(parent), form_(form), hovered_(std::move(hovered)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 10, 9, 10);
    layout->setSpacing(3);
    for (const task_entry& task : task_table()) {
        const task_drawing* drawing = drawing_of(task.picture);
        if (!drawing) continue;
        if (drawing->opens_group) {
            auto* separator = new QWidget(this);
            separator->setFixedHeight(15);
            layout->addWidget(separator);
            separators_.push_back(separator);
        }
        auto* button = new task_button(drawing->icon, this);
        button->setObjectName(QString::fromUtf8(task.picture));
        button->setAccessibleDescription(own_line(task.tooltip));
        layout->addWidget(button);
        connect(button, &QAbstractButton::clicked, this,
                [act, handler = std::string(task.picture) + "_Click"] { act(handler); });
        control* label = task.label < 0 ? nullptr : form.labels[static_cast<std::size_t>(task.label)];
        control* picture = form.find(task.picture);
        const auto known = std::find(form.pictures.begin() + 1, form.pictures.end(), picture);
        const int number = known == form.pictures.end() ? 0 : static_cast<int>(known - form.pictures.begin());
        rows_.push_back({picture, label, button, number});
        if (number > 0) watch_pointer(rows_.back());
    }
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void task_column::watch_pointer(const row& task) {
    const auto then_show = [this] {
        show_shifts();
        hovered_();
    };
    task.button->pointer_moved = [this, number = task.number, then_show](QPoint place) {
        if (form_.hover.captured.empty() && form_.hover.pic_pressed == 0) take_places();
        picture_moved(form_, number, place.x() * twips_per_pixel, place.y() * twips_per_pixel);
        then_show();
    };
    task.button->pointer_pressed = [this, number = task.number, then_show] {
        if (form_.hover.captured.empty()) take_places();
        picture_pressed(form_, number);
        then_show();
    };
    task.button->pointer_released = [this, number = task.number, then_show] {
        picture_released(form_, number);
        then_show();
    };
}

void task_column::take_places() {
    for (const row& task : rows_) {
        const QPoint corner = task.button->mapTo(window(), QPoint(0, 0));
        task.picture->place = {corner.x() * twips_per_pixel, corner.y() * twips_per_pixel,
                               task.button->width() * twips_per_pixel,
                               task.button->height() * twips_per_pixel};
    }
    keep_resting_places(form_);
}

void task_column::show_shifts() {
    for (const row& task : rows_) {
        if (task.number == 0) continue;
        const int resting = form_.hover.pic_left[static_cast<std::size_t>(task.number)];
        task.button->set_shift(static_cast<double>(task.picture->place.left - resting) / twips_per_pixel);
    }
}

void task_column::sync() {
    if (form_.hover.captured.empty() && form_.hover.pic_pressed == 0) take_places();
    const std::string next = next_step(form_);
    for (const row& task : rows_) {
        const QString words = task.label ? own_line(task.label->caption) : QString();
        if (mirror_text(task.button, words)) {
            task.button->setAccessibleName(words);
            task.button->updateGeometry();
        }
        // A picture that is locked under the pointer gets no more moves of it.
        if (!task.picture->enabled && task.number > 0 && form_.hover.captured == task.picture->name())
            picture_moved(form_, task.number, -1, -1);
        mirror_tooltip(task.button, task.number > 0 ? std::string() : task.picture->tooltip);
        mirror_enabled(task.button, task.picture->enabled);
        mirror_visible(task.button, task.picture->visible);
        task.button->set_next_step(task.picture->name() == next);
    }
    show_shifts();
}

void task_column::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(separator_line(palette()));
    for (const QWidget* separator : separators_) {
        const int y = separator->geometry().center().y();
        painter.drawLine(18, y, width() - 19, y);
    }
    painter.drawLine(width() - 1, 0, width() - 1, height());
}

std::string next_step(const Tavrel& form) {
    const run_state& state = form.state;
    if (form.ListView1.visible && form.ListView1.row_count() > 0) {
        const bool marked = form.ListView1.marked_cells() > 0;
        const list_view_row& view = shown_view(form);
        if (view.deletes == deletion_rule::files) return marked ? "Picture5" : "";
        if (view.deletes == deletion_rule::empty_directories) return marked ? "Picture8" : "";
        // Files without a twin come from a comparison, files of one name still need one.
        if (view.list_mode == list_modes::different_files) return "Picture4";
        if (view.list_mode == list_modes::same_file_names) return "Picture3";
    }
    if (state.selected_dir_count == 0) return "Picture1";
    if (state.file_count == 0 || state.file_list_loaded == 0)
        return state.result_count > 0 ? "Picture4" : "Picture2";
    return "Picture3";
}

}  // namespace corvane
