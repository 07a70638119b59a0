#include "app/trace.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "core/model/main_form.h"

namespace corvane {

bool trace_is_asked() {
    const char* asked = std::getenv("CORVANE_TRACE");
    return asked != nullptr && std::string_view(asked) == "1";
}

void trace_if_asked(Tavrel& form) {
    if (!trace_is_asked()) return;
    form.trace = [](std::string_view name, double seconds, std::int64_t yields) {
        std::fprintf(stderr, "trace\t%.*s\t%.6f\t%lld\n", static_cast<int>(name.size()), name.data(), seconds,
                     static_cast<long long>(yields));
    };
}

}  // namespace corvane
