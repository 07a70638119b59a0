// The buses of the desktop. One that ends does not end the program.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace corvane {

struct object_release {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class Object>
using object_pointer = std::unique_ptr<Object, object_release>;

// The bus of the user's session. Null where there is none. Never starts one: a bus that nobody else is on has
// nobody to speak to.
object_pointer<GDBusConnection> session_bus(GError** error);

// Null where there is none.
object_pointer<GDBusConnection> system_bus(GError** error);

}  // namespace corvane
