#include "forms/export_frame.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {
constexpr int edge = 14;
constexpr int field_width = 220;
constexpr int from_top = 48;
}  // namespace

export_frame::export_frame(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : floating_frame(form.Frame6, std::move(act), "Frame6_DblClick", "Frame6_DblClick", parent),
      form_(form),
      caption_(new QLabel(this)),
      export_(new QPushButton(this)) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(8);
    layout->addWidget(caption_, 0, 0, 1, 2);
    levels_ = make_field(form_.Text3, "Label6", "(&L)", 1);
    types_ = make_field(form_.Text4, "Label7", "(&K)", 2);
    const control& button = *form_.find("Command33");
    name_after(export_, button);
    export_->setText(own_caption(button.caption, 'X'));
    connect(export_, &QPushButton::clicked, this, [this] { act_("Command33_Click"); });
    layout->addWidget(export_, 3, 0, 1, 2, Qt::AlignRight);
}

QLineEdit* export_frame::make_field(control& model, const char* label, const char* key, int row) {
    auto* box = new QLineEdit(this);
    name_after(box, model);
    box->setMinimumWidth(field_width);
    mirror_tooltip(box, model.tooltip);
    connect(box, &QLineEdit::textEdited, this,
            [&model](const QString& words) { model.text = words.toStdString(); });
    const control& words = *form_.find(label);
    auto* shown = new QLabel(own_line(words.caption + key), this);
    name_after(shown, words);
    shown->setBuddy(box);
    auto* layout = static_cast<QGridLayout*>(this->layout());
    layout->addWidget(shown, row, 0);
    layout->addWidget(box, row, 1);
    return box;
}

void export_frame::sync(bool tasks_locked) {
    if (!form_.Frame6.visible) return hide();
    mirror_text(caption_, own_line(form_.Frame6.caption));
    mirror_tooltip(this, form_.Frame6.tooltip);
    mirror_text(levels_, screen_line(form_.Text3.text));
    mirror_text(types_, screen_line(form_.Text4.text));
    mirror_enabled(export_, !tasks_locked);
    if (!isHidden()) return;
    // Over the work area, clear of the task column.
    show_at({(parentWidget()->width() - sizeHint().width()) / 2, from_top});
    levels_->setFocus();
    levels_->selectAll();
}

}  // namespace corvane
