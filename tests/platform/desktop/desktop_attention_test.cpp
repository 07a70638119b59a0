// Wakefulness, notifications and the launcher's progress, asked of mocks on the tests' own bus.
#include "platform/desktop/desktop_attention.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/platform/desktop/mock_service.h"
#include "tests/platform/desktop/own_session.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// Runs this thread's events until it holds, or for ten seconds.
bool comes_true(const std::function<bool()>& condition) {
    const gint64 deadline = g_get_monotonic_time() + gint64{10} * G_USEC_PER_SEC;
    while (!condition()) {
        if (g_get_monotonic_time() > deadline) return false;
        g_main_context_iteration(nullptr, FALSE);
    }
    return true;
}

// What logind holds, each "what who why mode".
texts inhibitors(mock_service& logind) {
    texts held;
    GVariant* const answer = logind.call("org.freedesktop.login1.Manager", "ListInhibitors", nullptr);
    if (answer == nullptr) return {"no answer"};
    GVariantIter* each = nullptr;
    g_variant_get(answer, "(a(ssssuu))", &each);
    const char *what = nullptr, *who = nullptr, *why = nullptr, *mode = nullptr;
    while (g_variant_iter_next(each, "(&s&s&s&suu)", &what, &who, &why, &mode, nullptr, nullptr))
        held.push_back(std::string(what) + "|" + who + "|" + why + "|" + mode);
    g_variant_iter_free(each);
    g_variant_unref(answer);
    return held;
}

TEST(DesktopAttention, TheMachineStaysAwakeAsLongAsTheObjectLives) {
    mock_service logind("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                        {"--system", "--template", "logind"});
    desktop_attention notice;
    auto awake = notice.keep_awake("正在运行: 查相同文件");
    ASSERT_NE(awake, nullptr);
    EXPECT_EQ(inhibitors(logind), texts{"idle:sleep|Corvane|正在运行: 查相同文件|block"});
    awake.reset();
    EXPECT_TRUE(comes_true([&logind] { return inhibitors(logind).empty(); }));
}

TEST(DesktopAttention, WithoutServicesNothingHappens) {
    desktop_attention notice;
    EXPECT_EQ(notice.keep_awake("why"), nullptr);
    notice.notify("title", "text", [] { ADD_FAILURE(); });
    notice.show_progress(0.5);
    notice.hide_progress();
}

TEST(DesktopAttention, AClickOnTheLastNotificationIsHeard) {
    mock_service daemon("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                        "org.freedesktop.Notifications", {"--template", "notification_daemon"});
    desktop_attention notice;
    int clicks = 0;
    notice.notify("Corvane: 查相同文件", "相同文件:12", [&clicks] { ++clicks; });
    const texts calls = daemon.calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_TRUE(
        calls[0].starts_with("Notify Corvane 0 corvane Corvane: 查相同文件 相同文件:12 "
                             "['default', '显示']"))
        << calls[0];
    const auto click = [&daemon](guint32 number) {
        GVariantBuilder arguments;
        g_variant_builder_init(&arguments, G_VARIANT_TYPE("av"));
        g_variant_builder_add(&arguments, "v", g_variant_new_uint32(number));
        g_variant_builder_add(&arguments, "v", g_variant_new_string("default"));
        GVariant* const sent = daemon.call(
            "org.freedesktop.DBus.Mock", "EmitSignal",
            g_variant_new("(sssav)", "org.freedesktop.Notifications", "ActionInvoked", "us", &arguments));
        ASSERT_NE(sent, nullptr);
        g_variant_unref(sent);
    };
    click(99);  // of another program
    click(1);
    EXPECT_TRUE(comes_true([&clicks] { return clicks > 0; }));
    EXPECT_EQ(clicks, 1);
}

TEST(DesktopAttention, TheLauncherHearsOfTheProgress) {
    GDBusConnection* const launcher = g_dbus_connection_new_for_address_sync(
        own_session().bus_address(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    texts heard;
    g_dbus_connection_signal_subscribe(
        launcher, nullptr, "com.canonical.Unity.LauncherEntry", "Update", nullptr, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
           void* into) {
            char* const printed = g_variant_print(arguments, FALSE);
            static_cast<texts*>(into)->emplace_back(printed);
            g_free(printed);
        },
        &heard, nullptr);
    // The bus knows of the subscription when it has answered the next call.
    g_variant_unref(g_dbus_connection_call_sync(launcher, "org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                                "GetId", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
                                                nullptr, nullptr));
    desktop_attention notice;
    notice.show_progress(0.25);
    notice.hide_progress();
    EXPECT_TRUE(comes_true([&heard] { return heard.size() == 2; }));
    EXPECT_EQ(heard,
              (texts{"('application://corvane.desktop', {'progress': <0.25>, 'progress-visible': <true>})",
                     "('application://corvane.desktop', {'progress': <0.0>, 'progress-visible': <false>})"}));
    g_dbus_connection_close_sync(launcher, nullptr, nullptr);
    g_object_unref(launcher);
}

}  // namespace
}  // namespace corvane
