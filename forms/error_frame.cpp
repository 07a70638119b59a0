#include "forms/error_frame.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {
constexpr int widest = 640;
constexpr int edge = 16;
}  // namespace

error_frame::error_frame(Tavrel& form, const std::function<void(const std::string&)>& act, QWidget* parent)
    : QFrame(parent),
      form_(form),
      caption_(new QLabel(this)),
      path_(new QLineEdit(this)),
      avoid_(new QCheckBox(own_line("比对时避开该文件(&A)"), this)) {
    name_after(this, form.Frame_err);
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    setAutoFillBackground(true);
    name_after(path_, form.txt_disp_err_file);
    path_->setReadOnly(true);
    name_after(avoid_, form.Check1);
    auto* open = new QPushButton(own_line("打开目录(&R)"), this);
    name_after(open, form.Command46);
    auto* confirm = new QPushButton(own_line("确定(&C)"), this);
    name_after(confirm, form.Command47);
    connect(avoid_, &QCheckBox::toggled, this,
            [this](bool checked) { form_.Check1.value = checked ? 1 : 0; });
    connect(open, &QPushButton::clicked, this, [act] { act("Command46_Click"); });
    connect(confirm, &QPushButton::clicked, this, [act] { act("Command47_Click"); });
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(10);
    layout->addWidget(caption_, 0, 0, 1, 3);
    layout->addWidget(path_, 1, 0, 1, 3);
    layout->addWidget(avoid_, 2, 0);
    layout->addWidget(open, 2, 1);
    layout->addWidget(confirm, 2, 2);
    layout->setColumnStretch(0, 1);
    hide();
}

void error_frame::sync() {
    if (!form_.Frame_err.visible) return hide();
    mirror_text(caption_, own_line(form_.Frame_err.caption));
    const QString path = screen_line(form_.txt_disp_err_file.text);
    if (mirror_text(path_, path)) {
        path_->setToolTip(path);
        path_->setCursorPosition(0);
    }
    mirror_checked(avoid_, form_.Check1.value != 0);
    if (!isHidden()) return;
    centre();
    show();
    raise();
    avoid_->setFocus();
}

void error_frame::centre() {
    const int most = std::max(sizeHint().width(), parentWidget()->width() - 2 * edge);
    resize(std::min(widest, most), sizeHint().height());
    move(std::max(0, (parentWidget()->width() - width()) / 2),
         std::max(0, (parentWidget()->height() - height()) / 3));
}

}  // namespace corvane
