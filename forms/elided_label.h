// One line of text that is cut, at its end if nothing else is said, where there is no room; the whole stands
// in its tip then. Used by the lines around the list.
#pragma once

#include <QWidget>

namespace corvane {

class elided_label : public QWidget {
  public:
    explicit elided_label(QWidget* parent, Qt::TextElideMode cut = Qt::ElideRight);

    QString text() const { return text_; }
    void setText(const QString& words);
    void set_bold(bool bold);
    bool is_cut() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void take_tip();

    const Qt::TextElideMode cut_;
    QString text_;
};

}  // namespace corvane
