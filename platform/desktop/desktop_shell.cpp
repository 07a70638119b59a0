#include "platform/desktop/desktop_shell.h"

#include <gio/gio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

#include "platform/desktop/buses.h"
#include "platform/desktop/desktop_failure.h"
#include "platform/name_mapping.h"

namespace corvane {

namespace {

struct memory_release {
    void operator()(void* memory) const { g_free(memory); }
};
using text_pointer = std::unique_ptr<char, memory_release>;

// The desktop has nothing that does it, as opposed to something that failed.
bool is_lacking(const GError* error) {
    return error != nullptr && (error->domain == G_DBUS_ERROR || error->domain == G_IO_ERROR) &&
           (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED) ||
            g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
            g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) ||
            g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD) ||
            g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND));
}

// Of what the desktop does not have our words say all; those of the bus would only name its services.
outcome failed_or_lacking(const char* what, GError* error, bool lacking) {
    if (!lacking) return desktop_failure(what, error);
    g_clear_error(&error);
    return outcome::lack(what);
}

object_pointer<GFile> file_at(const std::string& path) {
    return object_pointer<GFile>(g_file_new_for_path(to_raw(path).c_str()));
}

// An address on the web is one already; no path of the disk looks like one.
text_pointer uri_of(const std::string& path) {
    if (path.starts_with("https://") || path.starts_with("http://"))
        return text_pointer(g_strdup(path.c_str()));
    return text_pointer(g_file_get_uri(file_at(path).get()));
}

// Asks the file manager over the session bus. `lacking` tells that there is none to ask.
bool ask_file_manager(const char* method, const std::string& path, bool& lacking, GError** error) {
    const object_pointer<GDBusConnection> bus = session_bus(error);
    lacking = bus == nullptr;
    if (!bus) return false;
    const text_pointer uri = uri_of(path);
    const char* uris[] = {uri.get(), nullptr};
    GVariant* const answer = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", method, g_variant_new("(^ass)", uris, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, error);
    lacking = answer == nullptr && is_lacking(*error);
    if (answer == nullptr) return false;
    g_variant_unref(answer);
    return true;
}

// The desktop entry corvane-here takes directories, too. Opened by this program a directory is to be shown,
// not to come back as a selection.
bool is_own_entry(GAppInfo* program) {
    const char* const id = g_app_info_get_id(program);
    return id != nullptr && g_str_has_prefix(id, "corvane");
}

// Who shows a directory: the program of the association, or, where that is this one, the first other; null
// where there is none, and for what is no directory. Asked once and launched as it is: an association may
// change meanwhile.
object_pointer<GAppInfo> program_for_directory(const std::string& path, bool& is_directory) {
    constexpr char directories[] = "inode/directory";
    is_directory = false;
    if (g_file_query_file_type(file_at(path).get(), G_FILE_QUERY_INFO_NONE, nullptr) != G_FILE_TYPE_DIRECTORY)
        return nullptr;
    object_pointer<GAppInfo> found(g_app_info_get_default_for_type(directories, FALSE));
    is_directory = true;
    if (!found || !is_own_entry(found.get())) return found;
    found.reset();
    GList* const all = g_app_info_get_all_for_type(directories);
    for (GList* each = all; each != nullptr && !found; each = each->next)
        if (!is_own_entry(G_APP_INFO(each->data))) found.reset(G_APP_INFO(g_object_ref(each->data)));
    g_list_free_full(all, g_object_unref);
    return found;
}

class desktop_process : public started_process {
  public:
    explicit desktop_process(object_pointer<GSubprocess> process) : process_(std::move(process)) {}

    bool has_ended(double seconds) override {
        const gint64 deadline = g_get_monotonic_time() + static_cast<gint64>(seconds * G_USEC_PER_SEC);
        // GIO's own thread takes the end in, and the identifier away.
        while (g_subprocess_get_identifier(process_.get()) != nullptr) {
            if (g_get_monotonic_time() >= deadline) return false;
            g_usleep(500);
        }
        return true;
    }

  private:
    object_pointer<GSubprocess> process_;
};

}  // namespace

outcome desktop_shell::recycle(const std::string& path) {
    GError* error = nullptr;
    if (g_file_trash(file_at(path).get(), nullptr, &error)) return outcome::success();
    return desktop_failure("不能移到回收站。", error);
}

