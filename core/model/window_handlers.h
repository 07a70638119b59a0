// Adds the handlers of one window to a table, each as "WINDOW.NAME". Used by the windows' own tables.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "core/model/form_model.h"
#include "core/model/handlers.h"

namespace corvane {

class window_handlers {
  public:
    // Both outlive the object.
    window_handlers(handler_table& table, const form_model& window) : table_(table), window_(window) {}

    void operator()(const std::string& name, std::function<void()> procedure, bool is_task = false) {
        table_.push_back({window_.name() + "." + name,
                          [procedure = std::move(procedure)](Tavrel&) { procedure(); }, is_task});
    }

  private:
    handler_table& table_;
    const form_model& window_;
};

}  // namespace corvane
