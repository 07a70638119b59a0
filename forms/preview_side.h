// One file of the preview: its name, its facts, and its content as picture, text or bytes. Used by
// preview_pane.
#pragma once

#include <QFrame>
#include <string>

#include "core/model/main_form.h"
#include "forms/preview_worker.h"

class QLabel;
class QPlainTextEdit;
class QStackedWidget;

namespace corvane {

class preview_side : public QFrame {
  public:
    preview_side(Tavrel& form, const QString& name, QWidget* parent);

    // The file that is being read. `length` is what the row says of it.
    void begin(const std::string& path, const std::string& length);
    void show_answer(const preview_answer& answer);

    picture_view& picture() { return *picture_; }
    const std::string& path() const { return path_; }
    QString text() const;
    QString facts() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QString date_words(const file_facts& facts) const;
    void show_name();
    void show_message(const QString& words);

    Tavrel& form_;
    std::string path_;
    std::string length_;
    QLabel* name_;
    QLabel* facts_;
    QStackedWidget* content_;
    picture_view* picture_;
    QPlainTextEdit* text_;
    QLabel* message_;
};

}  // namespace corvane
