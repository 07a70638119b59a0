// The texts of the interface in one hand: tooltips, language tables, help topics, the about box. Made by the
// program.
#pragma once

#include <string>

#include "core/model/handlers.h"
#include "ui_text/about_form.h"
#include "ui_text/language_tables.h"
#include "ui_text/tooltip_store.h"

namespace corvane {

class Tavrel;

class interface_text {
  public:
    // Adds the hidden frame of the languages to the main form, which outlives this. `web_page` may be empty.
    interface_text(Tavrel& main, const std::string& version, std::string web_page);
    interface_text(const interface_text&) = delete;
    interface_text& operator=(const interface_text&) = delete;

    about_form& about() { return about_; }
    tooltip_store& tooltips() { return tooltips_; }

    // The step of the program's start: tooltips as the settings say.
    void start();
    // What the buttons of the hidden frame do: stops the shutdown warning's clock, runs the table, takes its
    // tooltips for those that switching on restores.
    void change_language(language_table table);

    handler_table handlers();

  private:
    void add_language_frame();

    Tavrel& main_;
    tooltip_store tooltips_;
    about_form about_;
};

}  // namespace corvane
