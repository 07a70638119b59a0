// Folders that come to the main window from outside: dropped on any part of it, or pasted. Used by front_end.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <string>

namespace corvane {

class folder_drops : public QObject {
  public:
    // `drop` and `paste` get paths and file URLs, a line each, a drop after its event is over; with `joins`
    // they add to what is selected.
    folder_drops(QWidget& window, std::function<void(const std::string& text, bool joins)> drop,
                 std::function<void(const std::string& text)> paste);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void(const std::string& text, bool joins)> drop_;
};

}  // namespace corvane
