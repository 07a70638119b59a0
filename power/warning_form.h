// The window shut_msg as a model: the last warning, counting down to the end that was chosen.
#pragma once

#include "core/model/form_model.h"
#include "core/model/handlers.h"

namespace corvane {

class shutdown;
class Tavrel;

class warning_form : public form_model {
  public:
    // Both outlive the form.
    warning_form(Tavrel& main, shutdown& end);

    control& Label1;
    range_control& ProgressBar1;
    timer_control& Timer1;  // its interval is 0 while the warning does not count

    handler_table handlers();

    // Opens the warning in the middle of the screen and starts it anew, whatever it had counted. Does not
    // wait.
    void 显示关机提示();
    // A second has passed. At its end the choice is carried out.
    void Timer1_Timer();
    // Nothing restarts a warning that was closed or minimised.
    void stop();
    void Form_Unload();
    // Minimised: the front end calls it whenever the window's state has changed.
    void Form_Resize();

  private:
    Tavrel& main_;
    shutdown& end_;
};

}  // namespace corvane
