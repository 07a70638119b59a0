#include "console/find_control.h"

namespace corvane {

control* find_control(program& corvane, std::string_view name, form_model** form) {
    const std::size_t dot = name.find('.');
    const bool named = dot != std::string_view::npos;
    form_model* const window = corvane.find_form(named ? name.substr(0, dot) : std::string_view());
    if (form != nullptr) *form = window;
    if (window == nullptr) return nullptr;
    if (!named && corvane.find_form(name) != nullptr) return corvane.find_form(name);
    return window->find(named ? name.substr(dot + 1) : name);
}

}  // namespace corvane
