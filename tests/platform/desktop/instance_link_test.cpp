// Two starts of the program on one bus: one serves in this thread's event loop, the other asks on a thread.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <string>

#include "platform/desktop/desktop_instance_link.h"
#include "tests/platform/desktop/own_session.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class InstanceLink : public testing::Test {
  protected:
    InstanceLink() {
        fs::create_directories(root_ + "/one");
        fs::create_directories(root_ + "/two");
    }
    ~InstanceLink() override { fs::remove_all(root_); }

    // What another start gets to hear while this thread runs its events.
    bool asked_by_another(const std::string& program_dir) {
        auto answer = std::async(std::launch::async, [&program_dir] {
            desktop_instance_link other;
            return other.raise_other(program_dir);
        });
        while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            g_main_context_iteration(nullptr, FALSE);
        return answer.get();
    }

    const std::string root_ = own_session().root() + "/instances";
    desktop_instance_link link_;
};

TEST_F(InstanceLink, AStartOnTheSameFolderRaisesTheOneThatServesIt) {
    int raised = 0;
    link_.serve(root_ + "/one/", [&raised] { return ++raised > 0; });
    EXPECT_TRUE(asked_by_another(root_ + "/one/"));
    EXPECT_EQ(raised, 1);
    fs::create_directory_symlink("one", root_ + "/way");
    EXPECT_TRUE(asked_by_another(root_ + "/way/"));
    EXPECT_EQ(raised, 2);
}

TEST_F(InstanceLink, AStartOnAnotherFolderIsNoneOfItsBusiness) {
    int raised = 0;
    link_.serve(root_ + "/one/", [&raised] { return ++raised > 0; });
    EXPECT_FALSE(asked_by_another(root_ + "/two/"));
    EXPECT_EQ(raised, 0);
}

TEST_F(InstanceLink, OneThatCannotRaiseSaysSoAndOneThatStoppedIsNotHeard) {
    link_.serve(root_ + "/one/", [] { return false; });
    EXPECT_FALSE(asked_by_another(root_ + "/one/"));
    int raised = 0;
    link_.serve(root_ + "/one/", [&raised] { return ++raised > 0; });
    link_.serve(root_ + "/one/", {});
    EXPECT_FALSE(asked_by_another(root_ + "/one/"));
    EXPECT_EQ(raised, 0);
}

TEST_F(InstanceLink, WithoutABusNothingIsServedAndNoneIsStarted) {
    const std::string address = own_session().bus_address();
    g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
    g_setenv("XDG_RUNTIME_DIR", root_.c_str(), TRUE);
    int raised = 0;
    link_.serve(root_ + "/one/", [&raised] { return ++raised > 0; });
    desktop_instance_link other;
    EXPECT_FALSE(other.raise_other(root_ + "/one/"));
    EXPECT_EQ(raised, 0);
    EXPECT_TRUE(fs::is_empty(root_ + "/one"));
    g_setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), TRUE);
}

}  // namespace
}  // namespace corvane
