#include "platform/desktop/desktop_shell.h"

#include <gio/gio.h>

#include <memory>

#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {

struct object_release {
    void operator()(void* object) const { g_object_unref(object); }
};
struct memory_release {
    void operator()(void* memory) const { g_free(memory); }
};
template <class Object>
using object_pointer = std::unique_ptr<Object, object_release>;
using text_pointer = std::unique_ptr<char, memory_release>;

// Turns a GLib error into a failure: our words, then the system's.
shell_result failed(const char* what, GError* error) {
    std::string reason = what;
    if (error != nullptr) {
        reason += std::string("\r\n") + error->message;
        g_error_free(error);
    }
    return shell_result::failure(std::move(reason));
}

object_pointer<GFile> file_at(const std::string& path) {
    return object_pointer<GFile>(g_file_new_for_path(to_raw(path).c_str()));
}

text_pointer uri_of(const std::string& path) {
    return text_pointer(g_file_get_uri(file_at(path).get()));
}

// Asks the file manager over the session bus.
bool ask_file_manager(const char* method, const std::string& path, GError** error) {
    const object_pointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error));
    if (!bus) return false;
    const text_pointer uri = uri_of(path);
    const char* uris[] = {uri.get(), nullptr};
    GVariant* const answer = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", method, g_variant_new("(^ass)", uris, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, error);
    if (answer == nullptr) return false;
    g_variant_unref(answer);
    return true;
}

}  // namespace

shell_result desktop_shell::recycle(const std::string& path) {
    GError* error = nullptr;
    if (g_file_trash(file_at(path).get(), nullptr, &error)) return shell_result::success();
    return failed("不能移到回收站。", error);
}

shell_result desktop_shell::open_document(const std::string& path) {
    GError* error = nullptr;
    if (g_app_info_launch_default_for_uri(uri_of(path).get(), nullptr, &error))
        return shell_result::success();
    return failed("没有可以打开它的程序。", error);
}

shell_result desktop_shell::show_in_file_manager(const std::string& path) {
    GError* error = nullptr;
    if (ask_file_manager("ShowItems", path, &error)) return shell_result::success();
    g_clear_error(&error);
    // No file manager on the bus: its folder is opened by association.
    const std::size_t cut = path.rfind('/');
    return open_document(cut == std::string::npos || cut == 0 ? "/" : path.substr(0, cut));
}

shell_result desktop_shell::show_properties(const std::string& path) {
    GError* error = nullptr;
    if (ask_file_manager("ShowItemProperties", path, &error)) return shell_result::success();
    return failed("没有文件管理器可以显示属性。", error);
}

shell_result desktop_shell::start_process(const std::vector<std::string>& arguments) {
    std::vector<std::string> raw;
    for (const std::string& argument : arguments) raw.push_back(to_raw(argument));
    std::vector<char*> pointers;
    for (std::string& argument : raw) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    GError* error = nullptr;
    if (g_spawn_async(nullptr, pointers.data(), nullptr, G_SPAWN_SEARCH_PATH, nullptr, nullptr, nullptr,
                      &error))
        return shell_result::success();
    return failed("程序不能启动。", error);
}

shell_result desktop_shell::set_clipboard(const std::string&) {
    return shell_result::failure("没有剪贴板。");
}

shell_result desktop_shell::open_help_topic(const std::string& help_file, const std::string&) {
    if (!g_file_query_exists(file_at(help_file).get(), nullptr))
        return shell_result::failure(help_file + "  不存在");
    return open_document(help_file);
}

}  // namespace corvane
