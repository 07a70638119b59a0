// Stands in for the rewriting of the pairs behind one whose first path is gone: from there on its partner is
// the centre of the star. Keeps what was replaced in place of walking all rows that follow, which in a long
// star of files that are gone would take the square of their number.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/text/text_column.h"

namespace corvane {

class star_centres {
  public:
    // From now on rows whose first path is `gone` have `partner` there; until that is replaced in turn. The
    // entries stay valid as long as this object.
    void replace(const char* gone, const char* partner) {
        if (text_arena::text_at(gone) == text_arena::text_at(partner)) return;
        const std::int32_t from = live_class(gone);
        const std::int32_t to = live_class(partner);
        live_.erase(text_arena::text_at(gone));
        classes_[static_cast<std::size_t>(from)].parent = to;
    }

    // The first path that now stands in a row that began with `first`.
    const char* in_force(const char* first) {
        const auto found = began_.find(text_arena::text_at(first));
        return found == began_.end() ? first : classes_[root_of(found->second)].path;
    }

  private:
    // The rows that share a first path, whatever they began with. One that was replaced has a parent.
    struct row_class {
        const char* path;
        std::int32_t parent;
    };

    std::int32_t live_class(const char* path) {
        const std::string_view text = text_arena::text_at(path);
        const auto found = live_.find(text);
        if (found != live_.end()) return found->second;
        const auto made = static_cast<std::int32_t>(classes_.size());
        classes_.push_back({path, made});
        live_.emplace(text, made);
        // Rows that began with this path are here, unless it has been replaced before.
        began_.emplace(text, made);
        return made;
    }

    std::size_t root_of(std::int32_t number) {
        auto each = static_cast<std::size_t>(number);
        while (classes_[each].parent != static_cast<std::int32_t>(each)) {
            row_class& passed = classes_[each];
            passed.parent = classes_[static_cast<std::size_t>(passed.parent)].parent;
            each = static_cast<std::size_t>(passed.parent);
        }
        return each;
    }

    std::vector<row_class> classes_;
    std::unordered_map<std::string_view, std::int32_t> live_;
    std::unordered_map<std::string_view, std::int32_t> began_;
};

}  // namespace corvane
