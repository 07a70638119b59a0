// What stands above the list: after a comparison what it has found, until it is closed, and one line that
// says how to mark, what is marked, or what an act has just cleared. Used by main_window.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/model/main_form.h"

class QFrame;
class QVBoxLayout;

namespace corvane {

class elided_label;

class list_head : public QWidget {
  public:
    // `act` runs a handler of the main form by its name.
    list_head(const Tavrel& form, const std::function<void(const std::string&)>& act, QWidget* parent);

    // `marked` says what is marked; empty: nothing is.
    void sync(const std::string& marked);

  private:
    void sync_summary();

    const Tavrel& form_;
    elided_label* hint_;
    QFrame* summary_;
    QVBoxLayout* lines_;
    std::vector<elided_label*> words_;
    std::string shown_summary_;
};

}  // namespace corvane
