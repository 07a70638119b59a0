// Two starts of the program on one bus: one serves in this thread's event loop, the other asks on a thread.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <string>

#include "platform/desktop/desktop_instance_link.h"
#include "platform/name_mapping.h"
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
    template <class Ask>
    auto heard(const Ask& ask) {
        auto answer = std::async(std::launch::async, [&ask] {
            desktop_instance_link other;
            return ask(other);
        });
        while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            g_main_context_iteration(nullptr, FALSE);
        return answer.get();
    }
    bool asked_by_another(const std::string& program_dir) {
        return heard([&program_dir](instance_link& other) { return other.raise_other(program_dir); });
    }
    reception handed_over_by_another(const std::vector<std::string>& directories) {
        return heard([&](instance_link& other) { return other.hand_over(root_ + "/one/", directories); });
    }

    const std::string root_ = own_session().root() + "/instances";
    desktop_instance_link link_;
};

TEST_F(InstanceLink, AStartOnTheSameFolderRaisesTheOneThatServesIt) {
    int raised = 0;
    link_.serve(root_ + "/one/", {[&raised] { return ++raised > 0; }, {}});
    EXPECT_TRUE(asked_by_another(root_ + "/one/"));
    EXPECT_EQ(raised, 1);
    fs::create_directory_symlink("one", root_ + "/way");
    EXPECT_TRUE(asked_by_another(root_ + "/way/"));
    EXPECT_EQ(raised, 2);
}

TEST_F(InstanceLink, AStartOnAnotherFolderIsNoneOfItsBusiness) {
    int raised = 0;
    link_.serve(root_ + "/one/", {[&raised] { return ++raised > 0; }, {}});
    EXPECT_FALSE(asked_by_another(root_ + "/two/"));
    EXPECT_EQ(raised, 0);
}

TEST_F(InstanceLink, OneThatCannotRaiseSaysSoAndOneThatStoppedIsNotHeard) {
    link_.serve(root_ + "/one/", {[] { return false; }, {}});
    EXPECT_FALSE(asked_by_another(root_ + "/one/"));
    int raised = 0;
    link_.serve(root_ + "/one/", {[&raised] { return ++raised > 0; }, {}});
    link_.serve(root_ + "/one/", {});
    EXPECT_FALSE(asked_by_another(root_ + "/one/"));
    EXPECT_EQ(raised, 0);
}

TEST_F(InstanceLink, DirectoriesTravelAsTheyStandWhateverBytesTheyHold) {
    std::vector<std::string> taken;
    link_.serve(root_ + "/one/", {[] { return false; },
                                  [&taken](const std::vector<std::string>& directories) {
                                      taken = directories;
                                      return reception::taken;
                                  }});
    // A line break, an asterisk, bytes that are no UTF-8, as the program's text has them; and Chinese.
    const std::vector<std::string> directories = {
        "/照片", "/a b", to_text("/line\nbreak"), to_text("/star*"), to_text("/\xff\xfe"), "/"};
    EXPECT_EQ(handed_over_by_another(directories), reception::taken);
    EXPECT_EQ(taken, directories);
}

TEST_F(InstanceLink, WhatTheOtherDoesWithThemIsTold) {
    reception what = reception::waits;
    link_.serve(root_ + "/one/",
                {[] { return false; }, [&what](const std::vector<std::string>&) { return what; }});
    EXPECT_EQ(handed_over_by_another({"/a"}), reception::waits);
    what = reception::refused;
    EXPECT_EQ(handed_over_by_another({"/a"}), reception::refused);
    link_.serve(root_ + "/one/", {[] { return false; }, {}});
    EXPECT_EQ(handed_over_by_another({"/a"}), reception::none) << "one that does not know them";
    link_.serve(root_ + "/one/", {});
    EXPECT_EQ(handed_over_by_another({"/a"}), reception::none) << "nobody";
}

TEST_F(InstanceLink, DirectoriesForOneThatIsBusyTooLongAreTakenWhenItComesRound) {
    std::vector<std::string> taken;
    link_.serve(root_ + "/one/", {[] { return true; },
                                  [&taken](const std::vector<std::string>& directories) {
                                      taken = directories;
                                      return reception::taken;
                                  }});
    asked_by_another(root_ + "/one/");  // the name stands on the bus when this has been answered
    // From this thread: nobody runs its events meanwhile.
    desktop_instance_link other;
    EXPECT_EQ(other.hand_over(root_ + "/one/", {"/d"}), reception::waits);
    EXPECT_TRUE(taken.empty());
    while (taken.empty()) g_main_context_iteration(nullptr, TRUE);
    EXPECT_EQ(taken, std::vector<std::string>{"/d"});
}

TEST_F(InstanceLink, TheRightToTheFocusComesWithTheDirectories) {
    std::string token;
    link_.serve(root_ + "/one/", {[] { return false; },
                                  [&token](const std::vector<std::string>&) {
                                      token = g_getenv("XDG_ACTIVATION_TOKEN");
                                      return reception::taken;
                                  }});
    // Both ends of the test are one process: the other start has the token before the call.
    g_setenv("XDG_ACTIVATION_TOKEN", "token of the click", TRUE);
    handed_over_by_another({"/a"});
    g_unsetenv("XDG_ACTIVATION_TOKEN");
    EXPECT_EQ(token, "token of the click");
}

TEST_F(InstanceLink, WithoutABusNothingIsServedAndNoneIsStarted) {
    const std::string address = own_session().bus_address();
    g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
    g_setenv("XDG_RUNTIME_DIR", root_.c_str(), TRUE);
    int raised = 0;
    link_.serve(root_ + "/one/", {[&raised] { return ++raised > 0; }, {}});
    desktop_instance_link other;
    EXPECT_FALSE(other.raise_other(root_ + "/one/"));
    EXPECT_EQ(other.hand_over(root_ + "/one/", {"/a"}), reception::none);
    EXPECT_EQ(raised, 0);
    EXPECT_TRUE(fs::is_empty(root_ + "/one"));
    g_setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), TRUE);
}

}  // namespace
}  // namespace corvane
