// The ports in one hand, as the program is given them at start. The owner of the ports outlives the
// program.
#pragma once

#include "platform/attention.h"
#include "platform/file_system.h"
#include "platform/instance_link.h"
#include "platform/power.h"
#include "platform/shell.h"
#include "platform/text_encoding.h"
#include "platform/trash.h"
#include "platform/user_interface.h"

namespace corvane {

struct ports {
    file_system& files;
    shell& desktop;
    power& machine;
    user_interface& screen;
    text_encoding& encodings;
    instance_link* instances = nullptr;  // null: other starts are not spoken to
    attention* notice = nullptr;         // null: a long run goes on unseen
    trash* bin = nullptr;                // null: nothing can be taken back from the recycle bin
};

}  // namespace corvane
