// F1 in every window of the program: the topic of the control that has the focus, or of its window. Escape
// ends the mode in which clicks ask for help. Made by front_end.
#pragma once

#include <QObject>
#include <functional>
#include <string>

class QWidget;

namespace corvane {

class program;

class help_keys : public QObject {
  public:
    // Watches the keys of the application as long as it lives.
    // `act` runs a handler of the main form by its name.
    help_keys(program& corvane, std::function<void(const std::string&)> act);

    // The name of the property by which a box tells its help context.
    static constexpr char context_property[] = "help_context";

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // The help context of a widget; 0 where it belongs to no window of the program.
    int context_of(const QWidget* widget) const;
    bool ends_help_mode(const QWidget& widget, int key) const;

    program& program_;
    std::function<void(const std::string&)> act_;
};

}  // namespace corvane
