// The tooltips of the main form and of 目录选择: kept in one place, so that they can be switched off and on
// at once. Part of interface_text.
#pragma once

#include <string>
#include <vector>

#include "core/model/handlers.h"

namespace corvane {

class control;
class Tavrel;

class tooltip_store {
  public:
    // The form and its child windows outlive the store.
    explicit tooltip_store(Tavrel& main) : main_(main) {}

    // Takes the tooltips in force, by the order of the controls' names. While they are switched off, an empty
    // one is no news: the kept text stays.
    void save_tooltips();
    // Writes the kept texts back, or the empty text into every control. Neither changes what is kept.
    void tooltiphelp_true();
    void tooltiphelp_false();
    // At the start of the program: keeps the tooltips and shows them as the setting says.
    void start();

    // The kept texts in their order. A control that had no tooltip has an empty one.
    const std::vector<std::string>& tip_store() const { return tip_store_; }

    handler_table handlers();

  private:
    Tavrel& main_;
    std::vector<control*> controls_;
    std::vector<std::string> tip_store_;
};

}  // namespace corvane
