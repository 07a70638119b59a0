// The machine's own ports, whichever system it runs. Made by the mains; platform/linux with platform/desktop
// or platform/windows makes them.
#pragma once

#include <memory>

#include "platform/attention.h"
#include "platform/file_system.h"
#include "platform/instance_link.h"
#include "platform/power.h"
#include "platform/shell.h"
#include "platform/text_encoding.h"
#include "platform/trash.h"

namespace corvane {

// Null where nothing can be brought back from the recycle bin by a program.
std::unique_ptr<trash> make_trash();
// Never null.
std::unique_ptr<file_system> make_file_system();
std::unique_ptr<text_encoding> make_text_encoding();
std::unique_ptr<shell> make_shell();
std::unique_ptr<power> make_power();
std::unique_ptr<attention> make_attention();
std::unique_ptr<instance_link> make_instance_link();

}  // namespace corvane
