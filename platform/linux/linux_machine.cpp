#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_text_encoding.h"
#include "platform/linux/linux_trash.h"
#include "platform/machine.h"

namespace corvane {

std::unique_ptr<file_system> make_file_system() {
    return std::make_unique<linux_file_system>();
}

std::unique_ptr<text_encoding> make_text_encoding() {
    return std::make_unique<linux_text_encoding>();
}

std::unique_ptr<trash> make_trash() {
    return std::make_unique<linux_trash>();
}

}  // namespace corvane
