// The desktop's services against a session bus of the test's own, with a file manager that writes down what
// it is asked, and an association that copies what it is given.
#include "platform/desktop/desktop_shell.h"

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/desktop/own_session.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using texts = std::vector<std::string>;

// org.freedesktop.FileManager1 on a thread and connection of its own.
class mock_file_manager {
  public:
    explicit mock_file_manager(const char* bus_address) {
        context_ = g_main_context_new();
        loop_ = g_main_loop_new(context_, FALSE);
        thread_ = std::thread([this, address = std::string(bus_address)] { serve(address); });
        while (!ready_.load()) std::this_thread::yield();
    }
    ~mock_file_manager() {
        g_main_loop_quit(loop_);
        thread_.join();
        g_main_loop_unref(loop_);
        g_main_context_unref(context_);
    }
    texts calls() {
        const std::lock_guard guard(mutex_);
        return calls_;
    }

  private:
    static constexpr char interface[] =
        "<node><interface name='org.freedesktop.FileManager1'>"
        "<method name='ShowItems'><arg type='as' direction='in'/><arg type='s' direction='in'/></method>"
        "<method name='ShowItemProperties'><arg type='as' direction='in'/><arg type='s' "
        "direction='in'/></method>"
        "</interface></node>";

    static void answer(GDBusConnection*, const char*, const char*, const char*, const char* method,
                       GVariant* arguments, GDBusMethodInvocation* call, void* self) {
        auto* manager = static_cast<mock_file_manager*>(self);
        const char** uris = nullptr;
        g_variant_get(arguments, "(^a&s&s)", &uris, nullptr);
        {
            const std::lock_guard guard(manager->mutex_);
            manager->calls_.push_back(std::string(method) + " " + (uris[0] ? uris[0] : ""));
        }
        g_free(uris);
        g_dbus_method_invocation_return_value(call, nullptr);
    }

    void serve(const std::string& address) {
        g_main_context_push_thread_default(context_);
        GDBusConnection* bus = g_dbus_connection_new_for_address_sync(
            address.c_str(),
            static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(interface, nullptr);
        static const GDBusInterfaceVTable table = {answer, nullptr, nullptr, {}};
        g_dbus_connection_register_object(bus, "/org/freedesktop/FileManager1", node->interfaces[0], &table,
                                          this, nullptr, nullptr);
        g_bus_own_name_on_connection(
            bus, "org.freedesktop.FileManager1", G_BUS_NAME_OWNER_FLAGS_NONE,
            [](GDBusConnection*, const char*, void* self) {
                static_cast<mock_file_manager*>(self)->ready_ = true;
            },
            nullptr, this, nullptr);
        g_main_loop_run(loop_);
        g_dbus_node_info_unref(node);
        g_dbus_connection_close_sync(bus, nullptr, nullptr);
        g_object_unref(bus);
        g_main_context_pop_thread_default(context_);
    }

    GMainContext* context_;
    GMainLoop* loop_;
    std::thread thread_;
    std::atomic<bool> ready_ = false;
    std::mutex mutex_;
    texts calls_;
};

class DesktopShell : public testing::Test {
  protected:
    std::string make_file(const std::string& name) {
        const std::string path = root_ + "/" + name;
        std::ofstream(path) << "content";
        return path;
    }

    const std::string root_ = own_session().root();
    desktop_shell desktop;
};

TEST_F(DesktopShell, ShowsAFileAndItsPropertiesThroughTheFileManager) {
    mock_file_manager manager(own_session().bus_address());
    const std::string path = make_file("with blank 中.txt");
    EXPECT_TRUE(desktop.show_in_file_manager(path).ok);
    EXPECT_TRUE(desktop.show_properties(path).ok);
    const std::string uri = "file://" + root_ + "/with%20blank%20%E4%B8%AD.txt";
    EXPECT_EQ(manager.calls(), (texts{"ShowItems " + uri, "ShowItemProperties " + uri}));
}

TEST_F(DesktopShell, WithoutAFileManagerTheDesktopLacksProperties) {
    const outcome result = desktop.show_properties(make_file("a"));
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.lacking);
    EXPECT_EQ(result.reason, "没有文件管理器可以显示属性。") << "without the words of the bus";
}

TEST_F(DesktopShell, WithoutAFileManagerAndAssociationTheDesktopLacksAView) {
    const outcome result = desktop.show_in_file_manager(make_file("a"));
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.lacking);
}

TEST_F(DesktopShell, WithoutAnAssociationTheDesktopLacksAProgram) {
    const outcome result = desktop.open_document(make_file("a.unknown"));
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.lacking);
    EXPECT_EQ(result.reason, "没有可以打开它的程序。");
}

TEST_F(DesktopShell, AnAddressOnTheWebIsNoFile) {
    for (const char* address : {"https://corvane.invalid/", "http://corvane.invalid/a b"}) {
        const outcome result = desktop.open_document(address);
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.lacking) << result.reason;  // there is no browser; a file would be missing
    }
}

TEST_F(DesktopShell, AHelpTopicIsAPageBesideTheProgram) {
    const outcome missing = desktop.open_help_topic(root_ + "/Corvane帮助.chm", "aux01_Corvane帮助_Link.htm");
    EXPECT_FALSE(missing.ok);
    EXPECT_FALSE(missing.lacking);
    EXPECT_TRUE(missing.reason.ends_with("help/zh_CN/aux01_Corvane帮助_Link.htm  不存在")) << missing.reason;
    fs::create_directories(root_ + "/help/zh_CN");
    std::ofstream(root_ + "/help/zh_CN/aux01_Corvane帮助_Link.htm") << "<p>";
    const outcome found = desktop.open_help_topic(root_ + "/Corvane帮助.chm", "aux01_Corvane帮助_Link.htm");
    EXPECT_TRUE(found.lacking) << found.reason;  // there, and nothing to open it with
}

