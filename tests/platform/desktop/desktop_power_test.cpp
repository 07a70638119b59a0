// Ending session and machine, asked of a mock of logind on the tests' own bus. The machine's own is never
// asked.
#include "platform/desktop/desktop_power.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/platform/desktop/mock_service.h"
#include "tests/platform/desktop/own_session.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct login_mock : mock_service {
    login_mock()
        : mock_service("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                       {"--system", "--template", "logind"}) {}
};

TEST(DesktopPower, AsksWhetherItMayAndThenDoesIt) {
    login_mock logind;
    desktop_power machine;
    EXPECT_TRUE(machine.power_off().ok);
    EXPECT_EQ(logind.calls(), (texts{"CanPowerOff", "PowerOff false"}));
    EXPECT_TRUE(machine.reboot().ok);
    EXPECT_EQ(logind.calls(), (texts{"CanReboot", "Reboot false"}));
}

TEST(DesktopPower, WhatIsRefusedIsNotAskedFor) {
    login_mock logind;
    desktop_power machine;
    for (const char* answer : {"no", "challenge", "na"}) {
        logind.answer("CanPowerOff", "", "s", std::string("ret = \"") + answer + "\"");
        const outcome refused = machine.power_off();
        EXPECT_FALSE(refused.ok);
        EXPECT_EQ(refused.reason,
                  std::string(answer) == "na" ? "这台计算机不支持此操作。" : "系统不允许此操作。");
        EXPECT_EQ(logind.calls(), texts{"CanPowerOff"});
    }
}

TEST(DesktopPower, ARefusalOfTheActItselfIsOneLine) {
    login_mock logind;
    desktop_power machine;
    logind.answer(
        "Reboot", "b", "",
        "raise dbus.exceptions.DBusException('busy', name='org.freedesktop.login1.OperationInProgress')");
    const outcome refused = machine.reboot();
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(refused.reason, "系统拒绝了此操作。");
}

TEST(DesktopPower, WithoutTheServiceOneLineSaysSo) {
    desktop_power machine;
    for (const outcome& refused : {machine.power_off(), machine.reboot()}) {
        EXPECT_FALSE(refused.ok);
        EXPECT_EQ(refused.reason, "系统的电源服务没有回答。");
    }
}

TEST(DesktopPower, LoggingOffGoesThroughTheManagerOfTheSession) {
    login_mock logind;
    desktop_power machine;
    g_setenv("XDG_SESSION_ID", "c7", TRUE);
    {
        mock_service gnome(
            "org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
            {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager"});
        gnome.answer("Logout", "u", "", "");
        EXPECT_TRUE(machine.log_off().ok);
        EXPECT_EQ(gnome.calls(), texts{"Logout 1"});
    }
    {
        mock_service kde("org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown",
                         {"org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown"});
        kde.answer("logout", "", "", "");
        EXPECT_TRUE(machine.log_off().ok);
        EXPECT_EQ(kde.calls(), texts{"logout"});
    }
    EXPECT_EQ(logind.calls(), texts{});
    EXPECT_TRUE(machine.log_off().ok);
    EXPECT_EQ(logind.calls(), texts{"TerminateSession c7"});
    g_unsetenv("XDG_SESSION_ID");
    EXPECT_EQ(machine.log_off().reason, "没有可以注销的会话。");
}

}  // namespace
}  // namespace corvane
