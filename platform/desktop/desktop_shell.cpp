#include "platform/desktop/desktop_shell.h"

#include <gio/gio.h>

#include <memory>

#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {

struct free_object {
    void operator()(gpointer object) const { g_object_unref(object); }
};
struct free_memory {
    void operator()(gpointer memory) const { g_free(memory); }
};
struct free_variant {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
template <class Object>
using object_pointer = std::unique_ptr<Object, free_object>;
using text_pointer = std::unique_ptr<char, free_memory>;

// Takes over the error.
std::string words_of(GError* error) {
    if (!error) return {};
    if (g_dbus_error_is_remote_error(error)) g_dbus_error_strip_remote_error(error);
    std::string words = error->message;
    g_error_free(error);
    return words;
}

shell_result failure(const std::string& line, const std::string& words) {
    return shell_result::failure(words.empty() ? line : line + "\r\n" + words);
}

object_pointer<GFile> file_of(const std::string& path) {
    return object_pointer<GFile>(g_file_new_for_path(to_raw(path).c_str()));
}

shell_result launch(GFile* file, const std::string& shown) {
    const text_pointer address(g_file_get_uri(file));
    GError* error = nullptr;
    if (g_app_info_launch_default_for_uri(address.get(), nullptr, &error)) return shell_result::success();
    return failure("无法打开 " + shown, words_of(error));
}

// Calls one of the methods of a file manager that take a list of addresses and a start-up id.
shell_result ask_file_manager(GFile* file, const char* method) {
    GError* error = nullptr;
    const object_pointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error));
    if (!bus) return failure("没有桌面会话", words_of(error));
    const text_pointer address(g_file_get_uri(file));
    const char* addresses[] = {address.get(), nullptr};
    constexpr int patience = 5000;  // milliseconds
    const std::unique_ptr<GVariant, free_variant> answer(g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", method, g_variant_new("(^ass)", addresses, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, patience, nullptr, &error));
    return answer ? shell_result::success() : failure("没有文件管理器应答", words_of(error));
}

}  // namespace

shell_result desktop_shell::recycle(const std::string& path) {
    GError* error = nullptr;
    if (g_file_trash(file_of(path).get(), nullptr, &error)) return shell_result::success();
    return failure("不能移入回收站 " + path, words_of(error));
}

shell_result desktop_shell::open_document(const std::string& path) {
    return launch(file_of(path).get(), path);
}

shell_result desktop_shell::show_in_file_manager(const std::string& path) {
    const auto file = file_of(path);
    if (ask_file_manager(file.get(), "ShowItems").done) return shell_result::success();
    const object_pointer<GFile> parent(g_file_get_parent(file.get()));
    return launch(parent ? parent.get() : file.get(), path);
}

shell_result desktop_shell::show_properties(const std::string& path) {
    shell_result result = ask_file_manager(file_of(path).get(), "ShowItemProperties");
    if (!result.done) result.reason = "无法显示属性 " + path + "\r\n" + result.reason;
    return result;
}

shell_result desktop_shell::start_process(const std::vector<std::string>& arguments) {
    if (arguments.empty()) return shell_result::failure("没有要启动的程序");
    std::vector<std::string> raw;
    for (const std::string& argument : arguments) raw.push_back(to_raw(argument));
    std::vector<char*> pointers;
    for (std::string& argument : raw) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    GError* error = nullptr;
    if (g_spawn_async(nullptr, pointers.data(), nullptr, G_SPAWN_SEARCH_PATH, nullptr, nullptr, nullptr,
                      &error))
        return shell_result::success();
    return failure("无法启动 " + arguments.front(), words_of(error));
}

shell_result desktop_shell::set_clipboard(const std::string&) {
    return shell_result::failure("没有剪贴板");
}

shell_result desktop_shell::open_help_topic(const std::string& help_file, const std::string&) {
    // The desktop's viewers take the file; none takes a page of it.
    const auto file = file_of(help_file);
    if (!g_file_query_exists(file.get(), nullptr)) return shell_result::failure(help_file + "  不存在");
    return launch(file.get(), help_file);
}

}  // namespace corvane
