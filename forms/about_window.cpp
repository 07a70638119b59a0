#include "forms/about_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/colours.h"
#include "forms/icons.h"
#include "forms/linked_libraries.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

namespace {

constexpr QSize first_size(580, 560);
constexpr int edge = 18;
constexpr int icon_size = 64;
constexpr double title_factor = 1.9;

QFont heading_font(QFont font, double factor) {
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(true);
    return font;
}

}  // namespace

about_window::about_window(Tavrel& main, about_form& form, std::function<void(const std::string&)> act,
                           QWidget* parent)
    : child_window(main, form, std::move(act), parent), form_(form) {
    setWindowModality(Qt::WindowModal);
    form_.set_libraries(libraries_in_use(), replacing_words());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(10);
    layout->addWidget(make_head());
    layout->addWidget(make_label(form_.lblDescription, true));
    layout->addWidget(make_label(form_.lblDisclaimer, true));
    QLabel* place = make_label(form_.lblPlace, true);
    place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long path is cut off and stands whole in the tip; the window keeps its width.
    place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(place);
    layout->addSpacing(6);
    QLabel* heading = make_label(form_.Label1);
    heading->setFont(heading_font(font(), 1));
    layout->addWidget(heading);
    libraries_ = new QPlainTextEdit(this);
    name_after(libraries_, form_.Text1);
    libraries_->setReadOnly(true);
    libraries_->setTabChangesFocus(true);
    heading->setBuddy(libraries_);
    layout->addWidget(libraries_, 1);
    QLabel* licences = make_label(form_.Label3);
    licences->setFont(heading_font(font(), 1));
    layout->addWidget(licences);
    layout->addWidget(make_label(form_.Label5, true));
    layout->addWidget(make_feet());
    resize(first_size);
}

QLabel* about_window::make_label(control& model, bool wraps) {
    auto* label = new QLabel(this);
    name_after(label, model);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(wraps);
    labels_.push_back({label, &model});
    return label;
}

QLabel* about_window::make_link(control& model) {
    QLabel* link = make_label(model);
    QFont underlined = font();
    underlined.setUnderline(true);
    link->setFont(underlined);
    link->setCursor(Qt::PointingHandCursor);
    link->setFocusPolicy(Qt::TabFocus);
    link->installEventFilter(this);
    links_.push_back(link);
    return link;
}

QPushButton* about_window::make_button(control& model) {
    auto* button = new QPushButton(this);
    name_after(button, model);
    button->setMinimumWidth(96);
    connect(button, &QPushButton::clicked, this,
            [this, &model] { act_("frmAbout." + model.name() + "_Click"); });
    watch_button(button, model);
    buttons_.push_back({button, &model});
    return button;
}

QWidget* about_window::make_head() {
    auto* head = new QWidget(this);
    icon_ = make_label(form_.picIcon);
    QLabel* title = make_label(form_.lblTitle);
    title->setFont(heading_font(font(), title_factor));
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addStretch(1);
    words->addWidget(title);
    words->addWidget(make_label(form_.lblVersion));
    words->addStretch(1);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    layout->addWidget(icon_);
    layout->addLayout(words, 1);
    return head;
}

QWidget* about_window::make_feet() {
    auto* feet = new QWidget(this);
    auto* layout = new QHBoxLayout(feet);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(make_link(form_.Label2));
    layout->addWidget(make_link(form_.Label4));
    layout->addStretch(1);
    layout->addWidget(make_button(form_.cmdSysInfo));
    QPushButton* firm = make_button(form_.cmdOK);
    firm->setDefault(true);
    layout->addWidget(firm);
    return feet;
}

void about_window::sync(bool) {
    for (const bound_label& bound : labels_) {
        if (bound.label != icon_) mirror_text(bound.label, own_line(bound.model->caption));
        mirror_tooltip(bound.label, bound.model->tooltip);
        mirror_visible(bound.label, bound.model->visible);
    }
    for (const bound_button& bound : buttons_) {
        mirror_text(bound.button, own_line(bound.model->caption));
        mirror_enabled(bound.button, bound.model->enabled);
    }
    const QString words = own_lines(form_.Text1.text);
    if (libraries_->toPlainText() != words) libraries_->setPlainText(words);
    sync_window();
}

void about_window::show_icon() {
    icon_->setPixmap(application_icon().pixmap(QSize(icon_size, icon_size), devicePixelRatioF()));
}

void about_window::colour_labels() {
    for (const bound_label& bound : labels_) {
        const bool quiet = bound.model == &form_.lblVersion || bound.model == &form_.Label5;
        QPalette colours = palette();
        if (quiet) colours.setColor(QPalette::WindowText, quiet_text(palette()));
        bound.label->setPalette(colours);
    }
    for (QLabel* link : links_) {
        QPalette colours = palette();
        colours.setColor(QPalette::WindowText, accent(palette()));
        link->setPalette(colours);
    }
}

void about_window::before_open() {
    show_icon();
    colour_labels();
    buttons_.back().button->setFocus();
}

void about_window::changeEvent(QEvent* event) {
    child_window::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) colour_labels();
}

bool about_window::eventFilter(QObject* watched, QEvent* event) {
    for (const QLabel* link : links_) {
        if (watched != link) continue;
        const auto is_enter = [event] {
            const int key = static_cast<QKeyEvent*>(event)->key();
            return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        };
        if (event->type() == QEvent::MouseButtonDblClick ||
            (event->type() == QEvent::KeyPress && is_enter())) {
            act_("frmAbout." + link->objectName().toStdString() + "_DblClick");
            return true;
        }
    }
    return child_window::eventFilter(watched, event);
}

}  // namespace corvane
