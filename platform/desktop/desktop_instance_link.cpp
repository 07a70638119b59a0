#include "platform/desktop/desktop_instance_link.h"

#include <sys/stat.h>

#include "platform/desktop/buses.h"
#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {

constexpr char object_path[] = "/corvane/Instance";
constexpr char interface_name[] = "corvane.Instance";
constexpr char interface_description[] =
    "<node><interface name='corvane.Instance'>"
    "<method name='Raise'><arg type='b' name='raised' direction='out'/></method>"
    "</interface></node>";

// The folder by what it is, not by how it is written: two paths of one folder are one instance.
std::string bus_name(const std::string& program_dir) {
    struct stat place = {};
    if (stat(to_raw(program_dir).c_str(), &place) != 0) return {};
    return "corvane.Instance.d" + std::to_string(place.st_dev) + ".f" + std::to_string(place.st_ino);
}

}  // namespace

// Owns the name and the object on the bus, from construction on.
class desktop_instance_link::served_name {
  public:
    served_name(object_pointer<GDBusConnection> bus, const std::string& name, std::function<bool()> on_raise)
        : bus_(std::move(bus)), on_raise_(std::move(on_raise)) {
        GDBusNodeInfo* const description = g_dbus_node_info_new_for_xml(interface_description, nullptr);
        static const GDBusInterfaceVTable calls = {called, nullptr, nullptr, {}};
        object_ = g_dbus_connection_register_object(bus_.get(), object_path, description->interfaces[0],
                                                    &calls, this, nullptr, nullptr);
        g_dbus_node_info_unref(description);
        name_ = g_bus_own_name_on_connection(bus_.get(), name.c_str(), G_BUS_NAME_OWNER_FLAGS_NONE, nullptr,
                                             nullptr, nullptr, nullptr);
    }
    ~served_name() {
        g_bus_unown_name(name_);
        if (object_ != 0) g_dbus_connection_unregister_object(bus_.get(), object_);
    }
    served_name(const served_name&) = delete;
    served_name& operator=(const served_name&) = delete;

  private:
    static void called(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant*,
                       GDBusMethodInvocation* call, void* self) {
        const bool raised = static_cast<served_name*>(self)->on_raise_();
        g_dbus_method_invocation_return_value(call, g_variant_new("(b)", raised ? TRUE : FALSE));
    }

    object_pointer<GDBusConnection> bus_;
    std::function<bool()> on_raise_;
    guint object_ = 0;
    guint name_ = 0;
};

desktop_instance_link::desktop_instance_link() = default;
desktop_instance_link::~desktop_instance_link() = default;

void desktop_instance_link::serve(const std::string& program_dir, std::function<bool()> on_raise) {
    served_.reset();
    if (!on_raise) return;
    const std::string name = bus_name(program_dir);
    if (name.empty()) return;
    object_pointer<GDBusConnection> bus = session_bus(nullptr);
    if (!bus) return;
    served_ = std::make_unique<served_name>(std::move(bus), name, std::move(on_raise));
}

bool desktop_instance_link::raise_other(const std::string& program_dir) {
    const std::string name = bus_name(program_dir);
    const object_pointer<GDBusConnection> bus = name.empty() ? nullptr : session_bus(nullptr);
    if (!bus) return false;
    constexpr int longest_wait = 2000;  // milliseconds
    GVariant* const answer = g_dbus_connection_call_sync(
        bus.get(), name.c_str(), object_path, interface_name, "Raise", nullptr, G_VARIANT_TYPE("(b)"),
        G_DBUS_CALL_FLAGS_NO_AUTO_START, longest_wait, nullptr, nullptr);
    if (answer == nullptr) return false;
    gboolean raised = FALSE;
    g_variant_get(answer, "(b)", &raised);
    g_variant_unref(answer);
    return raised != FALSE;
}

}  // namespace corvane
