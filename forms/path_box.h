// A line for paths of directories: completes what is typed, takes lists of paths and file URLs when they are
// pasted. Used by directory_window.
#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

#include "platform/file_system.h"

class QMimeData;
class QStringListModel;

namespace corvane {

// The paths and URLs that something from outside of the program brings, a line each, in the system's bytes.
std::string given_text(const QMimeData& data);

class path_box : public QLineEdit {
  public:
    path_box(file_system& files, QWidget* parent);

    // Enter, or a paste of more than a text of one line.
    std::function<void(const std::string& text)> given;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void complete();

    file_system& files_;
    QStringListModel* completions_;
};

}  // namespace corvane
