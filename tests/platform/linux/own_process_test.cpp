// The environment of a superuser who came with somebody else's home, and folders on a real disk.
#include "platform/own_process.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/linux_file_system.h"
#include "platform/linux/superuser_home.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using names = std::set<std::string>;
using values = std::map<std::string, std::string>;

struct machine {
    values variables;
    std::map<std::string, std::uint32_t> owners{{"/", 0}, {"/home", 0}, {"/root", 0}, {"/home/li", 1000}};
    std::uint32_t user = 0;

    environment_change change() const {
        return change_for_superuser({[this](const std::string& name) -> std::optional<std::string> {
                                         const auto found = variables.find(name);
                                         if (found == variables.end()) return {};
                                         return found->second;
                                     },
                                     [this](const std::string& path) -> std::optional<std::uint32_t> {
                                         const auto found = owners.find(path);
                                         if (found == owners.end()) return {};
                                         return found->second;
                                     },
                                     "/root", user});
    }
};

TEST(OwnHome, TheSuperuserWithSomebodyElsesHomeTakesTheirOwn) {
    machine sudo;
    sudo.variables = {{"HOME", "/home/li"},
                      {"XDG_DATA_HOME", "/home/li/.local/share"},
                      {"XDG_CONFIG_HOME", "/root/.config"}};
    EXPECT_EQ(sudo.change().set, (values{{"HOME", "/root"}}));
    EXPECT_EQ(sudo.change().dropped, (names{"XDG_DATA_HOME"}));
}

TEST(OwnHome, AFolderOfTheSuperuserInsideOfSomebodyElsesIsStillTheirs) {
    machine sudo;
    sudo.owners["/home/li/made_by_root"] = 0;
    sudo.variables = {{"HOME", "/home/li/made_by_root"}};
    EXPECT_EQ(sudo.change().set.count("HOME"), 1u);
}

TEST(OwnHome, TheKeyOfTheDisplayIsStillFound) {
    machine sudo;
    sudo.owners["/home/li/.Xauthority"] = 1000;
    sudo.variables = {{"HOME", "/home/li"}};
    EXPECT_EQ(sudo.change().set.at("XAUTHORITY"), "/home/li/.Xauthority");
    sudo.variables["XAUTHORITY"] = "/run/key";
    EXPECT_EQ(sudo.change().set.count("XAUTHORITY"), 0u);
}

TEST(OwnHome, OrdinaryUsersAndTheSuperuserAtHomeKeepTheirEnvironment) {
    machine user;
    user.user = 1000;
    user.variables = {{"HOME", "/root"}, {"XDG_DATA_HOME", "/root/x"}};
    EXPECT_TRUE(user.change().set.empty());
    EXPECT_TRUE(user.change().dropped.empty());
    machine root;
    root.variables = {{"HOME", "/root"}, {"XDG_DATA_HOME", "/root/missing"}};
    EXPECT_TRUE(root.change().set.empty());
    EXPECT_TRUE(root.change().dropped.empty());
}

TEST(OwnHome, InAContainerOfAUserTheMachinesFoldersBelongToNobody) {
    // The user is the superuser there; what is the machine's shows as 65534.
    machine container;
    container.owners = {{"/", 65534}, {"/home", 65534}, {"/home/li", 0}};
    container.variables = {{"HOME", "/home/li"}};
    EXPECT_TRUE(container.change().set.empty());
}

class RealFolder : public scratch_folder {
  protected:
    linux_file_system files_;
};

TEST_F(RealFolder, IsMadeWithThoseAboveItForTheUserAlone) {
    const std::string inner = root + "a/b/corvane/";
    EXPECT_FALSE(files_.is_own_directory(inner));
    ASSERT_TRUE(files_.make_directory(inner));
    ASSERT_TRUE(files_.make_directory(inner)) << "one that stands";
    EXPECT_EQ(fs::status(inner).permissions(), fs::perms::owner_all);
    EXPECT_TRUE(files_.is_own_directory(inner));
}

TEST_F(RealFolder, AFileInItsPlaceIsAFailure) {
    std::ofstream(root + "file") << "x";
    EXPECT_FALSE(files_.make_directory(root + "file"));
    EXPECT_FALSE(files_.make_directory(root + "file/inner/"));
    EXPECT_FALSE(files_.is_own_directory(root + "file"));
}

// The superuser makes them in somebody else's folder; anybody else has folders of one owner alone.
TEST_F(RealFolder, FilesBelongToTheOwnerOfTheirFolder) {
    const bool gives_away = geteuid() == 0;
    const uid_t user = gives_away ? 12345 : geteuid();
    const uid_t other = gives_away ? 12346 : geteuid();
    constexpr auto same_group = static_cast<gid_t>(-1);
    ASSERT_EQ(chown(root.c_str(), user, same_group), 0);
    EXPECT_EQ(files_.is_own_directory(root), !gives_away);
    const auto owner_of = [this](const char* name) {
        struct stat facts = {};
        EXPECT_EQ(stat((root + name).c_str(), &facts), 0) << name;
        return facts.st_uid;
    };
    const auto made = files_.replace_file(root + "replaced");
    ASSERT_TRUE(made && made->write("x") && made->commit());
    EXPECT_EQ(owner_of("replaced"), user);
    ASSERT_TRUE(files_.put_text(root + "put", "x"));
    EXPECT_EQ(owner_of("put"), user);
    const auto grown = files_.overwrite_file(root + "grown");
    ASSERT_TRUE(grown && grown->commit());
    EXPECT_EQ(owner_of("grown"), user);
    // A file that stands keeps its owner and its permissions, whoever the folder belongs to.
    ASSERT_EQ(chown((root + "put").c_str(), other, same_group), 0);
    fs::permissions(root + "put", fs::perms::owner_all);
    const auto again = files_.replace_file(root + "put");
    ASSERT_TRUE(again && again->write("y") && again->commit());
    EXPECT_EQ(owner_of("put"), other);
    EXPECT_EQ(fs::status(root + "put").permissions(), fs::perms::owner_all);
    ASSERT_TRUE(files_.put_text(root + "put", "z"));
    EXPECT_EQ(owner_of("put"), other);
}

}  // namespace
}  // namespace corvane
