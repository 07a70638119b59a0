// For tables of texts that are looked up by a view, without a copy.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace corvane {

struct text_hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>()(text);
    }
};

}  // namespace corvane
