// Shows a page of the help in the colours of the palette, with the pictures that fit it. Part of help_window.
#pragma once

#include <QTextBrowser>

namespace corvane {

class help_browser : public QTextBrowser {
  public:
    // `folder` holds the pages; what a page names is looked for from there.
    help_browser(QString folder, QWidget* parent);

    // Points; the pages grow and shrink with it.
    void set_text_size(double points);
    double text_size() const;
    // Marks every place of a word and shows the first; an empty word marks nothing.
    void mark(const QString& word);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QString style_sheet() const;
    QVariant picture(const QUrl& name) const;
    void reload_in_place();

    QString folder_;
};

}  // namespace corvane
