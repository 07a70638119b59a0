#include "forms/number_frame.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "forms/window_place.h"

namespace corvane {

namespace {
constexpr int edge = 14;
}

number_frame::number_frame(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : floating_frame(form.Frame1, std::move(act), "Frame1_DblClick", "Command26_Click", parent),
      form_(form),
      caption_(new QLabel(this)) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(8);
    layout->addWidget(caption_, 0, 0, 1, 2);
    const auto field = [&](int row, const char* words, const control& model) {
        auto* box = new QLineEdit(this);
        name_after(box, model);
        auto* label = new QLabel(own_line(words), this);
        label->setBuddy(box);
        layout->addWidget(label, row, 0);
        layout->addWidget(box, row, 1);
    };
    field(1, "起始(&S)", form.Text1);
    field(2, "终点(&E)", form.Text2);
    const auto button = [&](int column, const control& model, const char* key) {
        auto* made = new QPushButton(own_line(model.caption + key), this);
        name_after(made, model);
        mirror_tooltip(made, model.tooltip);
        layout->addWidget(made, 3, column);
        return made;
    };
    // Without effect, so it cannot be pressed.
    button(0, form.Command7, "(&L)")->setEnabled(form.has_handler("Command7_Click"));
    connect(button(1, form.Command26, "(&C)"), &QPushButton::clicked, this,
            [this] { act_("Command26_Click"); });
}

void number_frame::sync() {
    if (!form_.Frame1.visible) return hide();
    mirror_text(caption_, own_line(form_.Frame1.caption));
    if (isHidden()) show_at(QPoint(form_.Frame1.place.left, form_.Frame1.place.top) / twips_per_pixel);
}

}  // namespace corvane
