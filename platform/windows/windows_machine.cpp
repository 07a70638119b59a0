#include "platform/machine.h"
#include "platform/windows/windows_attention.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_instance_link.h"
#include "platform/windows/windows_power.h"
#include "platform/windows/windows_shell.h"
#include "platform/windows/windows_text_encoding.h"

namespace corvane {

std::unique_ptr<file_system> make_file_system() {
    return std::make_unique<windows_file_system>();
}

std::unique_ptr<text_encoding> make_text_encoding() {
    return std::make_unique<windows_text_encoding>();
}

std::unique_ptr<shell> make_shell() {
    return std::make_unique<windows_shell>();
}

std::unique_ptr<power> make_power() {
    return std::make_unique<windows_power>();
}

std::unique_ptr<attention> make_attention() {
    return std::make_unique<windows_attention>();
}

std::unique_ptr<instance_link> make_instance_link() {
    return std::make_unique<windows_instance_link>();
}

std::unique_ptr<trash> make_trash() {
    return nullptr;
}

}  // namespace corvane
