// A window as a model: its named controls in the order they were added. The front end and the console find a
// control by its name, so there is no second list of controls anywhere.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/model/controls.h"

namespace corvane {

enum class window_state { normal, minimised, maximised };

class form_model : public control {
  public:
    explicit form_model(std::string name) : control(control_kind::form, std::move(name)) { visible = false; }

    window_state window = window_state::normal;

    const std::vector<std::unique_ptr<control>>& controls() const { return controls_; }
    // Null when the form has no such control. Names of the letters a-z match in either case.
    control* find(std::string_view name) const;

    // The form owns what it adds.
    template <class Control, class... Arguments>
    Control& add(Arguments&&... arguments) {
        auto owned = std::make_unique<Control>(std::forward<Arguments>(arguments)...);
        Control& added = *owned;
        keep(std::move(owned));
        return added;
    }

  private:
    void keep(std::unique_ptr<control> added);

    std::vector<std::unique_ptr<control>> controls_;
    std::unordered_map<std::string, control*> by_name_;
};

// "Label3", and "Option1(3)" of an array.
std::string numbered_name(std::string_view stem, std::size_t number);
std::string element_name(std::string_view array, std::size_t index);

// Control and handler names compare without case in a-z.
std::string folded_name(std::string_view name);

}  // namespace corvane
