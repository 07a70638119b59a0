#include "console/typed_path.h"

#include "platform/name_mapping.h"
#include "platform/typed_path.h"

namespace corvane {

std::string absolute_path(std::string_view typed) {
    // A name that was typed as the program shows it stays; a "*" can only be meant as it stands on the disk.
    const bool raw = typed.find('*') != std::string_view::npos;
    const std::string absolute = absolute_raw_path(typed).value_or("");
    return raw ? to_text(absolute) : absolute;
}

}  // namespace corvane