outcome desktop_shell::open_document(const std::string& path) {
    GError* error = nullptr;
    bool is_directory = false;
    const object_pointer<GAppInfo> program = program_for_directory(path, is_directory);
    if (is_directory && !program) return outcome::lack("没有可以打开它的程序。");
    if (program) {
        const text_pointer uri = uri_of(path);
        GList* const uris = g_list_append(nullptr, uri.get());
        const bool launched = g_app_info_launch_uris(program.get(), uris, nullptr, &error) != FALSE;
        g_list_free(uris);
        return launched ? outcome::success() : failed_or_lacking("没有可以打开它的程序。", error, false);
    }
    if (g_app_info_launch_default_for_uri(uri_of(path).get(), nullptr, &error)) return outcome::success();
    const bool lacking = is_lacking(error);
    return failed_or_lacking("没有可以打开它的程序。", error, lacking);
}

outcome desktop_shell::show_in_file_manager(const std::string& path) {
    GError* error = nullptr;
    bool lacking = false;
    if (ask_file_manager("ShowItems", path, lacking, &error)) return outcome::success();
    g_clear_error(&error);
    // No file manager on the bus: its folder is opened by association.
    const std::size_t cut = path.rfind('/');
    return open_document(cut == std::string::npos || cut == 0 ? "/" : path.substr(0, cut));
}

outcome desktop_shell::show_properties(const std::string& path) {
    GError* error = nullptr;
    bool lacking = false;
    if (ask_file_manager("ShowItemProperties", path, lacking, &error)) return outcome::success();
    return failed_or_lacking("没有文件管理器可以显示属性。", error, lacking);
}

outcome desktop_shell::open_power_settings() {
    // The settings of the desktops, each with what it calls that page.
    static const std::vector<std::string> programs[] = {{"gnome-control-center", "power"},
                                                        {"systemsettings", "kcm_powerdevilprofilesconfig"},
                                                        {"xfce4-power-manager-settings"},
                                                        {"mate-power-preferences"},
                                                        {"lxqt-config-powermanagement"}};
    for (std::vector<std::string> program : programs) {
        program.front() = find_program(program.front());
        if (!program.front().empty()) return start_process(program);
    }
    outcome lacks = outcome::failure("没有可以打开的电源设置程序。");
    lacks.lacking = true;
    return lacks;
}

std::string desktop_shell::find_program(const std::string& name) {
    const text_pointer found(g_find_program_in_path(to_raw(name).c_str()));
    if (!found) return {};
    const text_pointer full(g_canonicalize_filename(found.get(), nullptr));
    return to_text(full.get());
}

outcome_with<started_process> desktop_shell::start_process(const std::vector<std::string>& arguments) {
    std::vector<std::string> raw;
    raw.reserve(arguments.size());
    for (const std::string& argument : arguments) raw.push_back(to_raw(argument));
    std::vector<const char*> pointers;
    pointers.reserve(raw.size() + 1);
    for (const std::string& argument : raw) pointers.push_back(argument.c_str());
    pointers.push_back(nullptr);
    const object_pointer<GSubprocessLauncher> launcher(
        g_subprocess_launcher_new(static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE |
                                                                G_SUBPROCESS_FLAGS_STDERR_SILENCE)));
    // A session of its own: no terminal to ask for a password on, and an interrupt is not for it.
    g_subprocess_launcher_set_child_setup(
        launcher.get(),
        [](void*) {
            setsid();
            umask(077);
        },
        nullptr, nullptr);
    GError* error = nullptr;
    object_pointer<GSubprocess> process(
        g_subprocess_launcher_spawnv(launcher.get(), pointers.data(), &error));
    if (process) return std::make_unique<desktop_process>(std::move(process));
    return desktop_failure("程序不能启动。", error);
}

outcome desktop_shell::set_clipboard(const std::string&) {
    return outcome::failure("没有剪贴板。");
}

outcome desktop_shell::send_keys(const std::string&) {
    return outcome::failure("不能向其他程序发送按键。");
}

outcome desktop_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    const std::string page = help_file.substr(0, help_file.rfind('/') + 1) + "help/zh_CN/" + topic;
    if (!g_file_query_exists(file_at(page).get(), nullptr)) return outcome::failure(page + "  不存在");
    return open_document(page);
}

}  // namespace corvane
