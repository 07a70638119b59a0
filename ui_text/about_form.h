// The window frmAbout as a model: name, version and libraries of the program. Part of interface_text.
#pragma once

#include <string>
#include <vector>

#include "core/model/form_model.h"
#include "core/model/handlers.h"

namespace corvane {

class Tavrel;

// A library that runs in this process. The front end knows which, and in which versions.
struct used_library {
    std::string name;
    std::string version;
    std::string holders;  // of the copyright
    std::string licence;
    std::string source;  // where its source code is
};

class about_form : public form_model {
  public:
    // `version` is major.minor.revision. Without a web page its two links are hidden.
    about_form(Tavrel& main, const std::string& version, std::string web_page);

    control& cmdOK;
    control& cmdSysInfo;
    control& lblTitle;
    control& lblVersion;
    control& lblDescription;
    control& lblDisclaimer;
    control& picIcon;
    control& lblPlace;  // the folder of settings and results
    control& Label1;    // heading of the libraries
    control& Label2;    // a link
    control& Label3;    // heading of their licences
    control& Label4;    // a link
    control& Label5;    // that a library may be replaced
    control& Text1;     // the libraries and their licences

    // `replacing` says how one of them is replaced; empty: they are linked dynamically.
    void set_libraries(const std::vector<used_library>& libraries, const std::string& replacing = {});
    // The configured address; empty: there is none.
    const std::string& web_page() const { return web_page_; }
    // Opens the web page; false when none is configured.
    bool open_web_page();

    handler_table handlers();

  private:
    void open();

    Tavrel& main_;
    std::string web_page_;
    std::string replacing_;
};

}  // namespace corvane