TEST_F(DesktopShell, AMissingFileFailsWithoutLacking) {
    const outcome result = desktop.open_document(root_ + "/gone");
    EXPECT_FALSE(result.ok);
    EXPECT_FALSE(result.lacking);
}

TEST_F(DesktopShell, FindsAProgramByItsBareName) {
    const std::string shell = desktop.find_program("sh");
    EXPECT_TRUE(shell.starts_with("/") && shell.ends_with("/sh")) << shell;
    EXPECT_EQ(desktop.find_program("no such program"), "");
}

TEST_F(DesktopShell, AStartedProcessIsAskedForItsEndAndIsNotWaitedFor) {
    const std::string gate = root_ + "/gate";
    ASSERT_EQ(mkfifo(gate.c_str(), 0600), 0);
    const auto process = desktop.start_process({"/bin/sh", "-c", "read line < '" + gate + "'"});
    ASSERT_TRUE(process) << process.reason;
    EXPECT_FALSE(process->has_ended(0));
    EXPECT_FALSE(process->has_ended(0.02));
    std::ofstream(gate) << "go\n";
    EXPECT_TRUE(process->has_ended(20));
    EXPECT_TRUE(process->has_ended(0));
}

TEST_F(DesktopShell, AStartedProcessHasItsArgumentsAsTheyStandAndNothingToReadFrom) {
    const std::string seen = root_ + "/arguments";
    // A name with a star, in the program's text.
    const auto process = desktop.start_process(
        {"/bin/sh", "-c", "cat > \"$1\"; printf '%s|' \"$2\" \"$3\" >> \"$1\"; test -t 0 && echo tty; true",
         "sh", seen, "a b'$(x)", "\uF02A.zip"});
    ASSERT_TRUE(process) << process.reason;
    ASSERT_TRUE(process->has_ended(20));
    std::string content;
    std::getline(std::ifstream(seen), content);
    EXPECT_EQ(content, "a b'$(x)|*.zip|");
}

TEST_F(DesktopShell, AProgramThatIsNotThereSaysWhyItCannotBeStarted) {
    const outcome started = desktop.start_process({root_ + "/no program"});
    EXPECT_FALSE(started);
    EXPECT_TRUE(started.reason.starts_with("程序不能启动。\r\n")) << started.reason;
}

// Last: GIO keeps the association once it has read it.
TEST_F(DesktopShell, OpensADocumentByItsAssociation) {
    const std::string seen = root_ + "/seen";
    std::ofstream(root_ + "/home/.local/share/applications/viewer.desktop")
        << "[Desktop Entry]\nType=Application\nName=viewer\nExec=cp %f " << seen
        << "\nMimeType=application/octet-stream;text/plain;application/x-zerosize;\n";
    fs::create_directories(root_ + "/home/.config");
    std::ofstream(root_ + "/home/.config/mimeapps.list")
        << "[Default Applications]\napplication/octet-stream=viewer.desktop\ntext/plain=viewer.desktop\n";
    const std::string path = make_file("a b;'$(x).txt");
    outcome result;
    // GIO takes notice of new associations by itself, a moment later.
    for (int attempt = 0; attempt < 100 && !result; ++attempt) {
        if (attempt > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
        result = desktop.open_document(path);
    }
    ASSERT_TRUE(result.ok) << result.reason;
    // The copy is there before its content is.
    std::string content;
    for (int attempt = 0; attempt < 500 && content != "content"; ++attempt) {
        if (attempt > 0) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        content.clear();
        std::ifstream(seen) >> content;
    }
    EXPECT_EQ(content, "content");
}

TEST_F(DesktopShell, ADirectoryIsShownByAnotherProgramThanThisOne) {
    const std::string applications = root_ + "/home/.local/share/applications/";
    const std::string ours = root_ + "/ours";
    const std::string shown = root_ + "/shown";
    std::ofstream(applications + "corvane-here.desktop")
        << "[Desktop Entry]\nType=Application\nName=here\nExec=touch " << ours
        << "\nMimeType=inode/directory;\n";
    std::ofstream(root_ + "/home/.config/mimeapps.list")
        << "[Default Applications]\ninode/directory=corvane-here.desktop\n";
    outcome result;
    const auto lacks_program = [&] {
        result = desktop.open_document(root_);
        return result.lacking && result.reason == "没有可以打开它的程序。";
    };
    // With nobody else to show it the user hears so, and the program does not call itself.
    for (int attempt = 0; attempt < 600 && !lacks_program(); ++attempt)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(lacks_program()) << result.reason;
    std::ofstream(applications + "files.desktop")
        << "[Desktop Entry]\nType=Application\nName=files\nExec=touch " << shown
        << "\nMimeType=inode/directory;\n";
    std::ofstream(root_ + "/home/.config/mimeapps.list")
        << "[Default Applications]\ninode/directory=corvane-here.desktop\n"
           "[Added Associations]\ninode/directory=corvane-here.desktop;files.desktop;\n";
    for (int attempt = 0; attempt < 600 && !result; ++attempt) {
        if (attempt > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
        result = desktop.open_document(root_);
    }
    ASSERT_TRUE(result.ok) << result.reason;
    for (int attempt = 0; attempt < 500 && !fs::exists(shown); ++attempt)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_TRUE(fs::exists(shown));
    EXPECT_FALSE(fs::exists(ours));
}

}  // namespace
}  // namespace corvane
