#include "platform/desktop/desktop_attention.h"
#include "platform/desktop/desktop_instance_link.h"
#include "platform/desktop/desktop_power.h"
#include "platform/desktop/desktop_shell.h"
#include "platform/machine.h"

namespace corvane {

std::unique_ptr<shell> make_shell() {
    return std::make_unique<desktop_shell>();
}

std::unique_ptr<power> make_power() {
    return std::make_unique<desktop_power>();
}

std::unique_ptr<attention> make_attention() {
    return std::make_unique<desktop_attention>();
}

std::unique_ptr<instance_link> make_instance_link() {
    return std::make_unique<desktop_instance_link>();
}

}  // namespace corvane
