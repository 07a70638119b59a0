// Homes and a session bus of the tests' own, there before anything of GIO runs.
#pragma once

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace corvane {

class own_session_environment : public testing::Environment {
  public:
    void SetUp() override {
        char pattern[] = "/var/tmp/corvane_desktop_XXXXXX";
        root_ = mkdtemp(pattern);
        std::filesystem::create_directories(root_ + "/home/.local/share/applications");
        g_setenv("HOME", (root_ + "/home").c_str(), TRUE);
        g_setenv("XDG_DATA_HOME", (root_ + "/home/.local/share").c_str(), TRUE);
        g_setenv("XDG_CONFIG_HOME", (root_ + "/home/.config").c_str(), TRUE);
        g_setenv("XDG_DATA_DIRS", (root_ + "/none").c_str(), TRUE);
        bus_ = g_test_dbus_new(G_TEST_DBUS_NONE);
        g_test_dbus_up(bus_);
        // The machine's own services are out of reach.
        g_setenv("DBUS_SYSTEM_BUS_ADDRESS", bus_address(), TRUE);
    }
    void TearDown() override {
        g_test_dbus_stop(bus_);
        g_object_unref(bus_);
        std::filesystem::remove_all(root_);
    }

    const std::string& root() const { return root_; }
    const char* bus_address() const { return g_test_dbus_get_bus_address(bus_); }

  private:
    std::string root_;
    GTestDBus* bus_ = nullptr;
};

// The one of this process.
own_session_environment& own_session();

}  // namespace corvane
