#include "platform/desktop/desktop_instance_link.h"

#include <sys/stat.h>

#include <array>
#include <cstring>
#include <string_view>

#include "platform/desktop/buses.h"
#include "platform/name_mapping.h"

namespace corvane {

namespace {

constexpr char object_path[] = "/corvane/Instance";
constexpr char interface_name[] = "corvane.Instance";
constexpr char raise_call[] = "Raise";
constexpr char take_call[] = "Take";
// Paths travel as the bytes of the disk. The token lets a Wayland compositor give the window the focus that
// the user has just given to the other start; it may be empty.
constexpr char interface_description[] =
    "<node><interface name='corvane.Instance'>"
    "<method name='Raise'><arg type='b' name='raised' direction='out'/></method>"
    "<method name='Take'><arg type='aay' name='directories' direction='in'/>"
    "<arg type='s' name='activation_token' direction='in'/><arg type='s' name='reception' direction='out'/>"
    "</method></interface></node>";
constexpr int longest_wait = 2000;  // milliseconds
constexpr char activation_token[] = "XDG_ACTIVATION_TOKEN";

struct reception_name {
    reception what;
    const char* name;
};
constexpr std::array<reception_name, 3> receptions = {
    {{reception::taken, "taken"}, {reception::waits, "waits"}, {reception::refused, "refused"}}};

const char* name_of(reception what) {
    for (const reception_name& each : receptions)
        if (each.what == what) return each.name;
    return "";
}

reception reception_of(std::string_view name) {
    for (const reception_name& each : receptions)
        if (each.name == name) return each.what;
    return reception::none;
}

// The folder by what it is, not by how it is written: two paths of one folder are one instance.
std::string bus_name(const std::string& program_dir) {
    struct stat place = {};
    if (stat(to_raw(program_dir).c_str(), &place) != 0) return {};
    return "corvane.Instance.d" + std::to_string(place.st_dev) + ".f" + std::to_string(place.st_ino);
}

std::vector<std::string> directories_of(GVariant* array) {
    std::vector<std::string> directories;
    GVariantIter each;
    g_variant_iter_init(&each, array);
    GVariant* path = nullptr;
    while (g_variant_iter_loop(&each, "@ay", &path))
        directories.push_back(to_text(g_variant_get_bytestring(path)));
    return directories;
}

// The answer of the instance that serves the folder, to be released; null where none answers, `is_late` when
// it has been asked and does not answer in time. Takes a floating `arguments` over.
GVariant* ask_other(const std::string& program_dir, const char* call, GVariant* arguments, const char* type,
                    bool& is_late) {
    if (arguments != nullptr) g_variant_ref_sink(arguments);
    const std::string name = bus_name(program_dir);
    const object_pointer<GDBusConnection> bus = name.empty() ? nullptr : session_bus(nullptr);
    GVariant* answer = nullptr;
    GError* failure = nullptr;
    if (bus)
        answer = g_dbus_connection_call_sync(bus.get(), name.c_str(), object_path, interface_name, call,
                                             arguments, G_VARIANT_TYPE(type), G_DBUS_CALL_FLAGS_NO_AUTO_START,
                                             longest_wait, nullptr, &failure);
    is_late = g_error_matches(failure, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != FALSE;
    g_clear_error(&failure);
    if (arguments != nullptr) g_variant_unref(arguments);
    return answer;
}

}  // namespace

// Owns the name and the object on the bus, from construction on.
class desktop_instance_link::served_name {
  public:
    served_name(object_pointer<GDBusConnection> bus, const std::string& name, instance_services services)
        : bus_(std::move(bus)), services_(std::move(services)) {
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
    static void called(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, void* self) {
        const instance_services& services = static_cast<served_name*>(self)->services_;
        if (std::strcmp(method, take_call) != 0) {
            g_dbus_method_invocation_return_value(call,
                                                  g_variant_new("(b)", services.raise() ? TRUE : FALSE));
            return;
        }
        GVariant* const directories = g_variant_get_child_value(arguments, 0);
        const char* token = "";
        g_variant_get_child(arguments, 1, "&s", &token);
        if (*token != '\0') g_setenv(activation_token, token, TRUE);
        const reception what = services.take ? services.take(directories_of(directories)) : reception::none;
        g_variant_unref(directories);
        g_dbus_method_invocation_return_value(call, g_variant_new("(s)", name_of(what)));
    }

    object_pointer<GDBusConnection> bus_;
    instance_services services_;
    guint object_ = 0;
    guint name_ = 0;
};

desktop_instance_link::desktop_instance_link() = default;
desktop_instance_link::~desktop_instance_link() = default;

void desktop_instance_link::serve(const std::string& program_dir, instance_services services) {
    served_.reset();
    if (!services.raise) return;
    const std::string name = bus_name(program_dir);
    if (name.empty()) return;
    object_pointer<GDBusConnection> bus = session_bus(nullptr);
    if (!bus) return;
    served_ = std::make_unique<served_name>(std::move(bus), name, std::move(services));
}

bool desktop_instance_link::raise_other(const std::string& program_dir) {
    bool is_late = false;
    GVariant* const answer = ask_other(program_dir, raise_call, nullptr, "(b)", is_late);
    if (answer == nullptr) return false;
    gboolean raised = FALSE;
    g_variant_get(answer, "(b)", &raised);
    g_variant_unref(answer);
    return raised != FALSE;
}

reception desktop_instance_link::hand_over(const std::string& program_dir,
                                           const std::vector<std::string>& directories) {
    GVariantBuilder paths;
    g_variant_builder_init(&paths, G_VARIANT_TYPE("aay"));
    for (const std::string& directory : directories)
        g_variant_builder_add_value(&paths, g_variant_new_bytestring(to_raw(directory).c_str()));
    const char* const token = g_getenv(activation_token);
    bool is_late = false;
    GVariant* const answer =
        ask_other(program_dir, take_call, g_variant_new("(aays)", &paths, token != nullptr ? token : ""),
                  "(s)", is_late);
    // What has been sent is heard when the other one comes round to it.
    if (answer == nullptr) return is_late ? reception::waits : reception::none;
    const char* name = "";
    g_variant_get(answer, "(&s)", &name);
    const reception what = reception_of(name);
    g_variant_unref(answer);
    return what;
}

}  // namespace corvane
