#include "core/model/form_model.h"

namespace corvane {

std::string folded_name(std::string_view name) {
    std::string folded(name);
    for (char& unit : folded)
        if (unit >= 'A' && unit <= 'Z') unit = static_cast<char>(unit - 'A' + 'a');
    return folded;
}

control* form_model::find(std::string_view name) const {
    const auto found = by_name_.find(folded_name(name));
    return found == by_name_.end() ? nullptr : found->second;
}

void form_model::keep(std::unique_ptr<control> added) {
    by_name_[folded_name(added->name())] = added.get();
    controls_.push_back(std::move(added));
}

std::string numbered_name(std::string_view stem, std::size_t number) {
    return std::string(stem) + std::to_string(number);
}

std::string element_name(std::string_view array, std::size_t index) {
    return numbered_name(std::string(array) + "(", index) + ")";
}

}  // namespace corvane
